#include "backend/infilexml/TrackItem.h"

#include "backend/infilexml/Audio.h"
#include "backend/infilexml/Element.h"
#include "backend/infilexml/Filter.h"
#include "backend/infilexml/Loop.h"
#include "backend/infilexml/Shader.h"
#include "backend/infilexml/Theme.h"
#include "backend/infilexml/Tracklist.h"
#include "backend/infilexml/Video.h"
#include "foundation/Error.h"

namespace vantra::infilexml {

orlo::P<CTrackItem> CreateTrackItem(const orlo::String& elementName) {
  if (elementName == "video") return orlo::makeObject<CVideo>();
  if (elementName == "audio") return orlo::makeObject<CAudio>();
  if (elementName == "filter") return orlo::makeObject<CFilter>();
  if (elementName == "theme") return orlo::makeObject<CTheme>();
  if (elementName == "videotracklist") return orlo::makeObject<CVideoTracklist>();
  if (elementName == "loop") return orlo::makeObject<CLoop>();
  if (elementName == "shader") return orlo::makeObject<CShader>();
  throw orlo::CError("unknown track item type");
}

orlo::P<CTrackItem> ReadTrackItem(const TiXmlElement& element) {
  const orlo::P<CTrackItem> item = CreateTrackItem(NameOf(element));
  item->Read(element);
  return item;
}

void WriteTrackItem(TiXmlElement& parent, const CTrackItem& item) {
  item.Write(AppendElement(parent, item.GetElementName()));
}

}  // namespace vantra::infilexml
