#pragma once

#include <wx/gdicmn.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace graphics {

/// What the header of a picture claims.
struct CPictureHeader {
  wxBitmapType type;
  std::int64_t width;
  std::int64_t height;
  /// So many bytes hold all that is shown: the first picture of those that move.
  std::size_t length;
};

/// Of a PNG, JPEG, BMP, GIF, ICO, CUR or TIFF picture; nothing for any other content, and where the header is cut
/// short. The other formats that the toolkit knows have no signature, or sizes that are not known before all of the
/// picture is read. Where a file holds several pictures to choose from, the size is that of the largest.
std::optional<CPictureHeader> FindPictureHeader(std::span<const unsigned char> bytes);

}  // namespace graphics
