#pragma once

#include "foundation/URI.h"

#include <string>

namespace orlo::posix {

/// The text of a path, readable as far as it can be: in UTF-8, or in UTF-16 where String reads no such characters in
/// UTF-8. A path that is no UTF-8 stays the bytes that it is.
String textOfPath(const std::string& path);

/// For messages. Bytes that are no characters are escaped.
String nameOf(const PC<IURI>& uri);

/// The bytes of a location's path; empty if it is none on this machine.
std::string localPath(const PC<IURI>& uri);
/// Without slashes at the end, behind which links would be followed.
std::string localFolderPath(const PC<IURI>& uri);

P<IURI> uriOfPath(const std::string& path);
/// With "/" at the end.
P<IURI> uriOfFolder(std::string path);

}  // namespace orlo::posix
