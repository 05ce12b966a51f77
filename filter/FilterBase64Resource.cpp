#include "filter/FilterBase64Resource.h"

#include "graphics/model/Picture.h"

namespace authfilter {

namespace {

bool IsGone(const wxFileName& file) {
  return file.IsOk() && !file.FileExists();
}

}  // namespace

CFilterBase64Resource::CFilterBase64Resource(const wxString& directory)
    : substituteFile_(directory, "filenotfound.png") {}

std::unique_ptr<wxBitmap> CFilterBase64Resource::ReadBitmap(const wxXmlNode& node, const wxString& name,
                                                            wxFileName& file) {
  if (IsGone(file)) return LoadSubstitute();
  return CBase64Resources::ReadBitmap(node, name, file);
}

std::unique_ptr<wxBitmap> CFilterBase64Resource::ReadBitmapOfType(const wxXmlNode& node, const wxString& name,
                                                                  wxBitmapType type, wxFileName& file) {
  if (IsGone(file)) return LoadSubstitute();
  return CBase64Resources::ReadBitmapOfType(node, name, type, file);
}

std::unique_ptr<wxBitmap> CFilterBase64Resource::LoadSubstitute() const {
  auto bitmap = graphics::MakeBitmap(graphics::LoadPictureFile(substituteFile_));
  if (!bitmap) bitmap = std::make_unique<wxBitmap>();
  return bitmap;
}

}  // namespace authfilter
