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

CNoSuchObjectError::CNoSuchObjectError()
    : CNoSuchObjectError(localize("orlo.CNoSuchObjectError.desc", "No such object.")) {}

CNoSuchObjectError::CNoSuchObjectError(const String& message) : CError(message) {}

CParseError::CParseError(const String& message) : CError(message, "Parse error") {}

}  // namespace orlo
