#include "filter/FilterBase64Resource.h"

#include <wx/filename.h>

namespace authfilter {

namespace {

bool IsGone(const wxFileName& file) {
  return file.IsOk() && !file.FileExists();
}

}  // namespace

std::unique_ptr<wxBitmap> CFilterBase64Resource::ReadBitmap(const wxXmlNode& node, const wxString& name,
                                                            wxFileName& file) {
  if (IsGone(file)) return std::make_unique<wxBitmap>(substitute_.Get());
  return CBase64Resources::ReadBitmap(node, name, file);
}

std::unique_ptr<wxBitmap> CFilterBase64Resource::ReadBitmapOfType(const wxXmlNode& node, const wxString& name,
                                                                  wxBitmapType type, wxFileName& file) {
  if (IsGone(file)) return std::make_unique<wxBitmap>(substitute_.Get());
  return CBase64Resources::ReadBitmapOfType(node, name, type, file);
}

}  // namespace authfilter
