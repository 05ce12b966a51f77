#include "foundation/NumberText.h"

#include "foundation/Error.h"
#include "foundation/PlatformNumber.h"
#include "foundation/StringLocalizer.h"

#include <string_view>

namespace orlo {

namespace {

/// Takes what it looks for off the front of a text.
class CScanner {
public:
  explicit CScanner(std::string_view text) : text_(text) {}

  bool takeAnyOf(std::string_view characters) {
    const bool found = !text_.empty() && characters.find(text_.front()) != std::string_view::npos;
    if (found) text_.remove_prefix(1);
    return found;
  }
  bool takeDigits() {
    bool any = false;
    while (takeAnyOf("0123456789")) any = true;
    return any;
  }
  bool atEnd() const { return text_.empty(); }

private:
  std::string_view text_;
};

bool isNumber(std::string_view text) {
  CScanner scanner(text);
  scanner.takeAnyOf("+-");
  bool digits = scanner.takeDigits();
  if (scanner.takeAnyOf(".") && scanner.takeDigits()) digits = true;
  if (!digits) return false;
  if (scanner.takeAnyOf("dDeE")) {
    scanner.takeAnyOf("+-");
    if (!scanner.takeDigits()) return false;
  }
  return scanner.atEnd();
}

}  // namespace

double parseDouble(const String& text) {
  const std::string characters = toStdString(text);
  const double value = readDouble(characters.c_str());
  if (value == 0 && !isNumber(characters))
    throw CParseError(localize("orlo.CDouble.parseError", "Error parsing floating point value."));
  return value;
}

}  // namespace orlo
