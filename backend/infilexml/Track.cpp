#include "backend/infilexml/Track.h"

#include "backend/infilexml/Element.h"

namespace vantra::infilexml {

namespace {

void WriteIfAbove(TiXmlElement& element, const char* name, double value) {
  constexpr double kNothing = 0.001;
  if (value > kNothing) WriteAttribute(element, name, value);
}

}  // namespace

void CTrack::Read(const TiXmlElement& element) {
  ReadAttribute(element, "duration", duration);
  ReadAttribute(element, "x", x);
  ReadAttribute(element, "y", y);
  ReadAttribute(element, "width", width);
  ReadAttribute(element, "height", height);
  ReadAttribute(element, "start", start);
  ReadAttribute(element, "index", index);
  ReadAttribute(element, "enabled", enabled);
  if (const TiXmlElement* const child = element.FirstChildElement()) item = ReadTrackItem(*child);
}

void CTrack::Write(TiXmlElement& element) const {
  WriteAttribute(element, "duration", duration);
  WriteIfAbove(element, "x", x);
  WriteIfAbove(element, "y", y);
  WriteIfAbove(element, "width", width);
  WriteIfAbove(element, "height", height);
  WriteAttribute(element, "start", start);
  WriteAttribute(element, "index", index);
  WriteAttribute(element, "enabled", enabled);
  if (item) WriteTrackItem(element, *item);
}

}  // namespace vantra::infilexml
