#include "graphics/art/ArtProvider.h"

#include "graphics/model/Picture.h"

namespace graphics {

std::unique_ptr<wxBitmap> CArtProvider::GetBitmap(const wxString& name, bool /*coloured*/) {
  return MakeBitmap(LoadPictureFile(wxFileName(path_.GetFullPath(), name)));
}

}  // namespace graphics
