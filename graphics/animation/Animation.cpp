#include "graphics/animation/Animation.h"

#include "graphics/animation/FrameNodes.h"
#include "graphics/geometry/XmlValues.h"

#include <wx/filename.h>

namespace graphics::animation {

std::int32_t CAnimation::GetDelay() const {
  constexpr std::int32_t kSecond = 1000;
  if (delay_ > 0) return delay_;
  return IsEmpty() ? 0 : kSecond / static_cast<std::int32_t>(Frames().GetCount());
}

void CAnimation::Clear() {
  Rewind();
  Frames().Clear();
}

std::int32_t CAnimation::GetWidth() const {
  const wxBitmap* const frame = GetFirstFrame();
  return frame ? frame->GetWidth() : -1;
}

std::int32_t CAnimation::GetHeight() const {
  const wxBitmap* const frame = GetFirstFrame();
  return frame ? frame->GetHeight() : -1;
}

void CAnimation::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  const auto count = static_cast<std::int32_t>(Frames().GetCount());
  xml::WriteInt(node, "count", count);
  xml::WriteInt(node, "delay", delay_);
  xml::WriteBool(node, "loop", GetLoop());
  for (std::int32_t index = 0; index < count; ++index)
    if (const wxBitmap* const frame = Frames().Get(static_cast<std::size_t>(index)))
      store.WriteBitmap(node, FrameName(index), *frame, wxFileName());
}

void CAnimation::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  const CFrameNodes nodes(node);
  xml::ReadInt(node, "delay", delay_);
  if (bool loop = false; xml::ReadBool(node, "loop", loop)) SetLoop(loop);
  for (std::int32_t index = 0; index < nodes.GetCount(); ++index) {
    const wxXmlNode* const child = nodes.Find(index);
    Append(child ? ReadFrame(*child, store) : wxBitmap());
  }
}

orlo::P<IAnimation> CAnimation::CreateNew() const {
  return orlo::makeObject<CAnimation>(kAutomaticDelay);
}

}  // namespace graphics::animation
