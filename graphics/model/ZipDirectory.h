#pragma once

#include "graphics/model/ZipEntry.h"

#include <cstddef>
#include <vector>

class wxInputStream;

namespace graphics {

/// Of an archive with more files than this, the first ones count.
constexpr std::size_t kMaxZipEntries = 100'000;
/// Of a longer directory, the first part counts.
constexpr std::size_t kMaxZipDirectoryBytes = std::size_t{32} << 20;

/// The files of a zip archive in the order of its directory; folders are none. The stream must be seekable. The archive
/// may have other bytes before it, a comment behind it, and 64-bit fields. Of a stream that is no archive there are no
/// files, of a damaged directory those before the damage.
std::vector<CZipEntry> ReadZipDirectory(wxInputStream& archive);

}  // namespace graphics
