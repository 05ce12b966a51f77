// Reads the skins that stand below the root of an XML text, writes them and reads what was written. From then on
// nothing changes any more.

#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlParse.h"
#include "graphics/model/Base64Resources.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/skin/Skin.h"

#include <wx/sstream.h>
#include <wx/xml/xml.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace graphics;
using CSkins = std::vector<orlo::P<skin::CSkin>>;

CSkins readSkins(const wxXmlNode& root) {
  CSkins skins;
  const auto store = orlo::makeObject<CBase64Resources>();
  for (const wxXmlNode* child = root.GetChildren(); child; child = child->GetNext()) {
    if (child->GetType() != wxXML_ELEMENT_NODE || child->GetName() != "skin") continue;
    const wxString type = store->GetResourceType(*child);
    const auto resource = store->ReadResource(*child, type, skin::CreateSkin(type));
    if (orlo::P<skin::CSkin> found = orlo::cast<skin::CSkin>(resource.get())) skins.push_back(found);
  }
  return skins;
}

std::string writeSkins(const CSkins& skins) {
  wxXmlDocument document;
  document.SetRoot(new wxXmlNode(wxXML_ELEMENT_NODE, "page"));
  const auto store = orlo::makeObject<CBase64Resources>();
  xml::CChildAppender children(*document.GetRoot());
  for (const auto& skin : skins) store->WriteResource(children.Append("skin"), skin->GetSkinTypeName(), skin.get());
  wxStringOutputStream stream;
  document.Save(stream, wxXML_NO_INDENTATION);
  return stream.GetString().utf8_string();
}

std::unique_ptr<wxXmlDocument> parse(const std::uint8_t* data, std::size_t size) {
  return xml::Parse({data, size}, {256, 100'000}).document;
}

CSkins readText(const std::string& text) {
  const auto document = parse(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  if (!document) __builtin_trap();
  return readSkins(*document->GetRoot());
}

/// A state that a file renames isn't found again under the name that it is made with.
bool haveTheirStates(const CSkins& skins) {
  return std::all_of(skins.begin(), skins.end(), [](const auto& skin) {
    const auto fresh = skin::CreateSkin(skin->GetSkinTypeName());
    const auto& states = skin->GetStates();
    return std::equal(states.begin(), states.end(), fresh->GetStates().begin(), fresh->GetStates().end(),
                      [](const auto& a, const auto& b) { return a->GetName() == b->GetName(); });
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const CToolkitLock lock;
  const auto document = parse(data, size);
  if (!document) return 0;
  try {
    const CSkins skins = readSkins(*document->GetRoot());
    const std::string text = writeSkins(skins);
    const std::string again = writeSkins(readText(text));
    if (haveTheirStates(skins) && again != text) __builtin_trap();
    if (writeSkins(readText(again)) != again) __builtin_trap();
  } catch (const orlo::CException&) {
    // One number for skins of two kinds.
  }
  return 0;
}
