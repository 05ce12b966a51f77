#pragma once

#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"

namespace graphics {

/// A button in its plain form, for pages without skins: a frame with a label, coloured by its state.
class CGraphicStateButton : public CGraphicElement {
public:
  /// 60 by 20 page units.
  CGraphicStateButton() { CGraphicElement::SetSize({60, 20}); }

  const wxString& GetLabel() const { return label_; }
  void SetLabel(const wxString& label) { label_ = label; }
  const wxString& GetHint() const { return hint_; }
  void SetHint(const wxString& hint) { hint_ = hint; }

  /// Bits 2 and 8 of the flags choose the colours.
  void Paint(CPaintContext& context) override;
  void Assign(const CGraphicBase& other) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kStateButton; }
  std::int32_t GetCursorHint() const override { return 6; }
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;

private:
  wxString label_ = "StateButton";
  wxString hint_;
};

}  // namespace graphics
