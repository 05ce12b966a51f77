#include "foundation/Error.h"

#include "foundation/StringLocalizer.h"

namespace orlo {

namespace {

String orDefault(const String& text, const char* otherwise) {
  return text.isNull() ? String(otherwise) : text;
}

}  // namespace

CError::CError() : CError(nullptr, nullptr) {}

CError::CError(const String& message) : CError(message, nullptr) {}

CError::CError(const String& message, const String& title)
    : CException(orDefault(message, "Unspecified error"), orDefault(title, "Error")) {}

CNoSuchObjectError::CNoSuchObjectError() : CError(localize("orlo.CNoSuchObjectError.desc", "No such object.")) {}

CParseError::CParseError(const String& message) : CError(message, "Parse error") {}

}  // namespace orlo
