#pragma once

#include "graphics/model/ResourceStore.h"

#include <wx/bitmap.h>
#include <wx/xml/xml.h>

#include <cstdint>
#include <unordered_map>

namespace graphics::animation {

/// "frame0", "frame1" and so on.
wxString FrameName(std::int32_t index);

/// The children of an animation's node that stand for its frames, found in one walk whatever their number.
class CFrameNodes {
public:
  explicit CFrameNodes(const wxXmlNode& node);

  /// The property "count" of the node, 0 if it is missing or below. Throws orlo::CError above the limit.
  std::int32_t GetCount() const { return count_; }
  /// The first child of that frame's name, null if there is none.
  const wxXmlNode* Find(std::int32_t index) const;

private:
  std::int32_t count_ = 0;
  std::unordered_map<std::int32_t, const wxXmlNode*> nodes_;
};

/// The bitmap that the store keeps under the child's name in the child's parent. Not ok if there is none.
wxBitmap ReadFrame(const wxXmlNode& child, IResourceInputStore& store);

}  // namespace graphics::animation
