#pragma once

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/string.h>

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

class wxFileName;
class wxInputStream;

namespace graphics {

/// No resource is larger than this once it is unpacked.
constexpr std::size_t kMaxResourceBytes = std::size_t{256} << 20;
/// A picture of more pixels counts as damaged.
constexpr double kMaxPicturePixels = 64.0 * 1024 * 1024;

/// The type that an extension stands for: "bmp", "jpg", "png" or "ico" without regard to case, otherwise invalid.
wxBitmapType PictureTypeOf(const wxString& extension);

/// Not ok if the picture is damaged or too large. The header is looked at before any memory is taken.
wxImage LoadPicture(std::span<const unsigned char> bytes, wxBitmapType type);
/// A picture of any type. Not ok if there is no such file.
wxImage LoadPictureFile(const wxFileName& file);

/// Null if the image is not ok.
std::unique_ptr<wxBitmap> MakeBitmap(const wxImage& image);

/// All that the stream still gives, but no more bytes than the limit.
std::vector<unsigned char> ReadBytes(wxInputStream& stream, std::size_t limit);

}  // namespace graphics
