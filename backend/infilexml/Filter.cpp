#include "backend/infilexml/Filter.h"

#include "backend/infilexml/Element.h"

namespace vantra::infilexml {

void CFilter::Read(const TiXmlElement& element) {
  ReadAttribute(element, "duration", duration);
  ReadAttribute(element, "src", src);
  ForEachElement(element, [&](const TiXmlElement& child) {
    const orlo::P<CFilterParam> param = CreateFilterParam(NameOf(child));
    param->Read(child);
    AddParam(param);
  });
}

void CFilter::Write(TiXmlElement& element) const {
  WriteAttribute(element, "duration", duration);
  WriteAttribute(element, "src", src);
  for (const auto& param : params_) param->Write(AppendElement(element, param->GetElementName()));
}

}  // namespace vantra::infilexml
