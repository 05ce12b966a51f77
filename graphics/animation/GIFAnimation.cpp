#include "graphics/animation/GIFAnimation.h"

#include "foundation/Error.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/animation/FrameNodes.h"
#include "graphics/animation/GIFComposer.h"
#include "graphics/geometry/XmlGeometry.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/Picture.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/wfstream.h>

#include <new>

namespace graphics::animation {

namespace {

std::vector<unsigned char> ReadWholeFile(const wxString& path) {
  const wxLogNull quiet;
  if (!wxFileName::FileExists(path)) throw orlo::CError("There is no such file");
  wxFileInputStream stream(path);
  if (!stream.IsOk()) throw orlo::CError("The file can't be read");
  if (stream.GetLength() > static_cast<wxFileOffset>(kMaxResourceBytes))
    throw orlo::CError("A GIF file may have at most 256 MB");
  return ReadBytes(stream, kMaxResourceBytes);
}

}  // namespace

bool CGIFAnimation::LoadFile(const wxString& path) {
  loadError_.clear();
  try {
    Load(path);
  } catch (const orlo::CException& error) {
    loadError_ = wxutil::toWxString(error.getMessage());
  } catch (const std::bad_alloc&) {
    loadError_ = "There is no memory for the frames";
  }
  return loadError_.empty();
}

void CGIFAnimation::Load(const wxString& path) {
  const std::vector<unsigned char> bytes = ReadWholeFile(path);
  const CGIFFile file = ScanGIF(bytes);
  CFrameList frames = Frames();
  std::vector<std::int32_t> delays = delays_;
  CGIFComposer composer(file);
  for (const CGIFFrame& frame : file.frames) {
    frames.Append(composer.Compose(frame));
    delays.push_back(frame.delay);
  }
  size_ = {file.width, file.height};
  Frames() = std::move(frames);
  delays_ = std::move(delays);
}

std::int32_t CGIFAnimation::GetDelay() const {
  return GetPosition() < delays_.size() ? delays_[GetPosition()] : 0;
}

void CGIFAnimation::Clear() {
  Frames().Clear();
  delays_.clear();
}

void CGIFAnimation::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  xml::WriteInt(node, "count", static_cast<std::int32_t>(Frames().GetCount()));
  xml::WriteBool(node, "loop", GetLoop());
  xml::WritePoint(node, "size", wxPoint(size_.x, size_.y));
  xml::CChildAppender children(node);
  for (std::size_t index = 0; index < Frames().GetCount(); ++index) {
    wxXmlNode& child = children.Append(FrameName(static_cast<std::int32_t>(index)));
    if (const wxBitmap* const frame = Frames().Get(index)) store.WriteBitmap(child, "frame", *frame, wxFileName());
    xml::WriteInt(child, "delay", delays_[index]);
  }
}

void CGIFAnimation::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  const CFrameNodes nodes(node);
  if (bool loop = false; xml::ReadBool(node, "loop", loop)) SetLoop(loop);
  if (wxPoint size(size_.x, size_.y); xml::ReadPoint(node, "size", size)) size_ = {size.x, size.y};
  for (std::int32_t index = 0; index < nodes.GetCount(); ++index) {
    const wxXmlNode* const child = nodes.Find(index);
    if (!child) continue;
    wxFileName noFile;
    const auto bitmap = store.ReadBitmap(*child, "frame", noFile);
    std::int32_t delay = 0;
    xml::ReadInt(*child, "delay", delay);
    Frames().Append(bitmap ? *bitmap : wxBitmap());
    delays_.push_back(delay);
  }
}

orlo::P<IAnimation> CGIFAnimation::CreateNew() const {
  return orlo::makeObject<CGIFAnimation>();
}

}  // namespace graphics::animation
