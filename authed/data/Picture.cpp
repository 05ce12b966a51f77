#include "authed/data/Picture.h"

#include "graphics/model/ResourceStore.h"

#include <wx/filename.h>

namespace authed::data {

CPicture& CPicture::operator=(const CPicture& other) {
  if (this != &other) Set(other.Get());
  return *this;
}

void CPicture::Set(const wxBitmap* bitmap) {
  bitmap_ = bitmap && bitmap->IsOk() ? std::make_unique<wxBitmap>(*bitmap) : nullptr;
}

void CPicture::WriteToXml(wxXmlNode& node, const wxString& name, graphics::IResourceOutputStore& store) const {
  if (bitmap_) store.WriteBitmap(node, name, *bitmap_, wxFileName());
}

void CPicture::ReadFromXml(const wxXmlNode& node, const wxString& name, graphics::IResourceInputStore& store) {
  wxFileName noFile;
  if (auto bitmap = store.ReadBitmap(node, name, noFile)) bitmap_ = std::move(bitmap);
}

}  // namespace authed::data
