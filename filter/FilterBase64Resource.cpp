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

std::unique_ptr<wxBitmap> CFilterBase64Resource::LoadSubstitute() {
  // One picture, however many are gone.
  if (!substitute_) {
    const auto bitmap = graphics::MakeBitmap(graphics::LoadPictureFile(substituteFile_));
    substitute_ = bitmap ? *bitmap : wxBitmap();
  }
  return std::make_unique<wxBitmap>(*substitute_);
}

}  // namespace authfilter
