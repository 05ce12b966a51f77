#pragma once

#include "graphics/elements/GraphicStateButton.h"
#include "graphics/skin/AnimationSource.h"
#include "graphics/skin/Skin.h"
#include "graphics/skin/StatePainter.h"
#include "graphics/skin/TextSource.h"

#include <wx/bitmap.h>

#include <memory>

namespace graphics::skin {

/// A state button that looks as a skin says: its label feeds the skin's texts, its attachment bitmap the pictures.
class CGraphicSkinButton : public CGraphicStateButton, public virtual ITextSource, public virtual IAnimationSource {
public:
  static constexpr const char* kTypeName = "skin-button";

  CGraphicSkinButton() = default;
  explicit CGraphicSkinButton(const orlo::P<CSkin>& skin);

  /// Shared with others. Null makes it a plain state button.
  void SetSkin(const orlo::P<CSkin>& skin) { skin_ = skin; }
  const orlo::P<CSkin>& GetSkin() const { return skin_; }
  /// A copy, or none for a bitmap that isn't ok.
  void SetAttachmentBitmap(const wxBitmap& bitmap);
  const wxBitmap* GetAttachmentBitmap() const { return attachmentBitmap_.get(); }

  /// Null if the skin has no state for the view mode, the flags or the fixed state.
  virtual orlo::P<CState> GetCurrentState(std::int32_t viewMode) const;
  /// The state that is always shown; empty for the one that view mode and flags ask for.
  virtual void SetFixedState(const wxString& name) { fixedState_ = name; }

  using CGraphicStateButton::GetText;
  /// The label, whatever the key.
  wxString GetText(const wxString& key) override;
  /// The attachment bitmap, whatever the key.
  wxBitmap* GetBitmap(const wxString& key) override;

  /// Upright, whatever its rotation and mirroring.
  void Paint(CPaintContext& context) override;
  /// Shares the skin and copies the attachment bitmap. The fixed state stays behind.
  void Assign(const CGraphicBase& other) override;
  orlo::P<CGraphicElement> Clone() const override;
  wxString GetTypeName() const override { return kTypeName; }
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;

protected:
  /// A state in the frame, with the label and the attachment bitmap. The painter of custom layers may be null.
  void PaintState(const CState& state, CPaintContext& context, TEffectGraphicsContext& target,
                  ICustomLayerPainter* painter);

private:
  orlo::P<CSkin> skin_;
  const orlo::P<CStatePainter> painter_ = orlo::makeObject<CStatePainter>();
  wxString fixedState_;
  std::unique_ptr<wxBitmap> attachmentBitmap_;
};

}  // namespace graphics::skin
