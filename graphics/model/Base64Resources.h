#pragma once

#include "foundation/Object.h"
#include "graphics/model/Picture.h"
#include "graphics/model/ResourceStore.h"
#include "graphics/model/SharedResources.h"

#include <memory>
#include <span>
#include <vector>

class wxInputStream;

namespace graphics {

/// Keeps resources as base64 text inside the XML: a child of the resource's name with the text in a CDATA section, and
/// for bitmaps the property "extension".
class CBase64Resources : public orlo::CObject, public IResourceOutputStore, public IResourceInputStore {
public:
  /// Bitmaps that come from a file are left in it, and taken from it.
  void SetUseFiles(bool useFiles) { useFiles_ = useFiles; }

  void WriteRichText(wxXmlNode& node, const wxString& name, wxRichTextBuffer& text) override;
  void WriteBitmap(wxXmlNode& node, const wxString& name, const wxBitmap& bitmap, const wxFileName& file) override;
  void WriteResource(wxXmlNode& node, const wxString& type, const IReusableResource* resource) override;
  void WriteBuffer(wxXmlNode& node, const wxString& name, const orlo::IMemoryBlock& buffer) override;
  void Finish() override {}
  bool IsExternal() const override { return false; }

  std::unique_ptr<wxRichTextBuffer> ReadRichText(const wxXmlNode& node, const wxString& name) override;
  std::unique_ptr<wxBitmap> ReadBitmap(const wxXmlNode& node, const wxString& name, wxFileName& file) override;
  std::unique_ptr<wxBitmap> ReadBitmapOfType(const wxXmlNode& node, const wxString& name, wxBitmapType type,
                                             wxFileName& file) override;
  orlo::P<orlo::IMemoryBlock> ReadBuffer(const wxXmlNode& node, const wxString& name) override;
  wxString GetResourceType(const wxXmlNode& node) override { return GetStoredType(node); }
  orlo::P<IReusableResource> ReadResource(const wxXmlNode& node, const wxString& type,
                                          const orlo::P<IReusableResource>& resource) override;

private:
  bool TakesFile(const wxFileName& file) const;

  bool useFiles_ = false;
  CSharedResources shared_;
  CPictureReader pictures_;
};

}  // namespace graphics
