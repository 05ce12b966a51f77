#include "backend/infilexml/Rect.h"

#include "backend/infilexml/Element.h"

namespace vantra::infilexml {

void CRect::Read(const TiXmlElement& element) {
  ReadAttribute(element, "x", x);
  ReadAttribute(element, "y", y);
  ReadAttribute(element, "width", width);
  ReadAttribute(element, "height", height);
}

void CRect::Write(TiXmlElement& element) const {
  WriteAttribute(element, "x", x);
  WriteAttribute(element, "y", y);
  WriteAttribute(element, "width", width);
  WriteAttribute(element, "height", height);
}

}  // namespace vantra::infilexml
