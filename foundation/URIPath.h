#pragma once

#include "foundation/URI.h"

#include <string_view>

namespace orlo::uri {

/// Whether the location is of the scheme "file", or of none.
bool isFile(const IURI& uri);
/// The same, and on this machine.
bool isLocalFile(const IURI& uri);

/// Of names with "/" between them. An absolute one begins with "/"; a host is null if there is none.
P<IURI> fromPath(const String& host, const String& path);

}  // namespace orlo::uri
