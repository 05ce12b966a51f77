#include "graphics/elements/GraphicText.h"

#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/art/CentredHint.h"
#include "graphics/art/SkinManager.h"
#include "graphics/elements/CloneOf.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/elements/ElementTransform.h"
#include "graphics/elements/FrameOutline.h"
#include "graphics/elements/RichTextPainting.h"
#include "graphics/elements/TextPlace.h"
#include "graphics/model/PaintToDC.h"
#include "graphics/model/ResourceStore.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PixelRange.h"

#include <wx/richtext/richtextbuffer.h>

namespace graphics {

namespace {

constexpr std::uint32_t kFlags = 1U << 4 | 1U << 5;
constexpr const char* kAttachment = "attachment-richtextbuffer";

}  // namespace

CGraphicText::CGraphicText() {
  CGraphicElement::SetFlags(GetFlags() | kFlags);
}

CGraphicText::~CGraphicText() = default;

void CGraphicText::SetBuffer(const wxRichTextBuffer* source) {
  buffer_ = CSkinManager::GetInstance().CreateTextBuffer(source);
  MarkDirty();
}

void CGraphicText::SetSize(CDoubleSize size) {
  CGraphicElement::SetSize(size);
  MarkDirty();
}

void CGraphicText::MarkDirty() {
  if (buffer_) buffer_->Invalidate(wxRICHTEXT_ALL);
}

bool CGraphicText::NeedsLayout() const {
  return buffer_->IsDirty();
}

void CGraphicText::Paint(CPaintContext& context) {
  const CDoubleRect box = BoxOf(*this, context);
  if (buffer_) PaintText(context, box);
  DrawFrame(context);
  if (overflow_) {
    CPaintToDC mark(context.dc, CMatrix::Identity(), this, box, box);
    mark.SetPen(wxPen(*wxRED, 2, wxPENSTYLE_SOLID));
    mark.DrawLine(box.left, box.top + box.height, box.left + box.width, box.top + box.height);
  }
  DrawHint(context, "graphics.Text.ClickToEdit");
}

void CGraphicText::PaintText(CPaintContext& context, const CDoubleRect& box) {
  CSmoothEffectDC dc(*context.dc);
  dc.SetFontCaching(true);
  dc.SetScalableText(true);
  dc.SetGreyscale(!IsColoured());
  const CDoubleSize scale = context.GetDeviceScale();
  const wxRect rect = ToPixelRect({0, 0, GetSize().width * scale.width, GetSize().height * scale.height});

  if (NeedsLayout() || rect != layoutRect_) LayOut(dc, rect, scale);

  wxGraphicsMatrix place = TextPlace(*dc.CreateEffectContext(), box.GetCenter(), context, *this);
  if (const double angle = PaintedRotationOf(*this); angle != 0) place.Rotate(angle);
  place.Translate(-rect.width / 2.0, -rect.height / 2.0);
  picture_.Draw(dc, *buffer_, rect, place);
}

void CGraphicText::LayOut(CEffectDC& dc, const wxRect& rect, CDoubleSize deviceScale) {
  layoutRect_ = rect;
  picture_.Forget();
  const wxSize size = LayOutRichText(*buffer_, dc, rect);
  overflow_ = size.y / deviceScale.height > GetSize().height;
}

void CGraphicText::DrawFrame(CPaintContext& context) const {
  constexpr unsigned kAlwaysFramed = 2;
  context.dc->SetBrush(*wxTRANSPARENT_BRUSH);
  if (!context.ShowsFrames()) return;
  const bool always = HasFlag(kAlwaysFramed);
  if (always || IsContentEmpty())
    DrawFrameOutline(context, *this, CSkinManager::GetInstance().GetFrameColour(always ? 1 : 0));
}

void CGraphicText::DrawHint(CPaintContext& context, const char* key) const {
  if (!IsContentEmpty()) return;
  const wxString hint = wxutil::toWxString(orlo::localize(key, "Double click to edit!"));
  DrawCentredHint(*context.dc, hint, OutlineOf(*this, context).BoundingRect(), false);
}

wxString CGraphicText::GetText() const {
  constexpr unsigned kHintsAllowed = 5;
  if (GetPlainText().empty() && HasFlag(kHintsAllowed))
    return wxutil::toWxString(orlo::localize("graphics.CGraphicText.ClickToEditText", "Double click to edit text"));
  return GetPlainText();
}

void CGraphicText::ClearContent() {
  if (!buffer_) return;
  buffer_.reset();
  overflow_ = false;
  SetText({});
}

void CGraphicText::Assign(const CGraphicBase& other) {
  CGraphicElement::Assign(other);
  const auto* const text = dynamic_cast<const CGraphicText*>(&other);
  if (text && text->buffer_) SetBuffer(text->buffer_.get());
}

orlo::P<CGraphicElement> CGraphicText::Clone() const {
  return CloneOf(*this);
}

void CGraphicText::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicElement::WriteToXml(node, store);
  if (buffer_) store.WriteRichText(node, kAttachment, *buffer_);
}

void CGraphicText::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicElement::ReadFromXml(node, store);
  buffer_ = store.ReadRichText(node, kAttachment);
  overflow_ = false;
  if (!buffer_) return;
  CSkinManager::GetInstance().GiveDefaultStyle(*buffer_);
  MarkDirty();
}

}  // namespace graphics
