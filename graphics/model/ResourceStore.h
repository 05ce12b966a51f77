#pragma once

#include "foundation/Base.h"
#include "foundation/MemoryBlock.h"
#include "foundation/Pointer.h"
#include "graphics/model/ReusableResource.h"

#include <wx/bitmap.h>
#include <wx/string.h>

#include <memory>

class wxFileName;
class wxRichTextBuffer;
class wxXmlNode;

namespace graphics {

/// Stands between an element and the place where the bytes of its pictures and texts lie. A store serves one load or
/// save, on one thread at a time.
class IResourceStore : public virtual orlo::IBase {};

/// Takes resources under a child node of the given name.
class IResourceOutputStore : public virtual IResourceStore {
public:
  virtual void WriteRichText(wxXmlNode& node, const wxString& name, wxRichTextBuffer& text) = 0;
  /// The file is where the bitmap came from; it may be an empty name.
  virtual void WriteBitmap(wxXmlNode& node, const wxString& name, const wxBitmap& bitmap, const wxFileName& file) = 0;
  /// Writes the resource into the node, or only a reference if it has been written before. Null writes nothing. Throws
  /// orlo::CException if it was written under another type.
  virtual void WriteResource(wxXmlNode& node, const wxString& type, const IReusableResource* resource) = 0;
  virtual void WriteBuffer(wxXmlNode& node, const wxString& name, const orlo::IMemoryBlock& buffer) = 0;
  virtual void Finish() = 0;
  virtual bool IsExternal() const = 0;
};

/// Gives resources of the child node of a name. What is missing or damaged is null, never an error.
class IResourceInputStore : public virtual IResourceStore {
public:
  virtual std::unique_ptr<wxRichTextBuffer> ReadRichText(const wxXmlNode& node, const wxString& name) = 0;
  /// Finds out the image type itself. The file name is one that the page gives, and is cleared if it was not used.
  virtual std::unique_ptr<wxBitmap> ReadBitmap(const wxXmlNode& node, const wxString& name, wxFileName& file) = 0;
  virtual std::unique_ptr<wxBitmap> ReadBitmapOfType(const wxXmlNode& node, const wxString& name, wxBitmapType type,
                                                     wxFileName& file) = 0;
  virtual orlo::P<orlo::IMemoryBlock> ReadBuffer(const wxXmlNode& node, const wxString& name) = 0;
  /// The type name that the store gave the resource of this node; empty if none.
  virtual wxString GetResourceType(const wxXmlNode& node) = 0;
  /// Reads the node into the given resource, or gives the object that an earlier node of the same number gave. Throws
  /// orlo::CException if that one has another type, if a resource contains itself, or beyond the limits of
  /// SharedResources.h.
  virtual orlo::P<IReusableResource> ReadResource(const wxXmlNode& node, const wxString& type,
                                                  const orlo::P<IReusableResource>& resource) = 0;
};

}  // namespace graphics
