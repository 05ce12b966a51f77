#include "graphics/skin/GraphicSkinButton.h"

#include "graphics/elements/CloneOf.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/model/ResourceStore.h"
#include "graphics/paint/EffectDC.h"

#include <wx/filename.h>

namespace graphics::skin {

namespace {

constexpr const char* kAttachment = "attachment-bitmap";

}  // namespace

CGraphicSkinButton::CGraphicSkinButton(const orlo::P<CSkin>& skin) : skin_(skin) {
  SetLabel("SkinButton");
  CGraphicStateButton::SetSize({200, 40});
  CGraphicStateButton::SetTopLeft(0, 0);
}

void CGraphicSkinButton::SetAttachmentBitmap(const wxBitmap& bitmap) {
  attachmentBitmap_ = bitmap.IsOk() ? std::make_unique<wxBitmap>(bitmap) : nullptr;
}

orlo::P<CState> CGraphicSkinButton::GetCurrentState(std::int32_t viewMode) const {
  constexpr std::int32_t kPreview = 6;
  constexpr unsigned kTouched = 2;
  constexpr unsigned kPressed = 8;
  if (!skin_) return nullptr;
  if (!fixedState_.empty()) return skin_->FindState(fixedState_);
  if (viewMode != kPreview || !HasFlag(kTouched)) return skin_->FindState("normal");
  return skin_->FindState(HasFlag(kPressed) ? "down" : "hover");
}

wxString CGraphicSkinButton::GetText(const wxString& /*key*/) {
  return GetLabel();
}

wxBitmap* CGraphicSkinButton::GetBitmap(const wxString& /*key*/) {
  return attachmentBitmap_.get();
}

void CGraphicSkinButton::Paint(CPaintContext& context) {
  const orlo::P<CState> state = GetCurrentState(context.viewMode);
  if (!state) return CGraphicStateButton::Paint(context);
  CSmoothEffectDC dc(*context.dc);
  PaintState(*state, context, *dc.CreateEffectContext(), nullptr);
  dc.Flush();
}

void CGraphicSkinButton::PaintState(const CState& state, CPaintContext& context, TEffectGraphicsContext& target,
                                    ICustomLayerPainter* painter) {
  painter_->Paint(state, context, target, FrameOf(*this), this, this, painter);
}

void CGraphicSkinButton::Assign(const CGraphicBase& other) {
  CGraphicStateButton::Assign(other);
  const auto* const button = dynamic_cast<const CGraphicSkinButton*>(&other);
  if (!button) return;
  skin_ = button->skin_;
  SetAttachmentBitmap(button->attachmentBitmap_ ? *button->attachmentBitmap_ : wxNullBitmap);
}

orlo::P<CGraphicElement> CGraphicSkinButton::Clone() const {
  return CloneOf(*this);
}

void CGraphicSkinButton::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicStateButton::WriteToXml(node, store);
  if (skin_) WriteSkin(node, "skin", *skin_, store);
  if (attachmentBitmap_) store.WriteBitmap(node, kAttachment, *attachmentBitmap_, wxFileName());
}

void CGraphicSkinButton::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicStateButton::ReadFromXml(node, store);
  ReadSkin(node, "skin", skin_, store);
  wxFileName noFile;
  attachmentBitmap_ = store.ReadBitmap(node, kAttachment, noFile);
}

}  // namespace graphics::skin
