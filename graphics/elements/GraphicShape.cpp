#include "graphics/elements/GraphicShape.h"

#include "foundation/Cast.h"
#include "foundation/wxutil/WXError.h"
#include "graphics/elements/CloneOf.h"
#include "graphics/elements/FreeFormManager.h"
#include "graphics/elements/ShapePainter.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlStyles.h"
#include "graphics/geometry/XmlValues.h"

namespace graphics {

namespace {

orlo::P<CFreeForm> ReadFreeForm(const wxXmlNode& node, IResourceInputStore& store) {
  wxString name;
  xml::ReadText(node, "name", name);
  auto document = orlo::makeObject<CGraphicDocument>();
  if (const wxXmlNode* const child = xml::FindChild(node, "graphic-document")) document->ReadFromXml(*child, store);
  for (std::size_t i = 0; i < document->GetCount(); ++i) {
    const auto shape = orlo::tryCast<CGraphicShape>(document->GetElement(i));
    if (shape && shape->GetFreeForm()) throw wxutil::CWXError("A free form may not contain free forms");
  }
  // A form moves its elements, which the page and other forms may have in places of their own.
  return MakeFreeForm(name, CopyOutline(*document));
}

void WriteFreeForm(wxXmlNode& node, const CFreeForm& form, IResourceOutputStore& store) {
  xml::WriteText(node, "name", form.GetName());
  form.GetDocument()->WriteToXml(xml::AppendChild(node, "graphic-document"), store);
}

}  // namespace

void CGraphicShape::Paint(CPaintContext& context) {
  CShapePainter(*this, context).Paint();
}

wxString CGraphicShape::GetDisplayName() const {
  if (const wxString name = GetName(); !name.empty()) return name;
  if (shapeType_ == ShapeType::kFreeForm && freeForm_) return freeForm_->GetDisplayName();
  const wxString name = GetShapeTypeName(shapeType_);
  return name.empty() ? CGraphicElement::GetDisplayName() : name;
}

void CGraphicShape::Assign(const CGraphicBase& other) {
  CGraphicElement::Assign(other);
  const auto* const shape = dynamic_cast<const CGraphicShape*>(&other);
  if (!shape || shape == this) return;
  pen_ = shape->pen_;
  brush_ = shape->brush_;
  gradient_ = shape->gradient_;
  shapeType_ = shape->shapeType_;
  lineWidth_ = shape->lineWidth_;
  cornerRadius_ = shape->cornerRadius_;
  freeForm_ = shape->freeForm_ ? shape->freeForm_->Clone() : nullptr;
}

orlo::P<CGraphicElement> CGraphicShape::Clone() const {
  return CloneOf(*this);
}

void CGraphicShape::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicElement::WriteToXml(node, store);
  xml::WriteGradient(node, "gradient", gradient_);
  xml::WriteText(node, "shape", ShapeTypeToXml(shapeType_));
  xml::WriteBrush(node, "brush", brush_);
  xml::WritePen(node, "pen", pen_);
  xml::WriteDouble(node, "corner-radius", cornerRadius_);
  if (freeForm_) WriteFreeForm(xml::AppendChild(node, "free-form"), *freeForm_, store);
}

void CGraphicShape::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicElement::ReadFromXml(node, store);
  xml::ReadGradient(node, "gradient", gradient_);
  if (wxString type; xml::ReadText(node, "shape", type)) shapeType_ = ShapeTypeFromXml(type);
  xml::ReadBrush(node, "brush", brush_);
  xml::ReadPen(node, "pen", pen_);
  xml::ReadDouble(node, "corner-radius", cornerRadius_);
  if (const wxXmlNode* const child = xml::FindChild(node, "free-form")) freeForm_ = ReadFreeForm(*child, store);
}

}  // namespace graphics
