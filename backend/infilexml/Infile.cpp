#include "backend/infilexml/Infile.h"

#include "backend/infilexml/Element.h"
#include "backend/infilexml/InfileText.h"

namespace vantra::infilexml {

namespace {

constexpr const char* kInfile = "infile";
constexpr const char* kVideo = "videotracklist";
constexpr const char* kAudio = "audiotracklist";

}  // namespace

void CInfile::Read(const TiXmlElement& element) {
  ReadAttribute(element, "id", id);
  ForEachElement(element, [&](const TiXmlElement& child) {
    const orlo::String name = NameOf(child);
    if (name == kVideo)
      video_->Read(child);
    else if (name == kAudio)
      audio_->Read(child);
    else
      throw qeb::discmenuxml::CDiscMenuError("invalid element found in infile node");
  });
}

void CInfile::Write(TiXmlElement& element) const {
  WriteAttribute(element, "id", id);
  video_->Write(AppendElement(element, kVideo));
  audio_->Write(AppendElement(element, kAudio));
}

orlo::P<CTrackItem> CInfile::FindItemById(const orlo::String& wanted) const {
  for (std::size_t index = 0; index < GetTrackCount(); ++index)
    if (const orlo::P<CTrackItem>& item = GetTrack(index)->item; item && item->GetId() == wanted) return item;
  return nullptr;
}

const orlo::P<CTrack>& CInfile::GetTrack(std::size_t index) const {
  const std::size_t ahead = video_->GetTrackCount();
  return index < ahead ? video_->GetTrack(index) : audio_->GetTrack(index - ahead);
}

std::string ToText(const CInfile& infile) {
  TiXmlElement root(kInfile);
  infile.Write(root);
  return PrintElement(root);
}

orlo::P<CInfile> FromText(std::string_view text) {
  const std::unique_ptr<TiXmlElement> root = ParseElement(text);
  if (!root || NameOf(*root) != kInfile) return nullptr;
  auto infile = orlo::makeObject<CInfile>();
  infile->Read(*root);
  return infile;
}

}  // namespace vantra::infilexml
