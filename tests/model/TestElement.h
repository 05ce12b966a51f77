#pragma once

#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlParse.h"
#include "graphics/model/ElementFactory.h"
#include "graphics/model/GraphicDocument.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/Toolkit.h"
#include "tests/support/XmlText.h"

#include <wx/image.h>
#include <wx/sstream.h>
#include <wx/xml/xml.h>

#include <memory>

namespace graphics {

/// Starts the toolkit as the module does.
inline void StartForTests() {
  StartToolkit();
  static const bool once = (wxInitAllImageHandlers(), true);
  (void)once;
}

/// An element of any kind, which can hold a nested document as a mirror does and paints a filled frame.
class CTestElement : public CGraphicElement {
public:
  explicit CTestElement(std::int32_t kind = GraphicType::kRectangle) : type(kind) {}
  ~CTestElement() override {
    if (destroyed) ++*destroyed;
  }

  orlo::P<CGraphicElement> Clone() const override {
    auto copy = orlo::makeObject<CTestElement>(type);
    copy->Assign(*this);
    return copy;
  }
  std::int32_t GetType() const override { return type; }
  wxString GetTypeName() const override { return typeName; }
  bool IsContentEmpty() const override { return contentEmpty; }
  void Paint(CPaintContext& context) override {
    ++painted;
    if (document) return document->Paint(context);
    const CDoubleRect frame = context.matrix.MapRect(CDoubleRect::FromCenter(GetCenter(), GetSize()));
    context.dc->SetPen(*wxTRANSPARENT_PEN);
    context.dc->SetBrush(wxBrush(colour));
    context.dc->DrawRectangle(frame.ToRect());
  }

  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override {
    CGraphicElement::WriteToXml(node, store);
    if (document) document->WriteToXml(xml::AppendChild(node, "graphic-document"), store);
  }
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override {
    CGraphicElement::ReadFromXml(node, store);
    if (const wxXmlNode* child = xml::FindChild(node, "graphic-document")) {
      document = orlo::makeObject<CGraphicDocument>();
      document->ReadFromXml(*child, store);
    }
  }

  std::int32_t type;
  wxString typeName;
  bool contentEmpty = false;
  wxColour colour = *wxRED;
  orlo::P<CGraphicDocument> document;
  int painted = 0;
  int* destroyed = nullptr;
};

template <std::int32_t Type>
orlo::P<CGraphicElement> MakeTestElement() {
  return orlo::makeObject<CTestElement>(Type);
}

/// Lets the factory make test elements for a few of the plain kinds. The kinds of text are left out.
inline void RegisterTestKinds() {
  RegisterElementKind(GraphicType::kImage, MakeTestElement<GraphicType::kImage>);
  RegisterElementKind(GraphicType::kCircle, MakeTestElement<GraphicType::kCircle>);
  RegisterElementKind(GraphicType::kRectangle, MakeTestElement<GraphicType::kRectangle>);
  RegisterElementKind(GraphicType::kShape, MakeTestElement<GraphicType::kShape>);
  RegisterElementKind(GraphicType::kMirror, MakeTestElement<GraphicType::kMirror>);
}

inline orlo::P<CTestElement> MakeElement(CDoubleRect frame, std::int32_t type = GraphicType::kRectangle) {
  auto element = orlo::makeObject<CTestElement>(type);
  element->SetCenter(frame.GetCenter());
  element->SetSize(frame.GetSize());
  return element;
}

}  // namespace graphics
