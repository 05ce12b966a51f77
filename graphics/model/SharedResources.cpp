#include "graphics/model/SharedResources.h"

#include "foundation/Error.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/geometry/XmlValues.h"

namespace graphics {

namespace {

bool IsOtherType(const wxString& known, const wxString& type) {
  return !known.empty() && !known.IsSameAs(type, false);
}

[[noreturn]] void Throw(const wxString& message) {
  throw orlo::CException(wxutil::fromWxString(message));
}

}  // namespace

void CSharedResources::Write(wxXmlNode& node, const wxString& type, const IReusableResource* resource,
                             IResourceOutputStore& store) {
  if (!resource) return;
  const std::int64_t id = resource->GetUniqueId();
  CEntry& entry = entries_[id];
  if (IsOtherType(entry.type, type)) Throw("Error adding unique resource. Type not equal");
  xml::WriteInt64(node, "unique", id);
  if (!type.empty()) xml::WriteText(node, "type", type);
  if (!entry.type.empty()) return;
  entry.type = type;
  resource->WriteToXml(node, store);
}

orlo::P<IReusableResource> CSharedResources::Read(const wxXmlNode& node, const wxString& type,
                                                  const orlo::P<IReusableResource>& resource,
                                                  IResourceInputStore& store) {
  if (!resource) return nullptr;
  std::int64_t id = -1;
  xml::ReadInt64(node, "unique", id);
  if (id <= 0) {
    ReadNode(node, *resource, store);
    return resource;
  }
  CEntry& entry = entries_[id];
  if (IsOtherType(entry.type, type)) Throw("Error get reuseable resource. Type different");
  if (entry.beingRead)
    Throw(wxString::Format("Resource %lld of line %d contains itself", static_cast<long long>(id),
                           entry.node->GetLineNumber()));
  if (entry.resource) {
    Count(entry.count);
    return entry.resource;
  }
  entry = {type, &node, resource, 0, true};
  const std::size_t before = count_;
  ReadNode(node, *resource, store);
  entry.count = count_ - before;
  entry.beingRead = false;
  return resource;
}

void CSharedResources::ReadNode(const wxXmlNode& node, IReusableResource& resource, IResourceInputStore& store) {
  struct CDepth {
    explicit CDepth(int& value) : depth(value) { ++depth; }
    ~CDepth() { --depth; }
    int& depth;
  } const nested(depth_);
  if (depth_ > kMaxResourceDepth)
    Throw(wxString::Format("Elements nest more than %d deep in line %d", kMaxResourceDepth, node.GetLineNumber()));
  Count(1);
  resource.ReadFromXml(node, store);
}

void CSharedResources::Count(std::size_t resources) {
  count_ += resources;
  if (count_ > kMaxResourceCount) Throw(wxString::Format("There are more than %zu elements", kMaxResourceCount));
}

wxString GetStoredType(const wxXmlNode& node) {
  wxString type;
  xml::ReadText(node, "type", type);
  return type;
}

}  // namespace graphics
