#include "graphics/model/RichTextXml.h"

#include "graphics/geometry/XmlParse.h"
#include "graphics/model/RichTextCheck.h"

#include <wx/log.h>
#include <wx/richtext/richtextbuffer.h>
#include <wx/richtext/richtextxml.h>

namespace graphics {

namespace {

constexpr xml::CParseLimits kLimits{.depth = 256, .elements = 1'000'000};

wxRichTextXMLHandler MakeHandler() {
  return wxRichTextXMLHandler("xml", "XML", wxRICHTEXT_TYPE_XML);
}

}  // namespace

bool SaveRichText(wxRichTextBuffer& text, wxOutputStream& stream) {
  wxRichTextXMLHandler handler = MakeHandler();
  return handler.SaveFile(&text, stream);
}

std::unique_ptr<wxRichTextBuffer> LoadRichText(std::span<const unsigned char> bytes) {
  const xml::CParsed parsed = xml::Parse(bytes, kLimits);
  if (!parsed.document || parsed.document->GetRoot()->GetName() != "richtext") return nullptr;
  if (!PrepareRichText(*parsed.document->GetRoot())) return nullptr;
  const wxLogNull quiet;
  auto text = std::make_unique<wxRichTextBuffer>();
  // A new one has margins, which nobody asked for.
  text->SetBasicStyle({});
  wxRichTextXMLHandler handler = MakeHandler();
  for (wxXmlNode* child = parsed.document->GetRoot()->GetChildren(); child; child = child->GetNext())
    if (child->GetType() == wxXML_ELEMENT_NODE && child->GetName() != "richtext-version")
      handler.ImportXML(text.get(), text.get(), child);
  text->UpdateRanges();
  // Without a display nobody can be asked for the colour of text that has none.
  wxRichTextAttr style = text->GetBasicStyle();
  if (!style.HasTextColour()) style.SetTextColour(*wxBLACK);
  text->SetBasicStyle(style);
  text->Invalidate(wxRICHTEXT_ALL);
  return text;
}

}  // namespace graphics
