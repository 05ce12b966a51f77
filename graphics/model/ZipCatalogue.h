#pragma once

#include "foundation/Object.h"
#include "graphics/model/Picture.h"
#include "graphics/model/ResourceStore.h"
#include "graphics/model/SharedResources.h"
#include "graphics/model/ZipEntry.h"

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

class wxInputStream;
class wxZipInputStream;

namespace graphics {

/// Gives resources that lie in an archive beside the XML: the child of the resource's name has the property "name", the
/// name of a file in the archive, and for buffers "size", the number of bytes. Names are looked up and nothing else: no
/// file is ever made of one. The directory is read at the first look-up; of several files with one name the last
/// counts. What is damaged counts as missing.
class CZipCatalogue : public orlo::CObject, public IResourceInputStore {
public:
  /// All that a store unpacks, packed bytes counting where they are more.
  static constexpr std::uint64_t kMaxUnpacked = std::uint64_t{1} << 30;
  /// All of it that is rich text, which takes many times its size once it is read.
  static constexpr std::uint64_t kMaxUnpackedText = std::uint64_t{32} << 20;

  /// The stream is not owned and must outlive the store.
  explicit CZipCatalogue(wxZipInputStream& zip);
  ~CZipCatalogue() override;

  std::unique_ptr<wxRichTextBuffer> ReadRichText(const wxXmlNode& node, const wxString& name) override;
  std::unique_ptr<wxBitmap> ReadBitmap(const wxXmlNode& node, const wxString& name, wxFileName& file) override;
  std::unique_ptr<wxBitmap> ReadBitmapOfType(const wxXmlNode& node, const wxString& name, wxBitmapType type,
                                             wxFileName& file) override;
  orlo::P<orlo::IMemoryBlock> ReadBuffer(const wxXmlNode& node, const wxString& name) override;
  wxString GetResourceType(const wxXmlNode& node) override { return GetStoredType(node); }
  orlo::P<IReusableResource> ReadResource(const wxXmlNode& node, const wxString& type,
                                          const orlo::P<IReusableResource>& resource) override;

private:
  void Catalogue();
  const CZipEntry* FindEntry(const wxString& name);
  /// The bytes of the file that the child names; empty if it is missing, damaged, or of more bytes than the limit.
  std::vector<unsigned char> ReadEntry(const wxXmlNode& node, const wxString& name, std::uint64_t limit);

  wxInputStream& archive_;
  bool catalogued_ = false;
  std::vector<CZipEntry> entries_;
  std::map<wxString, const CZipEntry*> entriesByName_;
  std::uint64_t bytesLeft_ = kMaxUnpacked;
  std::uint64_t textBytesLeft_ = kMaxUnpackedText;
  CSharedResources shared_;
  CPictureReader pictures_;
};

}  // namespace graphics
