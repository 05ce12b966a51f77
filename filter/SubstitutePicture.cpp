#include "filter/SubstitutePicture.h"

#include "graphics/model/Picture.h"

namespace authfilter {

const wxBitmap& CSubstitutePicture::Get() {
  if (!bitmap_) {
    const auto bitmap = graphics::MakeBitmap(graphics::LoadPictureFile(file_));
    bitmap_ = bitmap ? *bitmap : wxBitmap();
  }
  return *bitmap_;
}

}  // namespace authfilter
