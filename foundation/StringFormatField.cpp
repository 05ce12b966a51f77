#include "foundation/StringFormatField.h"

#include "foundation/CodePointReader.h"
#include "foundation/Error.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace orlo {

namespace {

using Kind = CStringFormatField::Kind;

/// Takes the parts of a field off a format text, in ASCII; a character beyond that is part of no field.
class CFieldReader {
public:
  CFieldReader(const String& format, CStringPos position) : reader_(format, position) { step(); }

  /// 0 behind the last character, which no part of a field is.
  char next() const { return next_; }
  /// Before the next character.
  CStringPos position() const { return atEnd_ ? CStringPos::end() : reader_.lastPosition(); }

  void step() {
    char32_t character = 0;
    atEnd_ = !reader_.read(character);
    next_ = !atEnd_ && character < 0x80 ? static_cast<char>(character) : '\0';
  }
  bool take(char wanted) {
    const bool found = next_ == wanted && wanted != 0;
    if (found) step();
    return found;
  }
  bool nextIsDigit() const { return next_ >= '0' && next_ <= '9'; }
  /// Stops at the largest number there is.
  std::int32_t takeNumber() {
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    std::int64_t number = 0;
    for (; nextIsDigit(); step()) number = std::min(10 * number + (next_ - '0'), kMost);
    return static_cast<std::int32_t>(number);
  }

private:
  CCodePointReader reader_;
  bool atEnd_ = false;
  char next_ = 0;
};

bool* flagOf(CStringFormatField& field, char character) {
  switch (character) {
    case '-':
      return &field.leftAlign;
    case '+':
      return &field.plus;
    case '0':
      return &field.zeroPad;
    case ' ':
      return &field.space;
    case '#':
      return &field.alternate;
    default:
      return nullptr;
  }
}

/// How many characters of spec they take up, with the "%".
std::size_t takeFlags(CFieldReader& reader, CStringFormatField& field) {
  std::size_t specLength = 1;
  while (bool* flag = flagOf(field, reader.next())) {
    if (specLength == 1 + CStringFormatField::maxFlags)
      throwFormatError("CStringFormat: too many field flags specified.");
    *flag = true;
    field.spec[specLength++] = reader.next();
    reader.step();
  }
  return specLength;
}

/// The value that is pushed has a size of its own.
void skipSizePrefix(CFieldReader& reader) {
  if (reader.take('l')) {
    reader.take('l');
  } else if (reader.take('h')) {
    reader.take('h');
  } else if (reader.take('I')) {
    if (!reader.take('6') || !reader.take('4')) throwFormatError("CStringFormat: invalid format string.");
  } else {
    for (const char prefix : {'L', 'z', 'j', 't'})
      if (reader.take(prefix)) return;
  }
}

Kind kindOf(char conversion) {
  constexpr auto isIn = [](std::string_view letters, char letter) {
    return letters.find(letter) != std::string_view::npos;
  };
  if (isIn("dioxXu", conversion)) return Kind::integer;
  if (isIn("eEfgG", conversion)) return Kind::floatingPoint;
  if (isIn("cC", conversion)) return Kind::character;
  if (isIn("sS", conversion)) return Kind::string;
  throwFormatError("CStringFormat: invalid format string.");
}

}  // namespace

CStringFormatField CStringFormatField::parse(const String& format, CStringPos& position) {
  CStringFormatField field;
  CFieldReader reader(format, position);
  const std::size_t specLength = takeFlags(reader, field);
  field.widthPending = reader.take('*');
  if (!field.widthPending && reader.nextIsDigit()) field.width = reader.takeNumber();
  if (reader.take('.')) {
    field.precisionPending = reader.take('*');
    if (!field.precisionPending) field.precision = reader.takeNumber();
  }
  skipSizePrefix(reader);
  field.conversion = reader.next();
  field.kind = kindOf(field.conversion);
  field.checkSize();
  reader.step();
  position = reader.position();
  const char rest[] = {'*', '.', '*', field.conversion, '\0'};
  std::copy_n(rest, sizeof rest, field.spec.begin() + static_cast<std::ptrdiff_t>(specLength));
  return field;
}

void CStringFormatField::checkSize() const {
  if (width > maxSize || width < -maxSize) throwFormatError("CStringFormat: the field width is above 65535.");
  // The precision of a text only makes it shorter.
  if (precision > maxSize && kind != Kind::string)
    throwFormatError("CStringFormat: the field precision is above 65535.");
}

void throwFormatError(const char* message) {
  throw CInvalidArgError(nullptr, nullptr, nullptr, message);
}

}  // namespace orlo
