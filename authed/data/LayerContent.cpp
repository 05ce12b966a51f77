#include "authed/data/LayerContent.h"

#include "graphics/elements/ElementBox.h"
#include "graphics/geometry/Transform.h"
#include "graphics/paint/EffectGraphicsContext.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace authed::data {

using namespace graphics;

namespace {

CMatrix FromFrameToBox(const CDoubleRect& frame, const CDoubleRect& box) {
  CTransform transform;
  transform.Apply(CMatrix::Translation(box.left, box.top));
  transform.Apply(CMatrix::Scale(box.width / frame.width, box.height / frame.height));
  transform.Apply(CMatrix::Translation(-frame.left, -frame.top));
  return transform.GetCurrent();
}

CMatrix MatrixOf(const wxGraphicsMatrix& from) {
  CMatrix to = CMatrix::Identity();
  from.Get(&to[0], &to[1], &to[4], &to[5], &to[12], &to[13]);
  return to;
}

bool IsFinite(const CMatrix& matrix) {
  return std::all_of(matrix.cells.begin(), matrix.cells.end(), [](double cell) { return std::isfinite(cell); });
}

std::int32_t KeyOf(const CGraphicElement& owner) {
  return static_cast<std::int32_t>(reinterpret_cast<std::uintptr_t>(&owner));
}

}  // namespace

void PaintInLayer(const skin::CCustomLayer& layer, CPaintContext& context, TEffectGraphicsContext& target,
                  const CDoubleRect& rect, const CGraphicElement& element, const CGraphicElement& owner,
                  const std::function<void(CPaintContext&)>& paint) {
  const CDoubleRect box = layer.CalcContentRect(rect);
  if (!(box.width > 0 && box.height > 0)) return;
  CPaintContext clone(context, target.dc, KeyOf(owner));
  clone.effectContext = nullptr;
  // Elements draw on contexts of their own, which know nothing of the target's transform.
  clone.matrix = FromFrameToBox(FrameOf(element), box) * MatrixOf(target.GetTransform());
  if (!IsFinite(clone.matrix)) return;
  target.PushState();
  target.SetTransform(target.CreateMatrix(1, 0, 0, 1, 0, 0));
  target.context->Flush();
  paint(clone);
  target.PopState();
  context.nextRepaint = clone.nextRepaint;
}

}  // namespace authed::data
