#pragma once

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

class wxFileName;
class wxInputStream;

namespace graphics {

/// No resource is larger than this once it is unpacked.
constexpr std::size_t kMaxResourceBytes = std::size_t{256} << 20;
/// A picture of more pixels, or wider or higher than a bitmap can be, counts as damaged.
constexpr std::int64_t kMaxPicturePixels = std::int64_t{64} << 20;
/// All that the pictures of one store may have.
constexpr std::int64_t kMaxStorePixels = std::int64_t{512} << 20;

/// The type that an extension stands for: "bmp", "jpg", "png" or "ico" without regard to case, otherwise invalid.
wxBitmapType PictureTypeOf(const wxString& extension);

/// A picture in one of the formats of PictureHeader.h. Not ok if it is damaged, too large, or not of the type, where a
/// type is given. The header is looked at before any memory is taken.
wxImage LoadPicture(std::span<const unsigned char> bytes, wxBitmapType type);
/// A picture of any of the types. Not ok if there is no such file.
wxImage LoadPictureFile(const wxFileName& file);

/// Null if the image is not ok.
std::unique_ptr<wxBitmap> MakeBitmap(const wxImage& image);

/// Gives the pictures of one store, as long as they are within its limit. What is not ok is null.
class CPictureReader {
public:
  std::unique_ptr<wxBitmap> Read(std::span<const unsigned char> bytes, wxBitmapType type);
  std::unique_ptr<wxBitmap> ReadFile(const wxFileName& file);

private:
  std::int64_t pixelsLeft_ = kMaxStorePixels;
};

/// All that the stream still gives, but no more bytes than the limit.
std::vector<unsigned char> ReadBytes(wxInputStream& stream, std::size_t limit);

}  // namespace graphics
