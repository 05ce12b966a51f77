#pragma once

#include "foundation/Cast.h"
#include "foundation/Pointer.h"
#include "graphics/model/Base64.h"
#include "graphics/model/Base64Resources.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/paint/PaintContext.h"
#include "tests/paint/Canvas.h"
#include "tests/support/XmlText.h"

#include <wx/xml/xml.h>

#include <string>

namespace graphics::test {

/// A picture on which elements paint, one page unit a pixel by default.
class CPage : public CCanvas {
public:
  explicit CPage(int width = 60, int height = 40) : CCanvas(width, height), context(&dc, 0) {
    context.matrix = CMatrix::Identity();
    context.rect = {0, 0, static_cast<double>(width), static_cast<double>(height)};
  }

  CPaintContext context;
};

inline void Place(CGraphicElement& element, CDoubleRect frame) {
  element.SetSize(frame.GetSize());
  element.SetTopLeft(frame.left, frame.top);
}

inline wxString XmlOf(const CGraphicElement& element) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "element");
  const auto store = orlo::makeObject<CBase64Resources>();
  element.WriteToXml(node, *store);
  return ToText(node);
}

inline void ReadXml(CGraphicElement& element, const wxString& text) {
  const auto store = orlo::makeObject<CBase64Resources>();
  element.ReadFromXml(*ParseXml(text)->GetRoot(), *store);
}

/// A node with a text of one word, whose outermost node has these properties.
inline wxString RichTextNode(const std::string& properties) {
  const std::string text = "<richtext><paragraphlayout" + properties +
                           "><paragraph><text>word</text></paragraph></paragraphlayout></richtext>";
  return "<attachment-richtextbuffer>" +
         EncodeBase64({reinterpret_cast<const unsigned char*>(text.data()), text.size()}) +
         "</attachment-richtextbuffer>";
}

/// What comes back when an element is written and read.
template <class Element>
orlo::P<Element> Reloaded(const Element& element) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "element");
  const auto store = orlo::makeObject<CBase64Resources>();
  element.WriteToXml(node, *store);
  const auto copy = orlo::makeObject<Element>();
  copy->ReadFromXml(node, *store);
  return copy;
}

}  // namespace graphics::test
