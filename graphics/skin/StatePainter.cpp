#include "graphics/skin/StatePainter.h"

#include "graphics/elements/ScaledCopy.h"
#include "graphics/geometry/RectPoints.h"
#include "graphics/geometry/Truncate.h"
#include "graphics/skin/Offscreen.h"

#include <algorithm>
#include <cstring>

namespace graphics::skin {

namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kDotsPerInch = 300;

constexpr std::uint32_t kAllLayers = 255;
constexpr std::uint32_t kPictureLayers = kAllLayers & ~LayerKind::kText;

/// What the state wants, and at least the rectangle at the resolution of pictures.
wxSize OffscreenSize(CDoubleSize preferred, const CDoubleRect& rect) {
  const auto dots = [](double millimetres) { return millimetres / kMillimetresPerInch * kDotsPerInch; };
  return {TruncateToInt(std::max(dots(rect.width), preferred.width)),
          TruncateToInt(std::max(dots(rect.height), preferred.height))};
}

void Clear(const wxBitmap& bitmap) {
  const CBitmapSurface surface(bitmap);
  const CPixels& pixels = surface.Pixels();
  for (int y = 0; y < pixels.height; ++y) std::memset(pixels.Row(y), 0, 4 * static_cast<std::size_t>(pixels.width));
  surface.MarkDirty();
}

}  // namespace

CStatePainter::CStatePainter() = default;
CStatePainter::~CStatePainter() = default;

const wxBitmap* CStatePainter::GetOffscreen() const {
  return offscreen_ && offscreen_->IsOk() ? offscreen_.get() : nullptr;
}

bool CStatePainter::UsesOffscreen(const CState& state, TEffectGraphicsContext& target, const CDoubleRect& rect,
                                  ITextSource* texts, IAnimationSource* animations) {
  const wxSize size = OffscreenSize(state.GetPreferredSize(target, texts, animations), rect);
  return !HasExtent(size) || FitsOffscreen(size);
}

void CStatePainter::Paint(const CState& state, CPaintContext& context, TEffectGraphicsContext& target,
                          const CDoubleRect& rect, ITextSource* texts, IAnimationSource* animations,
                          ICustomLayerPainter* painter) {
  const CSources sources{texts, animations, painter};
  const CDoubleRect device = context.matrix.MapPoints(CRectPoints::FromRect(rect)).BoundingRect();
  if (context.outputMode == 1) return PaintLayers(state, kAllLayers, context, target, device, sources);
  const CDoubleRect pixels = device.Inflated();
  const wxSize size = OffscreenSize(state.GetPreferredSize(target, texts, animations), rect);
  PaintPictures(state, context, target, size, pixels, sources);
  PaintLayers(state, LayerKind::kText, context, target, pixels, sources);
}

void CStatePainter::PaintPictures(const CState& state, CPaintContext& context, TEffectGraphicsContext& target,
                                  wxSize size, const CDoubleRect& pixels, const CSources& sources) {
  if (!HasExtent(size)) return;
  if (FitsOffscreen(size)) {
    wxBitmap bitmap = TakeOffscreen(size);
    {
      COffscreenContext offscreen(context, bitmap);
      PaintLayers(state, kPictureLayers, offscreen.context, *offscreen.target, RectOf(size), sources);
      context.TakeRepaintOf(offscreen.context);
    }
    target.DrawBitmap(bitmap, pixels.left, pixels.top, pixels.width, pixels.height);
    return;
  }
  offscreen_.reset();
  CPaintContext scaled(context, target.dc, context.cacheKey);
  wxGraphicsMatrix matrix = target.GetTransform();
  matrix.Translate(pixels.left, pixels.top);
  matrix.Scale(pixels.width / size.x, pixels.height / size.y);
  target.PushState();
  // A bitmap would have ended here.
  target.Clip(pixels.left, pixels.top, pixels.width, pixels.height);
  target.SetTransform(matrix);
  PaintLayers(state, kPictureLayers, scaled, target, RectOf(size), sources);
  target.PopState();
  context.TakeRepaintOf(scaled);
}

/// Cleared, and the last one again if the size is the same.
wxBitmap CStatePainter::TakeOffscreen(wxSize size) {
  if (GetOffscreen() && offscreen_->GetSize() == size) {
    offscreen_->Touch();
    Clear(*offscreen_);
  } else {
    offscreen_.reset();
    offscreen_ = std::make_unique<CScaledCopy>(MakeAlphaBitmap(size.x, size.y));
  }
  return *offscreen_;
}

void CStatePainter::PaintLayers(const CState& state, std::uint32_t mask, CPaintContext& context,
                                TEffectGraphicsContext& target, const CDoubleRect& rect, const CSources& sources) {
  for (const auto& layer : state.GetLayers())
    if (layer->GetKindMask() & mask) PaintLayer(*layer, context, target, rect, sources);
}

void CStatePainter::PaintLayer(CLayer& layer, CPaintContext& context, TEffectGraphicsContext& target,
                               const CDoubleRect& rect, const CSources& sources) {
  if (layer.IsDeviceScaled() && context.outputMode == 0)
    PaintScaledLayer(layer, context, target, rect, sources);
  else
    layer.Paint(context, target, rect, sources.texts, sources.animations, sources.painter);
}

/// The middle of the rectangle counts in pixels of the device, its size in millimetres. Text that is centred lies in
/// the middle of the rectangle at every scale; what is aligned to an edge lies at the edge only at one pixel a
/// millimetre.
void CStatePainter::PaintScaledLayer(CLayer& layer, CPaintContext& context, TEffectGraphicsContext& target,
                                     const CDoubleRect& rect, const CSources& sources) {
  const wxSize resolution = context.dc->GetPPI();
  const CDoubleSize natural{resolution.x / kMillimetresPerInch, resolution.y / kMillimetresPerInch};
  const wxSize size(TruncateToInt(rect.width * natural.width), TruncateToInt(rect.height * natural.height));
  wxGraphicsMatrix matrix = target.CreateMatrix(1, 0, 0, 1, 0, 0);
  matrix.Translate(rect.GetCenter().x, rect.GetCenter().y);
  matrix.Scale(context.matrix.GetScaleX() / natural.width, context.matrix.GetScaleY() / natural.height);
  matrix.Translate(-size.x * 0.5, -size.y * 0.5);
  target.PushState();
  target.SetTransform(matrix);
  layer.Paint(context, target, RectOf(size), sources.texts, sources.animations, sources.painter);
  target.PopState();
}

}  // namespace graphics::skin
