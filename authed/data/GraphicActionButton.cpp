#include "authed/data/GraphicActionButton.h"

#include "authed/data/LayerContent.h"
#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/model/GraphicDocument.h"
#include "graphics/paint/EffectDC.h"

namespace authed::data {

using namespace graphics;
using animation::IAnimation;
using animation::IAnimationElement;

namespace {

constexpr const char* kAction = "action";
constexpr const char* kElement = "element";

constexpr unsigned kActive = 2;

[[noreturn]] void ThrowNestsTooDeep() {
  throw orlo::CError("Action buttons may lie within action buttons at most 4 deep");
}

/// Painting goes from a button to what lies within, and from there perhaps to buttons again, always on one thread. A
/// skin may show what lies within many times, and so may the skins of the buttons there.
class CPainting {
public:
  CPainting() {
    if (depth >= kMaxActionButtonDepth) ThrowNestsTooDeep();
    if (depth++ == 0) paintsWithin = 0;
  }
  CPainting(const CPainting&) = delete;
  CPainting& operator=(const CPainting&) = delete;
  ~CPainting() { --depth; }

  static void CountPaintWithin() {
    if (depth > 0 && ++paintsWithin > kMaxPaintsWithinButton)
      throw orlo::CError("What lies within an action button may be painted at most 1000 times");
  }

private:
  static thread_local int depth;
  static thread_local int paintsWithin;
};

thread_local int CPainting::depth = 0;
thread_local int CPainting::paintsWithin = 0;

}  // namespace

void CGraphicActionButton::SetElement(const orlo::P<CGraphicElement>& element) {
  int depth = 1;
  for (const auto* inner = orlo::tryCast<CGraphicActionButton>(element); inner;
       inner = orlo::tryCast<CGraphicActionButton>(inner->element_))
    if (inner == this || ++depth > kMaxActionButtonDepth) ThrowNestsTooDeep();
  element_ = element;
  PlaceElement();
}

IAnimationElement* CGraphicActionButton::FindAnimationElement() const {
  return orlo::tryCast<IAnimationElement>(element_);
}

void CGraphicActionButton::StopAnimation() {
  if (IAnimationElement* const inner = FindAnimationElement()) inner->StopAnimation();
}

void CGraphicActionButton::StartAnimation() {
  if (IAnimationElement* const inner = FindAnimationElement()) inner->StartAnimation();
}

bool CGraphicActionButton::IsAnimationPlaying() const {
  const IAnimationElement* const inner = FindAnimationElement();
  return inner && inner->IsAnimationPlaying();
}

bool CGraphicActionButton::HasAnimation() const {
  const IAnimationElement* const inner = FindAnimationElement();
  return inner && inner->HasAnimation();
}

orlo::P<IAnimation> CGraphicActionButton::GetAnimation() const {
  const IAnimationElement* const inner = FindAnimationElement();
  return inner ? inner->GetAnimation() : nullptr;
}

bool CGraphicActionButton::IsElementActive() const {
  return HasFlag(kActive);
}

void CGraphicActionButton::Paint(CPaintContext& context) {
  const orlo::P<skin::CState> state = GetCurrentState(context.viewMode);
  if (!state) return CGraphicSkinButton::Paint(context);
  const CPainting painting;
  CSmoothEffectDC dc(*context.dc);
  const auto target = dc.CreateEffectContext();
  PaintState(*state, context, *target, this);
  if (context.ShowsFrames() && GetFlag1())
    if (const orlo::P<skin::CState> hover = GetSkin()->FindState("hover")) PaintState(*hover, context, *target, this);
  dc.Flush();
}

void CGraphicActionButton::PaintCustom(skin::CCustomLayer& layer, CPaintContext& context,
                                       TEffectGraphicsContext& target, const CDoubleRect& rect,
                                       skin::ITextSource* /*texts*/, skin::IAnimationSource* /*animations*/) {
  if (!element_) return;
  CPainting::CountPaintWithin();
  PaintInLayer(layer, context, target, rect, *element_, *this, [&](CPaintContext& clone) { element_->Paint(clone); });
}

void CGraphicActionButton::SetCenter(CDoublePoint center) {
  CGraphicSkinButton::SetCenter(center);
  PlaceElement();
}

void CGraphicActionButton::SetSize(CDoubleSize size) {
  CGraphicSkinButton::SetSize(size);
  PlaceElement();
}

void CGraphicActionButton::PlaceElement() {
  if (!element_) return;
  element_->SetCenter(GetCenter());
  element_->SetSize(GetSize());
}

wxString CGraphicActionButton::GetText() const {
  const wxString text = element_ ? element_->GetText() + " " : wxString();
  return text + action_->GetDisplayText();
}

void CGraphicActionButton::Assign(const CGraphicBase& other) {
  CGraphicSkinButton::Assign(other);
  const auto* const button = dynamic_cast<const CGraphicActionButton*>(&other);
  if (!button) return;
  action_->CopyFrom(*button->action_);
  SetElement(button->element_);
}

orlo::P<CGraphicElement> CGraphicActionButton::Clone() const {
  const auto clone = orlo::makeObject<CGraphicActionButton>();
  clone->CGraphicSkinButton::Assign(*this);
  clone->action_->CopyFrom(*action_);
  if (element_) clone->SetElement(element_->Clone());
  return clone;
}

void CGraphicActionButton::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicSkinButton::WriteToXml(node, store);
  action_->WriteToXml(xml::AppendChild(node, kAction), store);
  if (!element_) return;
  const auto document = orlo::makeObject<CGraphicDocument>();
  document->Add(element_);
  document->WriteToXml(xml::AppendChild(node, kElement), store);
}

void CGraphicActionButton::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicSkinButton::ReadFromXml(node, store);
  if (const wxXmlNode* const child = xml::FindChild(node, kAction)) action_->ReadFromXml(*child, store);
  if (const wxXmlNode* const child = xml::FindChild(node, kElement)) {
    const auto document = orlo::makeObject<CGraphicDocument>();
    document->ReadFromXml(*child, store);
    SetElement(document->GetCount() > 0 ? document->GetElement(0) : nullptr);
  } else {
    PlaceElement();
  }
}

}  // namespace authed::data
