#include "graphics/model/ZipCatalogue.h"

#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/Picture.h"
#include "graphics/model/RichTextXml.h"
#include "graphics/model/ZipDirectory.h"
#include "graphics/model/ZipName.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/richtext/richtextbuffer.h>
#include <wx/zipstrm.h>

#include <algorithm>

namespace graphics {

namespace {

wxString ReadEntryName(const wxXmlNode& node, const wxString& name) {
  wxString entryName;
  if (const wxXmlNode* child = xml::FindChild(node, name)) xml::ReadText(*child, "name", entryName);
  return entryName;
}

}  // namespace

// Only the stream below is read. The toolkit's own reader takes 13 seconds for a directory of four megabytes of
// slashes, as many entries as there are, and encrypted ones for pictures; names of an old code page come out empty, and
// of an archive with 64-bit fields behind other bytes nothing is found.
CZipCatalogue::CZipCatalogue(wxZipInputStream& zip) : archive_(*zip.GetFilterInputStream()) {}

CZipCatalogue::~CZipCatalogue() = default;

std::unique_ptr<wxRichTextBuffer> CZipCatalogue::ReadRichText(const wxXmlNode& node, const wxString& name) {
  const auto bytes = ReadEntry(node, name, textBytesLeft_);
  textBytesLeft_ -= bytes.size();
  return bytes.empty() ? nullptr : LoadRichText(bytes);
}

std::unique_ptr<wxBitmap> CZipCatalogue::ReadBitmap(const wxXmlNode& node, const wxString& name, wxFileName& file) {
  if (!xml::FindChild(node, name)) return nullptr;
  file.Clear();
  const wxBitmapType type = PictureTypeOf(wxFileName(ReadEntryName(node, name)).GetExt());
  return type == wxBITMAP_TYPE_INVALID ? nullptr : ReadBitmapOfType(node, name, type, file);
}

std::unique_ptr<wxBitmap> CZipCatalogue::ReadBitmapOfType(const wxXmlNode& node, const wxString& name,
                                                          wxBitmapType type, wxFileName& file) {
  file.Clear();
  return pictures_.Read(ReadEntry(node, name, kMaxResourceBytes), type);
}

orlo::P<orlo::IMemoryBlock> CZipCatalogue::ReadBuffer(const wxXmlNode& node, const wxString& name) {
  std::int64_t size = 0;
  if (const wxXmlNode* child = xml::FindChild(node, name)) xml::ReadInt64(*child, "size", size);
  if (size < 1) return nullptr;
  const auto bytes = ReadEntry(node, name, kMaxResourceBytes);
  if (bytes.empty()) return nullptr;
  const std::size_t taken = std::min<std::uint64_t>(static_cast<std::uint64_t>(size), bytes.size());
  auto block = orlo::makeObject<orlo::CMemoryBlock>(taken);
  block->assign(bytes.data(), taken);
  return block;
}

orlo::P<IReusableResource> CZipCatalogue::ReadResource(const wxXmlNode& node, const wxString& type,
                                                       const orlo::P<IReusableResource>& resource) {
  return shared_.Read(node, type, resource, *this);
}

void CZipCatalogue::Catalogue() {
  if (catalogued_) return;
  catalogued_ = true;
  const wxLogNull quiet;
  entries_ = ReadZipDirectory(archive_);
  for (const CZipEntry& entry : entries_) entriesByName_[InternalZipName(entry.name)] = &entry;
}

const CZipEntry* CZipCatalogue::FindEntry(const wxString& name) {
  Catalogue();
  const auto entry = entriesByName_.find(InternalZipName(name));
  return entry == entriesByName_.end() ? nullptr : entry->second;
}

std::vector<unsigned char> CZipCatalogue::ReadEntry(const wxXmlNode& node, const wxString& name, std::uint64_t limit) {
  const CZipEntry* const entry = FindEntry(ReadEntryName(node, name));
  if (!entry || entry->size > limit) return {};
  const std::uint64_t cost = std::max(entry->size, entry->packedSize);
  if (cost > bytesLeft_) return {};
  bytesLeft_ -= cost;
  const wxLogNull quiet;
  return UnpackZipEntry(archive_, *entry);
}

}  // namespace graphics
