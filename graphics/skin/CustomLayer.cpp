#include "graphics/skin/CustomLayer.h"

#include "graphics/elements/ScaledCopy.h"
#include "graphics/geometry/Truncate.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/paint/MaskPictures.h"
#include "graphics/paint/PixelRange.h"
#include "graphics/skin/CustomLayerPainter.h"
#include "graphics/skin/Offscreen.h"
#include "graphics/skin/StatePainter.h"

#include <wx/brush.h>
#include <wx/font.h>
#include <wx/pen.h>

namespace graphics::skin {

CCustomLayer::CCustomLayer() = default;
CCustomLayer::~CCustomLayer() = default;

void CCustomLayer::SetShape(const orlo::P<CSkin>& shape) {
  shape_ = shape;
  shapeMask_.reset();
}

void CCustomLayer::Paint(CPaintContext& context, TEffectGraphicsContext& target, const CDoubleRect& rect,
                         ITextSource* texts, IAnimationSource* animations, ICustomLayerPainter* painter) {
  if (!shape_) return PaintContent(context, target, rect, texts, animations, painter);
  const wxSize size(TruncateToInt(rect.width), TruncateToInt(rect.height));
  if (!HasExtent(size) || !FitsOffscreen(size)) return;
  const wxBitmap mask = FindShapeMask(context, size);
  wxBitmap bitmap = MakeAlphaBitmap(size.x, size.y);
  {
    COffscreenContext offscreen(context, bitmap);
    offscreen.context.matrix = CMatrix::Identity();
    PaintContent(offscreen.context, *offscreen.target, RectOf(size), texts, animations, painter);
    context.TakeRepaintOf(offscreen.context);
  }
  LimitAlpha(bitmap, mask);
  target.DrawBitmap(bitmap, rect.left, rect.top, size.x, size.y);
}

/// What is kept may have been given up for others.
wxBitmap CCustomLayer::FindShapeMask(const CPaintContext& context, wxSize size) {
  if (!shapeMask_ || !shapeMask_->IsOk() || shapeMask_->GetSize() != size) {
    shapeMask_.reset();
    const wxBitmap mask = BuildShapeMask(context, size);
    shapeMask_ = std::make_unique<CScaledCopy>(mask);
  }
  shapeMask_->Touch();
  return *shapeMask_;
}

wxBitmap CCustomLayer::BuildShapeMask(const CPaintContext& context, wxSize size) const {
  wxBitmap mask = MakeAlphaBitmap(size.x, size.y);
  COffscreenContext offscreen(context, mask);
  offscreen.context.matrix = CMatrix::Identity();
  if (const orlo::P<CState> state = shape_->FindState("normal"))
    orlo::makeObject<CStatePainter>()->Paint(*state, offscreen.context, *offscreen.target, RectOf(size), nullptr,
                                             nullptr, nullptr);
  return mask;
}

void CCustomLayer::PaintContent(CPaintContext& context, TEffectGraphicsContext& target, const CDoubleRect& rect,
                                ITextSource* texts, IAnimationSource* animations, ICustomLayerPainter* painter) {
  if (context.viewMode == 2) PaintPlaceholder(target, rect);
  if (painter) painter->PaintCustom(*this, context, target, rect, texts, animations);
}

void CCustomLayer::PaintPlaceholder(TEffectGraphicsContext& target, const CDoubleRect& rect) const {
  const CDoubleRect box = CalcContentRect(rect);
  const wxRect pixels = ToPixelRect(box);
  target.context->SetPen(*wxBLACK_PEN);
  target.context->SetBrush(*wxRED_BRUSH);
  target.context->DrawRectangle(pixels.x, pixels.y, pixels.width, pixels.height);
  target.DrawLine(id, *wxNORMAL_FONT, *wxBLACK, box.left + 2.0, box.top + 2.0);
}

void CCustomLayer::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CLayer::WriteToXml(node, store);
  xml::WriteText(node, "id", id);
  if (shape_) WriteSkin(node, "shape", *shape_, store);
}

void CCustomLayer::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CLayer::ReadFromXml(node, store);
  xml::ReadText(node, "id", id);
  if (orlo::P<CSkin> shape; ReadSkin(node, "shape", shape, store)) SetShape(shape);
}

}  // namespace graphics::skin
