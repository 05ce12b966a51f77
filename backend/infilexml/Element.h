#pragma once

#include "foundation/Pointer.h"
#include "foundation/String.h"
#include "foundation/URI.h"

#include <cstdint>
#include <tinyxml.h>

namespace vantra::infilexml {

orlo::String NameOf(const TiXmlElement& element);

/// The new element is the last child.
TiXmlElement& AppendElement(TiXmlElement& parent, const orlo::String& name);

/// Call a function with each child that is an element, in order.
template <class Visit>
void ForEachElement(const TiXmlElement& parent, Visit visit) {
  for (const TiXmlElement* child = parent.FirstChildElement(); child; child = child->NextSiblingElement())
    visit(*child);
}

/// An attribute that is missing, or that is no finite number or no URI where one is wanted, leaves the value as it
/// stands. Numbers have a "." as decimal point whatever the locale is.
void ReadAttribute(const TiXmlElement& element, const char* name, double& value);
void ReadAttribute(const TiXmlElement& element, const char* name, std::int32_t& value);
/// Any number but 0 is true.
void ReadAttribute(const TiXmlElement& element, const char* name, bool& value);
void ReadAttribute(const TiXmlElement& element, const char* name, orlo::String& value);
void ReadAttribute(const TiXmlElement& element, const char* name, orlo::PC<orlo::IURI>& value);

/// With six significant digits.
void WriteAttribute(TiXmlElement& element, const char* name, double value);
void WriteAttribute(TiXmlElement& element, const char* name, std::int32_t value);
/// "1" or "0".
void WriteAttribute(TiXmlElement& element, const char* name, bool value);
void WriteAttribute(TiXmlElement& element, const char* name, const orlo::String& value);
/// Empty for null.
void WriteAttribute(TiXmlElement& element, const char* name, const orlo::PC<orlo::IURI>& value);

/// The URI's text, empty for null.
orlo::String TextOf(const orlo::PC<orlo::IURI>& uri);

}  // namespace vantra::infilexml
