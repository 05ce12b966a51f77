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
         header.width * header.height <= mostPixels;
}

std::vector<unsigned char> ReadFileBytes(const wxFileName& file) {
  const wxLogNull quiet;
  if (!file.FileExists()) return {};
  wxFileInputStream stream(file.GetFullPath());
  return stream.IsOk() ? ReadBytes(stream, kMaxResourceBytes) : std::vector<unsigned char>();
}

}  // namespace

wxImage LoadPicture(std::span<const unsigned char> bytes, wxBitmapType type) {
  wxImage image;
  const auto header = FindPictureHeader(bytes);
  if (!header || !IsWithin(*header, kMaxPicturePixels)) return image;
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

wxImage LoadPictureFile(const wxFileName& file) {
  return LoadPicture(ReadFileBytes(file), wxBITMAP_TYPE_ANY);
}

std::unique_ptr<wxBitmap> MakeBitmap(const wxImage& image) {
  const wxBitmap bitmap = BitmapOf(image);
  return bitmap.IsOk() ? std::make_unique<wxBitmap>(bitmap) : nullptr;
}

std::unique_ptr<wxBitmap> CPictureReader::Read(std::span<const unsigned char> bytes, wxBitmapType type) {
  const auto header = FindPictureHeader(bytes);
  if (!header || !IsWithin(*header, std::min(pixelsLeft_, kMaxPicturePixels))) return nullptr;
  // Damaged ones too: they may take as long.
  pixelsLeft_ -= header->width * header->height;
  return MakeBitmap(LoadPicture(bytes, type));
}

std::unique_ptr<wxBitmap> CPictureReader::ReadFile(const wxFileName& file) {
  return Read(ReadFileBytes(file), wxBITMAP_TYPE_ANY);
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
