#pragma once

#include <wx/gdicmn.h>

#include <cstdint>
#include <optional>
#include <span>

namespace graphics {

/// What the header of a picture claims.
struct CPictureHeader {
  wxBitmapType type;
  std::int64_t width;
  std::int64_t height;
};

/// Of a PNG, JPEG, BMP, ICO, CUR or TIFF picture; nothing for any other content, and where the header is cut short.
/// Where a file holds several pictures to choose from, the size is that of the largest.
///
/// The other formats that the toolkit knows are not loaded. Its GIF decoder reads on beyond the end of a damaged
/// picture and loses memory, and its decoder of BMPs in run lengths writes beyond the picture; the rest have no
/// signature, or sizes that are not known before all of the picture is read.
std::optional<CPictureHeader> FindPictureHeader(std::span<const unsigned char> bytes);

}  // namespace graphics
