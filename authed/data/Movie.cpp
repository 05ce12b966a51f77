#include "authed/data/Movie.h"

#include "authed/data/PathManager.h"
#include "authed/data/RepeatedInfile.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"

namespace authed::data {

using namespace graphics;
using vantra::infilexml::CInfile;

namespace {

constexpr const char* kChapters = "chapters";
constexpr const char* kChapter = "chapter";
constexpr const char* kThumbnail = "attachment-thumbnail";
constexpr const char* kLargeThumbnail = "attachment-thumbnail-large";

}  // namespace

std::int64_t CMovie::GetUniqueId() const {
  return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(this));
}

void CMovie::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CEncodable::WriteToXml(node, store);
  xml::WriteText(node, "type", GetMovieTypeName(GetMovieType()));
  xml::WriteText(node, "title", title);
  xml::WriteDouble(node, "duration", duration);
  xml::WriteBool(node, "menu-entry", menuEntry);
  xml::WriteDouble(node, "min-duration", minDuration);
  xml::WriteDouble(node, "audio-duration", audioDuration);
  xml::WriteInt(node, "width", width);
  xml::WriteInt(node, "height", height);
  xml::WriteInt(node, "id", id);
  xml::WriteText(node, "aspect-ratio", WordOf(aspectRatio));
  thumbnail.WriteToXml(node, kThumbnail, store);
  largeThumbnail.WriteToXml(node, kLargeThumbnail, store);
  if (chapters.empty()) return;
  xml::CChildAppender children(xml::AppendChild(node, kChapters));
  for (const auto& chapter : chapters) chapter->WriteToXml(children.Append(kChapter), store);
}

void CMovie::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CEncodable::ReadFromXml(node, store);
  xml::ReadText(node, "title", title);
  xml::ReadDouble(node, "duration", duration);
  xml::ReadBool(node, "menu-entry", menuEntry);
  xml::ReadDouble(node, "min-duration", minDuration);
  xml::ReadDouble(node, "audio-duration", audioDuration);
  xml::ReadInt(node, "width", width);
  xml::ReadInt(node, "height", height);
  xml::ReadInt(node, "id", id);
  if (wxString word; xml::ReadText(node, "aspect-ratio", word)) aspectRatio = AspectRatioOf(word).value_or(aspectRatio);
  thumbnail.ReadFromXml(node, kThumbnail, store);
  largeThumbnail.ReadFromXml(node, kLargeThumbnail, store);
  const wxXmlNode* const list = xml::FindChild(node, kChapters);
  if (!list) return;
  for (const wxXmlNode* child = list->GetChildren(); child; child = child->GetNext()) {
    if (child->GetType() != wxXML_ELEMENT_NODE || child->GetName() != kChapter) continue;
    chapters.push_back(orlo::makeObject<CChapter>());
    chapters.back()->ReadFromXml(*child, store);
  }
}

void CMovie::Assign(const CMovie& other) {
  if (this == &other) return;
  aspectRatio = other.aspectRatio;
  menuEntry = other.menuEntry;
  duration = other.duration;
  audioDuration = other.audioDuration;
  minDuration = other.minDuration;
  thumbnail = other.thumbnail;
  largeThumbnail = other.largeThumbnail;
  title = other.title;
  width = other.width;
  height = other.height;
  id = other.id;
  chapters.clear();
  for (const auto& chapter : other.chapters) chapters.push_back(orlo::makeObject<CChapter>(*chapter));
}

orlo::P<CMovie> CMovie::Clone() const {
  orlo::P<CMovie> copy = CreateSameKind();
  copy->Assign(*this);
  return copy;
}

orlo::P<CInfile> CMovie::BuildInfile(double frameRate, double length) const {
  return RepeatInfile([&] { return CreateInfile(frameRate); }, length);
}

orlo::P<CInfile> CMovie::CreateThumbnailInfile(CThumbnailRequest& request) const {
  FillPaths(request);
  return CreateInfile(request.frameRate);
}

const CChapter* CMovie::FindChapter(std::int32_t number) const {
  const auto index = static_cast<std::size_t>(number) - 1;
  return number >= 1 && index < chapters.size() ? chapters[index].get() : nullptr;
}

}  // namespace authed::data
