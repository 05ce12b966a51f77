#include "graphics/animation/FrameNodes.h"

#include "graphics/animation/FrameList.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"

#include <wx/filename.h>

#include <algorithm>
#include <optional>

namespace graphics::animation {

namespace {

constexpr char kPrefix[] = "frame";

/// The number of a name that FrameName has made.
std::optional<std::int32_t> FrameNumber(const wxString& name) {
  constexpr std::size_t kPrefixLength = sizeof(kPrefix) - 1;
  constexpr std::size_t kMostDigits = 6;
  if (name.length() <= kPrefixLength || name.length() > kPrefixLength + kMostDigits) return {};
  long number = 0;
  if (!name.Mid(kPrefixLength).ToCLong(&number) || number < 0) return {};
  const auto index = static_cast<std::int32_t>(number);
  if (!xml::IsSameName(name, FrameName(index))) return {};
  return index;
}

}  // namespace

wxString FrameName(std::int32_t index) {
  return wxString(kPrefix) << index;
}

CFrameNodes::CFrameNodes(const wxXmlNode& node) {
  xml::ReadInt(node, "count", count_);
  count_ = std::max(count_, 0);
  CheckFrameCount(static_cast<std::uint64_t>(count_));
  for (const wxXmlNode* child = node.GetChildren(); child; child = child->GetNext()) {
    if (child->GetType() != wxXML_ELEMENT_NODE) continue;
    if (const auto number = FrameNumber(child->GetName())) nodes_.emplace(*number, child);
  }
}

const wxXmlNode* CFrameNodes::Find(std::int32_t index) const {
  const auto entry = nodes_.find(index);
  return entry == nodes_.end() ? nullptr : entry->second;
}

wxBitmap ReadFrame(const wxXmlNode& child, IResourceInputStore& store) {
  // Stores look through all children of a node for each name, so they get one that has no others.
  wxXmlNode parent(wxXML_ELEMENT_NODE, "animation");
  parent.AddChild(new wxXmlNode(child));
  wxFileName noFile;
  const auto bitmap = store.ReadBitmap(parent, child.GetName(), noFile);
  return bitmap ? *bitmap : wxBitmap();
}

}  // namespace graphics::animation
