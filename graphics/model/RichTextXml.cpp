#include "graphics/model/RichTextXml.h"

#include "graphics/geometry/XmlScan.h"

#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/richtext/richtextbuffer.h>
#include <wx/richtext/richtextxml.h>

namespace graphics {

namespace {

constexpr xml::CScanLimits kLimits{.depth = 256, .elements = 1'000'000};

wxRichTextXMLHandler MakeHandler() {
  return wxRichTextXMLHandler("xml", "XML", wxRICHTEXT_TYPE_XML);
}

}  // namespace

bool SaveRichText(wxRichTextBuffer& text, wxOutputStream& stream) {
  wxRichTextXMLHandler handler = MakeHandler();
  return handler.SaveFile(&text, stream);
}

std::unique_ptr<wxRichTextBuffer> LoadRichText(std::span<const unsigned char> bytes) {
  if (xml::Scan(bytes, kLimits).verdict != xml::EScan::good) return nullptr;
  const wxLogNull quiet;
  auto text = std::make_unique<wxRichTextBuffer>();
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  wxRichTextXMLHandler handler = MakeHandler();
  if (!handler.LoadFile(text.get(), stream)) return nullptr;
  // Without a display nobody can be asked for the colour of text that has none.
  wxRichTextAttr style = text->GetBasicStyle();
  if (!style.HasTextColour()) style.SetTextColour(*wxBLACK);
  text->SetBasicStyle(style);
  text->Invalidate(wxRICHTEXT_ALL);
  return text;
}

}  // namespace graphics
