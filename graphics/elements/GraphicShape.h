#pragma once

#include "graphics/elements/FreeForm.h"
#include "graphics/elements/ShapeType.h"
#include "graphics/geometry/Gradient.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"

#include <wx/brush.h>
#include <wx/pen.h>

namespace graphics {

/// A filled outline that is as large as its frame, and turned and mirrored with it: a rectangle, with rounded corners
/// or without, an ellipse, or a free form. A new one is a rectangle with a black outline, not filled.
class CGraphicShape : public CGraphicElement {
public:
  const wxPen& GetPen() const { return pen_; }
  void SetPen(const wxPen& pen) { pen_ = pen; }
  const wxBrush& GetBrush() const { return brush_; }
  void SetBrush(const wxBrush& brush) { brush_ = brush; }
  /// From the left to the right edge; takes the place of the brush if it is ok.
  const CGradient& GetGradient() const { return gradient_; }
  void SetGradient(const CGradient& gradient) { gradient_ = gradient; }
  /// One of the numbers of ShapeType.
  std::int32_t GetShapeType() const { return shapeType_; }
  void SetShapeType(std::int32_t type) { shapeType_ = type; }
  /// Of the outline, in millimetres at the natural resolution of the device; 0 for the pen's own width. Not stored in
  /// files.
  double GetLineWidth() const { return lineWidth_; }
  void SetLineWidth(double width) { lineWidth_ = width; }
  /// Of a rounded rectangle, in page units. Painted at most so large that the corners meet.
  double GetCornerRadius() const { return cornerRadius_; }
  void SetCornerRadius(double radius) { cornerRadius_ = radius; }
  /// The outline of a free form; may be null, which paints nothing.
  const orlo::P<CFreeForm>& GetFreeForm() const { return freeForm_; }
  void SetFreeForm(const orlo::P<CFreeForm>& form) { freeForm_ = form; }

  void Paint(CPaintContext& context) override;
  /// The name, or if there is none that of the shape or free form.
  wxString GetDisplayName() const override;
  /// The free form is cloned.
  void Assign(const CGraphicBase& other) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kShape; }
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  /// Throws wxutil::CWXError for a text that names no shape, for a free form with too many points and for one with
  /// free forms in it.
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;

private:
  wxPen pen_{*wxBLACK_PEN};
  wxBrush brush_{*wxTRANSPARENT_BRUSH};
  CGradient gradient_;
  std::int32_t shapeType_ = ShapeType::kRectangle;
  double lineWidth_ = 0.0;
  double cornerRadius_ = 5.0;
  orlo::P<CFreeForm> freeForm_;
};

}  // namespace graphics
