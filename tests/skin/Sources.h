#pragma once

#include "foundation/Object.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/skin/AnimationSource.h"
#include "graphics/skin/CustomLayer.h"
#include "graphics/skin/CustomLayerPainter.h"
#include "graphics/skin/TextSource.h"
#include "tests/elements/Page.h"
#include "tests/model/TestElement.h"

#include <functional>
#include <vector>

namespace graphics::skin {

using namespace graphics::test;

constexpr CPixel kGreen{0, 255, 0, 255};

/// A bitmap with alpha in one colour.
inline wxBitmap Filled(int width, int height, CPixel colour) {
  wxBitmap bitmap = MakeAlphaBitmap(width, height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) SetPixelOf(bitmap, x, y, colour);
  // Images made from it show the pixels from now on.
  const CBitmapSurface written(bitmap);
  return bitmap;
}

class CTexts : public orlo::CObject, public virtual ITextSource {
public:
  explicit CTexts(const wxString& content) : text(content) {}
  wxString GetText(const wxString& key) override {
    keys.push_back(key);
    return text;
  }

  wxString text;
  std::vector<wxString> keys;
};

class CPictures : public orlo::CObject, public virtual IAnimationSource {
public:
  explicit CPictures(const wxBitmap& content = wxNullBitmap) : bitmap(content) {}
  wxBitmap* GetBitmap(const wxString& key) override {
    keys.push_back(key);
    return bitmap.IsOk() ? &bitmap : nullptr;
  }

  wxBitmap bitmap;
  std::vector<wxString> keys;
};

/// Fills the rectangle and remembers what it was asked for.
class CFill : public orlo::CObject, public virtual ICustomLayerPainter {
public:
  explicit CFill(const wxColour& with = *wxBLUE) : colour(with) {}
  void PaintCustom(CCustomLayer& layer, CPaintContext& context, TEffectGraphicsContext& target, const CDoubleRect& rect,
                   ITextSource* /*texts*/, IAnimationSource* /*animations*/) override {
    ids.push_back(layer.id);
    rects.push_back(rect);
    matrices.push_back(context.matrix);
    target.context->SetPen(*wxTRANSPARENT_PEN);
    target.context->SetBrush(wxBrush(colour));
    target.context->DrawRectangle(rect.left, rect.top, rect.width, rect.height);
    if (repaint != 0) context.nextRepaint = repaint;
  }

  wxColour colour;
  std::vector<wxString> ids;
  std::vector<CDoubleRect> rects;
  std::vector<CMatrix> matrices;
  std::int32_t repaint = 0;
};

/// A page with a graphics context on it, on which layers paint.
class CLayerPage : public CPage {
public:
  explicit CLayerPage(int width = 60, int height = 40) : CPage(width, height) {}

  CSmoothEffectDC smooth{dc};
  orlo::P<TEffectGraphicsContext> target = smooth.CreateEffectContext();
};

}  // namespace graphics::skin
