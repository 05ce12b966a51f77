#pragma once

#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"

#include <wx/colour.h>
#include <wx/font.h>

namespace graphics {

/// Plain text in one font and colour, its lines one below the other from the top left corner of the frame.
class CGraphicLabel : public CGraphicElement {
public:
  /// The label's own text, which is not the text of the element.
  const wxString& GetLabel() const { return label_; }
  void SetLabel(const wxString& label) { label_ = label; }
  /// Without a font of its own a label is written in the toolkit's normal one.
  const wxFont& GetFont() const { return font_; }
  void SetFont(const wxFont& font) { font_ = font; }
  const wxColour& GetColour() const { return colour_; }
  void SetColour(const wxColour& colour) { colour_ = colour; }

  void Paint(CPaintContext& context) override;
  bool IsContentEmpty() const override { return label_.empty(); }
  void ClearContent() override { label_.clear(); }
  void Assign(const CGraphicBase& other) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kLabel; }
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;

private:
  wxString label_;
  wxFont font_;
  wxColour colour_{*wxBLACK};
};

}  // namespace graphics
