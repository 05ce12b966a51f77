#include "graphics/model/Picture.h"

#include "graphics/model/PictureHeader.h"
#include "graphics/paint/native/BitmapPixels.h"
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

namespace {

bool IsWithin(const CPictureHeader& header, std::int64_t mostPixels) {
  return header.width <= kLargestBitmapEdge && header.height <= kLargestBitmapEdge &&
         header.width * header.height <= std::min(mostPixels, kMaxPicturePixels);
}

}  // namespace

wxImage LoadPicture(std::span<const unsigned char> bytes, wxBitmapType type, std::int64_t mostPixels) {
  wxImage image;
  const auto header = FindPictureHeader(bytes);
  if (!header || !IsWithin(*header, mostPixels)) return image;
  if (type != wxBITMAP_TYPE_ANY && type != header->type) return image;
  const wxLogNull quiet;
  // The JPEG library would write of damage to the host's standard error.
  image.SetLoadFlags(image.GetLoadFlags() & ~wxImage::Load_Verbose);
  try {
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    if (!image.LoadFile(stream, header->type)) image.Destroy();
  } catch (const std::bad_alloc&) {
    image.Destroy();
  }
  return image;
}

wxImage LoadPictureFile(const wxFileName& file, std::int64_t mostPixels) {
  const wxLogNull quiet;
  if (!file.FileExists()) return {};
  wxFileInputStream stream(file.GetFullPath());
  if (!stream.IsOk()) return {};
  return LoadPicture(ReadBytes(stream, kMaxResourceBytes), wxBITMAP_TYPE_ANY, mostPixels);
}

std::unique_ptr<wxBitmap> MakeBitmap(const wxImage& image) {
  const wxBitmap bitmap = BitmapOf(image);
  return bitmap.IsOk() ? std::make_unique<wxBitmap>(bitmap) : nullptr;
}

std::unique_ptr<wxBitmap> CPictureReader::Read(std::span<const unsigned char> bytes, wxBitmapType type) {
  return Count(LoadPicture(bytes, type, pixelsLeft_));
}

std::unique_ptr<wxBitmap> CPictureReader::ReadFile(const wxFileName& file) {
  return Count(LoadPictureFile(file, pixelsLeft_));
}

std::unique_ptr<wxBitmap> CPictureReader::Count(const wxImage& image) {
  if (image.IsOk()) pixelsLeft_ -= std::int64_t{image.GetWidth()} * image.GetHeight();
  return MakeBitmap(image);
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
