#pragma once

#include "foundation/String.h"

namespace orlo {

/// In English whatever the locale is; empty for a code that the system doesn't know.
String systemText(int code);

/// The common exit of platform failures, for an errno value. A path that leads nowhere is a CFileNotFoundError for
/// that path (an empty one is left out), any other a CError with the message, "%ERRORDESC%" filled in, or the
/// system's text if the message is null.
[[noreturn]] void throwSystemError(int code, const String& message, const String& path = String());

}  // namespace orlo
