#include "backend/infilexml/FilterParam.h"

#include "backend/infilexml/Element.h"
#include "foundation/Error.h"

namespace vantra::infilexml {

namespace {

constexpr const char* kValue = "value";

}  // namespace

void CFilterParam::Read(const TiXmlElement& element) {
  ReadAttribute(element, "name", name);
  ReadValue(element);
}

void CFilterParam::Write(TiXmlElement& element) const {
  WriteAttribute(element, "name", name);
  WriteValue(element);
}

void CBoolean::ReadValue(const TiXmlElement& element) {
  if (!element.Attribute(kValue)) return;
  ReadAttribute(element, kValue, text);
  value = text == "true" || text == "1";
}

void CBoolean::WriteValue(TiXmlElement& element) const {
  WriteAttribute(element, kValue, orlo::String(value ? "true" : "false"));
}

void CInteger::ReadValue(const TiXmlElement& element) {
  ReadAttribute(element, kValue, value);
}

void CInteger::WriteValue(TiXmlElement& element) const {
  WriteAttribute(element, kValue, value);
}

void CFloat::ReadValue(const TiXmlElement& element) {
  ReadAttribute(element, kValue, value);
}

void CFloat::WriteValue(TiXmlElement& element) const {
  WriteAttribute(element, kValue, value);
}

void CString::ReadValue(const TiXmlElement& element) {
  ReadAttribute(element, kValue, value);
}

void CString::WriteValue(TiXmlElement& element) const {
  WriteAttribute(element, kValue, value);
}

void CUri::ReadValue(const TiXmlElement& element) {
  ReadAttribute(element, kValue, value);
}

void CUri::WriteValue(TiXmlElement& element) const {
  WriteAttribute(element, kValue, value);
}

orlo::P<CFilterParam> CreateFilterParam(const orlo::String& elementName) {
  if (elementName == "string") return orlo::makeObject<CString>();
  if (elementName == "passthrough") return orlo::makeObject<CPassThrough>();
  if (elementName == "boolean") return orlo::makeObject<CBoolean>();
  if (elementName == "bool") return orlo::makeObject<CBool>();
  if (elementName == "uri") return orlo::makeObject<CUri>();
  if (elementName == "float") return orlo::makeObject<CFloat>();
  if (elementName == "integer") return orlo::makeObject<CInteger>();
  throw orlo::CError("unknown filter param type");
}

}  // namespace vantra::infilexml
