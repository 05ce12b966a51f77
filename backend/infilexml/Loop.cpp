#include "backend/infilexml/Loop.h"

#include "backend/infilexml/Element.h"

namespace vantra::infilexml {

void CLoop::Read(const TiXmlElement& element) {
  if (const TiXmlElement* const child = element.FirstChildElement()) item = ReadTrackItem(*child);
}

void CLoop::Write(TiXmlElement& element) const {
  if (item) WriteTrackItem(element, *item);
}

}  // namespace vantra::infilexml
