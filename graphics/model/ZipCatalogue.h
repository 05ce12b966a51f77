#pragma once

#include "foundation/Object.h"
#include "graphics/model/Picture.h"
#include "graphics/model/ResourceStore.h"
#include "graphics/model/SharedResources.h"

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

class wxZipEntry;
class wxZipInputStream;

namespace graphics {

/// Gives resources that lie in an archive beside the XML: the child of the resource's name has the property "name", the
/// entry's name, and for buffers "size", the number of bytes. The archive is walked at the first look-up; of several
/// entries with one name the last counts, and no more than 100,000 entries are known.
class CZipCatalogue : public orlo::CObject, public IResourceInputStore {
public:
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
  wxZipEntry* FindEntry(const wxString& name);
  /// Unpacked, no more bytes than the limit; empty for an unknown name.
  std::vector<unsigned char> ReadEntry(const wxString& name, std::size_t limit);

  wxZipInputStream& zip_;
  bool catalogued_ = false;
  std::vector<std::unique_ptr<wxZipEntry>> entries_;
  std::map<wxString, wxZipEntry*> entriesByName_;
  CSharedResources shared_;
  CPictureReader pictures_;
};

}  // namespace graphics
