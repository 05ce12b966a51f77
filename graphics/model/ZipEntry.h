#pragma once

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <vector>

class wxInputStream;

namespace graphics {

/// A file of a zip archive as the archive's directory describes it. Nothing of it needs to be true.
struct CZipEntry {
  wxString name;
  /// Of the header before its packed bytes, in the stream.
  std::uint64_t offset = 0;
  /// Where the next header or the directory begins: the entry lies before that.
  std::uint64_t end = 0;
  std::uint64_t packedSize = 0;
  std::uint64_t size = 0;
  std::uint32_t crc = 0;
  std::uint16_t flags = 0;
  std::uint16_t method = 0;
};

/// Up to that many bytes at that place; fewer where the stream ends.
std::vector<unsigned char> ReadBytesAt(wxInputStream& stream, std::uint64_t place, std::size_t size);

/// The bytes of a file that is stored or deflated. None if it is encrypted, packed otherwise, not of its size, not of
/// its check sum, reaches into another entry, or is beyond kMaxResourceBytes, packed or not.
std::vector<unsigned char> UnpackZipEntry(wxInputStream& archive, const CZipEntry& entry);

}  // namespace graphics
