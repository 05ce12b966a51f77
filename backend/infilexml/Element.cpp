#include "backend/infilexml/Element.h"

#include "foundation/Error.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace vantra::infilexml {

namespace {

/// The number that the text starts with, behind white space, if it is finite.
template <class Number>
void ReadNumber(const TiXmlElement& element, const char* name, Number& value) {
  const char* const attribute = element.Attribute(name);
  if (!attribute) return;
  std::string_view text = attribute;
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc() && std::isfinite(static_cast<double>(number))) value = number;
}

}  // namespace

orlo::String NameOf(const TiXmlElement& element) {
  return orlo::fromUTF8(element.ValueStr());
}

TiXmlElement& AppendElement(TiXmlElement& parent, const orlo::String& name) {
  auto element = std::make_unique<TiXmlElement>(orlo::toStdString(name));
  return *parent.LinkEndChild(element.release())->ToElement();
}

void ReadAttribute(const TiXmlElement& element, const char* name, double& value) {
  ReadNumber(element, name, value);
}

void ReadAttribute(const TiXmlElement& element, const char* name, std::int32_t& value) {
  ReadNumber(element, name, value);
}

void ReadAttribute(const TiXmlElement& element, const char* name, bool& value) {
  std::int32_t number = value ? 1 : 0;
  ReadNumber(element, name, number);
  value = number != 0;
}

void ReadAttribute(const TiXmlElement& element, const char* name, orlo::String& value) {
  if (const char* const text = element.Attribute(name)) value = orlo::fromUTF8(text);
}

void ReadAttribute(const TiXmlElement& element, const char* name, orlo::PC<orlo::IURI>& value) {
  const char* const text = element.Attribute(name);
  if (!text) return;
  try {
    value = orlo::makeObject<orlo::CURI>(orlo::fromUTF8(text));
  } catch (const orlo::CParseError&) {
    // A port that is no number: as if there were no such attribute.
  }
}

void WriteAttribute(TiXmlElement& element, const char* name, double value) {
  constexpr int kDigits = 6;
  std::array<char, 32> text{};
  std::to_chars(text.data(), text.data() + text.size() - 1, value, std::chars_format::general, kDigits);
  element.SetAttribute(name, text.data());
}

void WriteAttribute(TiXmlElement& element, const char* name, std::int32_t value) {
  element.SetAttribute(name, value);
}

void WriteAttribute(TiXmlElement& element, const char* name, bool value) {
  element.SetAttribute(name, value ? 1 : 0);
}

void WriteAttribute(TiXmlElement& element, const char* name, const orlo::String& value) {
  element.SetAttribute(std::string(name), orlo::toStdString(value));
}

void WriteAttribute(TiXmlElement& element, const char* name, const orlo::PC<orlo::IURI>& value) {
  WriteAttribute(element, name, TextOf(value));
}

orlo::String TextOf(const orlo::PC<orlo::IURI>& uri) {
  return uri ? uri->getDescription() : orlo::String();
}

}  // namespace vantra::infilexml
