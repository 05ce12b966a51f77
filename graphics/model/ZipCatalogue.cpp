#include "graphics/model/ZipCatalogue.h"

#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/Picture.h"
#include "graphics/model/RichTextXml.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/richtext/richtextbuffer.h>
#include <wx/zipstrm.h>

#include <algorithm>
#include <utility>

namespace graphics {

namespace {

constexpr std::size_t kMaxEntries = 100'000;

wxString ReadEntryName(const wxXmlNode& node, const wxString& name) {
  wxString entryName;
  if (const wxXmlNode* child = xml::FindChild(node, name)) xml::ReadText(*child, "name", entryName);
  return entryName;
}

}  // namespace

CZipCatalogue::CZipCatalogue(wxZipInputStream& zip) : zip_(zip) {}

CZipCatalogue::~CZipCatalogue() = default;

std::unique_ptr<wxRichTextBuffer> CZipCatalogue::ReadRichText(const wxXmlNode& node, const wxString& name) {
  const auto bytes = ReadEntry(ReadEntryName(node, name), kMaxResourceBytes);
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
  const auto bytes = ReadEntry(ReadEntryName(node, name), kMaxResourceBytes);
  file.Clear();
  return pictures_.Read(bytes, type);
}

orlo::P<orlo::IMemoryBlock> CZipCatalogue::ReadBuffer(const wxXmlNode& node, const wxString& name) {
  std::int64_t size = 0;
  if (const wxXmlNode* child = xml::FindChild(node, name)) xml::ReadInt64(*child, "size", size);
  if (size < 1) return nullptr;
  const std::size_t limit = std::min(static_cast<std::size_t>(size), kMaxResourceBytes);
  const auto bytes = ReadEntry(ReadEntryName(node, name), limit);
  if (bytes.empty()) return nullptr;
  auto block = orlo::makeObject<orlo::CMemoryBlock>(bytes.size());
  block->assign(bytes.data(), bytes.size());
  return block;
}

orlo::P<IReusableResource> CZipCatalogue::ReadResource(const wxXmlNode& node, const wxString& type,
                                                       const orlo::P<IReusableResource>& resource) {
  return shared_.Read(node, type, resource, *this);
}

void CZipCatalogue::Catalogue() {
  if (catalogued_) return;
  catalogued_ = true;
  while (entries_.size() < kMaxEntries) {
    std::unique_ptr<wxZipEntry> entry(zip_.GetNextEntry());
    if (!entry) break;
    entriesByName_[entry->GetInternalName()] = entry.get();
    entries_.push_back(std::move(entry));
  }
}

wxZipEntry* CZipCatalogue::FindEntry(const wxString& name) {
  Catalogue();
  const auto entry = entriesByName_.find(wxZipEntry::GetInternalName(name));
  return entry == entriesByName_.end() ? nullptr : entry->second;
}

std::vector<unsigned char> CZipCatalogue::ReadEntry(const wxString& name, std::size_t limit) {
  const wxLogNull quiet;
  wxZipEntry* entry = FindEntry(name);
  if (!entry || !zip_.OpenEntry(*entry)) return {};
  return ReadBytes(zip_, limit);
}

}  // namespace graphics
