#include "graphics/elements/GraphicMirror.h"

#include "foundation/Error.h"
#include "graphics/art/SkinManager.h"
#include "graphics/elements/CloneOf.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/elements/Reflection.h"
#include "graphics/geometry/RectPoints.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PixelRange.h"

namespace graphics {

namespace {

/// Painting goes from mirror to document to mirror again, always on one thread.
class CMirrorDepth {
public:
  CMirrorDepth() {
    if (depth >= kMaxMirrorDepth) throw orlo::CError("Mirrors may show mirrors at most 8 deep");
    ++depth;
  }
  CMirrorDepth(const CMirrorDepth&) = delete;
  CMirrorDepth& operator=(const CMirrorDepth&) = delete;
  ~CMirrorDepth() { --depth; }

private:
  static thread_local int depth;
};

thread_local int CMirrorDepth::depth = 0;

}  // namespace

void CGraphicMirror::Paint(CPaintContext& context) {
  const CDoubleRect frame = context.matrix.MapPoints(CRectPoints::FromRect(FrameOf(*this))).BoundingRect();
  if (document_) PaintReflection(context, frame);
  if (!context.ShowsFrames()) return;
  context.dc->SetBrush(*wxTRANSPARENT_BRUSH);
  context.dc->SetPen(wxPen(CSkinManager::GetInstance().GetFrameColour(0), 1, wxPENSTYLE_DOT));
  context.dc->DrawRectangle(ToPixelRect(frame));
}

void CGraphicMirror::PaintReflection(CPaintContext& context, const CDoubleRect& frame) const {
  const CMirrorDepth depth;
  const wxRect place = ToPixelRect(frame);
  // Only what can be seen is drawn, whatever the size of the mirror.
  const wxRect seen = place.Intersect(wxRect(context.dc->GetSize()));
  if (seen.IsEmpty()) return;
  const int firstColumn = seen.x - place.x;
  const int firstRow = seen.y - place.y;
  const int sourceRow = place.height - firstRow - seen.height;

  wxBitmap bitmap = MakeAlphaBitmap(seen.width, seen.height);
  {
    CBitmapEffectDC dc(bitmap);
    CPaintContext clone(context, &dc, 0);
    clone.effectContext = nullptr;
    clone.matrix =
        context.matrix * CMatrix::Translation(-frame.left - firstColumn, -frame.top + frame.height - sourceRow);
    document_->Paint(clone);
    dc.Flush();
  }
  const CBitmapSurface surface(bitmap);
  FlipRows(surface.Pixels());
  FadeRows(surface.Pixels(), firstRow, place.height);
  surface.MarkDirty();
  context.dc->DrawBitmap(bitmap, seen.GetTopLeft(), false);
}

void CGraphicMirror::Assign(const CGraphicBase& other) {
  CGraphicElement::Assign(other);
  if (const auto* const mirror = dynamic_cast<const CGraphicMirror*>(&other)) document_ = mirror->document_;
}

orlo::P<CGraphicElement> CGraphicMirror::Clone() const {
  return CloneOf(*this);
}

void CGraphicMirror::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicElement::WriteToXml(node, store);
  if (document_) document_->WriteToXml(xml::AppendChild(node, "graphic-document"), store);
}

void CGraphicMirror::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicElement::ReadFromXml(node, store);
  const wxXmlNode* const child = xml::FindChild(node, "graphic-document");
  if (!child) return;
  document_ = orlo::makeObject<CGraphicDocument>();
  document_->ReadFromXml(*child, store);
}

}  // namespace graphics
