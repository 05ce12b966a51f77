#include "authed/data/Editable.h"

#include "authed/data/RepeatedInfile.h"
#include "foundation/Error.h"
#include "graphics/model/ResourceStore.h"

#include <string>

namespace authed::data {

using namespace graphics;
using vantra::infilexml::CInfile;

namespace {

constexpr const char* kEditorXml = "editor.xml";
constexpr const char* kVantraXml = "vantra.xml";

void WriteBytes(wxXmlNode& node, const wxString& name, const wxString& text, IResourceOutputStore& store) {
  if (text.empty()) return;
  const std::string bytes = text.utf8_string();
  orlo::CMemoryBlock block(0);
  block.assign(bytes.data(), bytes.size());
  store.WriteBuffer(node, name, block);
}

void ReadBytes(const wxXmlNode& node, const wxString& name, wxString& text, IResourceInputStore& store) {
  const orlo::P<orlo::IMemoryBlock> block = store.ReadBuffer(node, name);
  if (block) text = wxString::FromUTF8(reinterpret_cast<const char*>(block->getData()), block->getSize());
}

}  // namespace

void CEditable::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CMovie::WriteToXml(node, store);
  WriteBytes(node, kEditorXml, editorXml, store);
  WriteBytes(node, kVantraXml, vantraXml, store);
}

void CEditable::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CMovie::ReadFromXml(node, store);
  ReadBytes(node, kEditorXml, editorXml, store);
  ReadBytes(node, kVantraXml, vantraXml, store);
}

void CEditable::Assign(const CMovie& other) {
  CMovie::Assign(other);
  const auto* const editable = dynamic_cast<const CEditable*>(&other);
  if (!editable) return;
  vantraXml = editable->vantraXml;
  editorXml = editable->editorXml;
}

orlo::P<CInfile> CEditable::BuildInfile(double frameRate, double length) const {
  constexpr std::size_t kMostBytes = std::size_t{64} << 20;
  std::size_t read = 0;
  const auto makePass = [&] {
    read += vantraXml.length();
    if (read > kMostBytes) throw orlo::CError("A movie may be repeated at most for 64 MB of its text");
    return CreateInfile(frameRate);
  };
  return RepeatInfile(makePass, length);
}

orlo::P<CInfile> CEditable::CreateInfile(double /*frameRate*/) const {
  return vantra::infilexml::FromText(vantraXml.utf8_string());
}

}  // namespace authed::data
