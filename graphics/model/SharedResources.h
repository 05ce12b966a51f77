#pragma once

#include "foundation/Pointer.h"
#include "graphics/model/ReusableResource.h"

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <map>

class wxXmlNode;

namespace graphics {

/// Resources of one file may nest this deep.
constexpr int kMaxResourceDepth = 50;
/// So many resources one file may hold, counting what a reference stands for at every place where it stands: a few
/// references nested in one another can mean more elements than could ever be painted.
constexpr std::size_t kMaxResourceCount = 1'000'000;

/// What stores know of the resources that a file holds once and refers to by number: the property "unique" is the
/// number, "type" the type name that the store was given.
class CSharedResources {
public:
  /// As IResourceOutputStore::WriteResource.
  void Write(wxXmlNode& node, const wxString& type, const IReusableResource* resource, IResourceOutputStore& store);
  /// As IResourceInputStore::ReadResource.
  orlo::P<IReusableResource> Read(const wxXmlNode& node, const wxString& type,
                                  const orlo::P<IReusableResource>& resource, IResourceInputStore& store);

private:
  struct CEntry {
    wxString type;
    const wxXmlNode* node = nullptr;
    orlo::P<IReusableResource> resource;
    std::size_t count = 0;  // the resource and all below it
    bool beingRead = false;
  };

  void Count(std::size_t resources);
  void ReadNode(const wxXmlNode& node, IReusableResource& resource, IResourceInputStore& store);

  std::map<std::int64_t, CEntry> entries_;
  int depth_ = 0;
  std::size_t count_ = 0;
};

/// The property "type" of a node; empty if there is none.
wxString GetStoredType(const wxXmlNode& node);

}  // namespace graphics
