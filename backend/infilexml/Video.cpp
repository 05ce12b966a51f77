#include "backend/infilexml/Video.h"

#include "backend/infilexml/Element.h"

namespace vantra::infilexml {

namespace {

constexpr const char* kInfileId = "infile-id";
constexpr const char* kClippingRect = "clippingrect";

}  // namespace

void CVideo::Read(const TiXmlElement& element) {
  ReadAttribute(element, "duration", duration);
  ReadAttribute(element, "starttime", startTime);
  ReadAttribute(element, "src", src);
  orlo::String id = GetId();
  ReadAttribute(element, kInfileId, id);
  SetId(id);
  if (const TiXmlElement* const child = element.FirstChildElement(kClippingRect)) {
    clippingRect = orlo::makeObject<CRect>();
    clippingRect->Read(*child);
  }
  ReadAttribute(element, "rotation", rotation);
  ReadAttribute(element, "mirrorvertical", mirrorVertical);
  ReadAttribute(element, "mirrorhorizontal", mirrorHorizontal);
}

void CVideo::Write(TiXmlElement& element) const {
  WriteAttribute(element, "duration", duration);
  WriteAttribute(element, "starttime", startTime);
  if (!TextOf(src).isEmpty()) WriteAttribute(element, "src", src);
  if (!GetId().isEmpty()) WriteAttribute(element, kInfileId, GetId());
  if (clippingRect) clippingRect->Write(AppendElement(element, kClippingRect));
  WriteAttribute(element, "rotation", rotation);
  WriteAttribute(element, "mirrorvertical", mirrorVertical);
  WriteAttribute(element, "mirrorhorizontal", mirrorHorizontal);
}

}  // namespace vantra::infilexml
