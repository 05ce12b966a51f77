#pragma once

#include "foundation/URI.h"

namespace orlo::windows {

/// What IPathes does on Windows, as a mapping of texts. It needs nothing of the platform.

/// A path of 240 characters or more gets a prefix that lifts the platform's limit. Where it can't have one, or the
/// platform knows no long paths, CError is thrown.
String uriToPath(const PC<IURI>& uri, bool knowsLongPaths);
P<IURI> pathToURI(const String& path);
String toFileURI(const PC<IURI>& uri, bool knowsLongPaths);

}  // namespace orlo::windows
