#include "graphics/model/Picture.h"

#include "graphics/model/PictureSize.h"
#include "graphics/paint/native/ImageConversion.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/wfstream.h>

#include <algorithm>
#include <new>

namespace graphics {

wxBitmapType PictureTypeOf(const wxString& extension) {
  if (extension.IsSameAs("bmp", false)) return wxBITMAP_TYPE_BMP;
  if (extension.IsSameAs("jpg", false)) return wxBITMAP_TYPE_JPEG;
  if (extension.IsSameAs("png", false)) return wxBITMAP_TYPE_PNG;
  if (extension.IsSameAs("ico", false)) return wxBITMAP_TYPE_ICO;
  return wxBITMAP_TYPE_INVALID;
}

wxImage LoadPicture(std::span<const unsigned char> bytes, wxBitmapType type) {
  wxImage image;
  const auto size = FindPictureSize(bytes);
  if (bytes.empty() || (size && size->width * size->height > kMaxPicturePixels)) return image;
  const wxLogNull quiet;
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  try {
    if (!image.LoadFile(stream, type)) image.Destroy();
  } catch (const std::bad_alloc&) {
    image.Destroy();
  }
  return image;
}

wxImage LoadPictureFile(const wxFileName& file) {
  const wxLogNull quiet;
  if (!file.FileExists()) return {};
  wxFileInputStream stream(file.GetFullPath());
  if (!stream.IsOk()) return {};
  return LoadPicture(ReadBytes(stream, kMaxResourceBytes), wxBITMAP_TYPE_ANY);
}

std::unique_ptr<wxBitmap> MakeBitmap(const wxImage& image) {
  const wxBitmap bitmap = BitmapOf(image);
  return bitmap.IsOk() ? std::make_unique<wxBitmap>(bitmap) : nullptr;
}

std::vector<unsigned char> ReadBytes(wxInputStream& stream, std::size_t limit) {
  constexpr std::size_t kChunk = std::size_t{64} * 1024;
  std::vector<unsigned char> bytes;
  while (bytes.size() < limit) {
    const std::size_t before = bytes.size();
    const std::size_t wanted = std::min(kChunk, limit - before);
    bytes.resize(before + wanted);
    const std::size_t got = stream.Read(bytes.data() + before, wanted).LastRead();
    bytes.resize(before + got);
    if (got < wanted) break;
  }
  return bytes;
}

}  // namespace graphics
