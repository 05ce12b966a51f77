#include "graphics/skin/State.h"

#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlParse.h"
#include "graphics/geometry/XmlValues.h"

#include <span>
#include <string>

namespace graphics::skin {

namespace {

bool CanNameElement(const wxString& name) {
  std::string text = "<";
  text += name.utf8_string();
  text += "/>";
  const xml::CParsed parsed = xml::Parse({reinterpret_cast<const unsigned char*>(text.data()), text.size()}, {1, 1});
  return parsed.document && parsed.document->GetRoot()->GetName() == name;
}

}  // namespace

void CState::WriteToXml(wxXmlNode& node, IResourceOutputStore& /*store*/) const {
  xml::WriteText(node, "name", name_);
  xml::AppendChild(node, "layers");
}

void CState::ReadFromXml(const wxXmlNode& node, IResourceInputStore& /*store*/) {
  if (wxString name; xml::ReadText(node, "name", name) && CanNameElement(name)) name_ = name;
}

CDoubleSize CState::GetPreferredSize(TEffectGraphicsContext& /*context*/, ITextSource* /*texts*/,
                                     IAnimationSource* /*animations*/) const {
  return {};
}

CDoubleSize CState::GetPreferredSizeForWidth(TEffectGraphicsContext& /*context*/, ITextSource* /*texts*/,
                                             IAnimationSource* /*animations*/, std::int32_t /*width*/) const {
  return {};
}

}  // namespace graphics::skin
