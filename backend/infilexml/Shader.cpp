#include "backend/infilexml/Shader.h"

#include "backend/infilexml/Element.h"

namespace vantra::infilexml {

namespace {

constexpr const char* kParameter = "parameter";
constexpr const char* kFloat = "float";

}  // namespace

void CShader::Read(const TiXmlElement& element) {
  ReadAttribute(element, "uri", uri_);
  const TiXmlElement* const parameters = element.FirstChildElement(kParameter);
  if (!parameters) return;
  ForEachElement(*parameters, [&](const TiXmlElement& child) {
    if (NameOf(child) != kFloat) return;
    double value = 0;
    ReadAttribute(child, "value", value);
    AddParameter(value);
  });
}

void CShader::Write(TiXmlElement& element) const {
  WriteAttribute(element, "uri", uri_);
  TiXmlElement& parameters = AppendElement(element, kParameter);
  for (const double value : parameters_) WriteAttribute(AppendElement(parameters, kFloat), "value", value);
}

}  // namespace vantra::infilexml
