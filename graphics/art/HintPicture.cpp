#include "graphics/art/HintPicture.h"

#include "graphics/art/TextWrapper.h"
#include "graphics/paint/MaskPictures.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <algorithm>
#include <cstdint>

namespace graphics {

namespace {

constexpr int kScratchEdge = 100;
constexpr int kSmallestPointSize = 6;
/// What a line leaves free of the width it is given.
constexpr int kMargin = 4;
/// By so much a picture is larger than its text.
constexpr int kHalo = 2;

}  // namespace

CHintLayout::CHintLayout(const wxString& text, const wxFont& font)
    : text_(text), font_(font), scratch_(MakeAlphaBitmap(kScratchEdge, kScratchEdge)), dc_(scratch_) {
  dc_.SetFont(font_);
  size_ = MeasureLine(dc_, text_);
}

bool CHintLayout::IsWiderThan(int maxWidth) const {
  return std::int64_t{size_.x} + kMargin > maxWidth;
}

bool CHintLayout::CanShrink() const {
  return font_.GetPointSize() > kSmallestPointSize;
}

void CHintLayout::Shrink() {
  font_.SetPointSize(font_.GetPointSize() - 1);
  dc_.SetFont(font_);
  size_ = MeasureMultiLine(dc_, text_);
}

void CHintLayout::Wrap(int maxWidth) {
  text_ = CTextWrapper(font_).Wrap(text_, std::max(maxWidth, 0) - kMargin);
  size_ = MeasureMultiLine(dc_, text_);
}

std::optional<wxBitmap> CHintLayout::Draw(const wxColour& textColour, const wxColour& haloColour,
                                          double maxPixels) const {
  const wxSize size(size_.x + kHalo, size_.y + kHalo);
  if (size.x > kLargestBitmapEdge || size.y > kLargestBitmapEdge || double{1} * size.x * size.y > maxPixels)
    return std::nullopt;
  const auto drawn = [&](bool asMask) {
    wxBitmap bitmap = MakeAlphaBitmap(size.x, size.y);
    CBitmapEffectDC dc(bitmap);
    dc.SetFont(font_);
    dc.SetAlphaMask(asMask);
    dc.DrawOutlinedText(text_, 0, 0, textColour, haloColour);
    dc.Flush();
    return bitmap;
  };
  return MergeAlphaMask(drawn(false), drawn(true), 255);
}

}  // namespace graphics
