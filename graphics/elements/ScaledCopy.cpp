#include "graphics/elements/ScaledCopy.h"

namespace graphics {

namespace {

// Without a destructor, so that pages may outlive it.
CScaledCopy* newest = nullptr;
CScaledCopy* oldest = nullptr;
std::size_t bytesInUse = 0;

std::size_t BytesOf(const wxBitmap& bitmap) {
  constexpr std::size_t kBytesPerPixel = 4;
  if (!bitmap.IsOk()) return 0;
  return kBytesPerPixel * static_cast<std::size_t>(bitmap.GetWidth()) * static_cast<std::size_t>(bitmap.GetHeight());
}

}  // namespace

CScaledCopy::CScaledCopy(const wxBitmap& bitmap) : wxBitmap(bitmap), bytes_(BytesOf(bitmap)) {
  while (oldest && bytesInUse + bytes_ > kScaledCopyBudget) oldest->GiveUp();
  bytesInUse += bytes_;
  Link();
}

CScaledCopy::~CScaledCopy() {
  GiveUp();
}

void CScaledCopy::Touch() {
  if (bytes_ == 0 || this == newest) return;
  Unlink();
  Link();
}

std::size_t CScaledCopy::BytesInUse() {
  return bytesInUse;
}

void CScaledCopy::Link() {
  if (bytes_ == 0) return;
  older_ = newest;
  newer_ = nullptr;
  (newest ? newest->newer_ : oldest) = this;
  newest = this;
}

void CScaledCopy::Unlink() {
  (older_ ? older_->newer_ : oldest) = newer_;
  (newer_ ? newer_->older_ : newest) = older_;
}

void CScaledCopy::GiveUp() {
  if (bytes_ == 0) return;
  Unlink();
  bytesInUse -= bytes_;
  bytes_ = 0;
  UnRef();
}

}  // namespace graphics
