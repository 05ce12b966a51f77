#include "foundation/Error.h"
#include "foundation/StringLocalizer.h"

#include <utility>

namespace orlo {

namespace {

// Messages are filled in UTF-16, so that no character of a location is lost.
String fillURI(const String& message, const PC<IURI>& uri) {
  if (message.isNull()) return message;
  return toWide(message).replace("%URI%", uri ? uri->getDescription() : String("<uri unknown>"));
}

String notFoundMessage(const PC<IURI>& uri) {
  if (!uri) return localize("orlo.CFileNotFoundError.GeneralDesc", "The file was not found.");
  const String message = localize("orlo.CFileNotFoundError.Desc", "The file '%FILE%' was not found.");
  return toWide(message).replace("%FILE%", uri->getDescription());
}

}  // namespace

CURIError::CURIError(const String& message, const String& title, PC<IURI> uri)
    : CError(fillURI(message, uri), title), uri_(std::move(uri)) {}

CFileNotFoundError::CFileNotFoundError() : CFileNotFoundError(nullptr) {}

CFileNotFoundError::CFileNotFoundError(const PC<IURI>& uri) : CFileError(notFoundMessage(uri), "Error", uri) {}

}  // namespace orlo
