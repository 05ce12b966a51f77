#pragma once

#include "backend/infilexml/InfileText.h"
#include "backend/infilexml/TrackItem.h"
#include "foundation/Error.h"

#include <string>

namespace vantra::infilexml {

/// What a node writes into an element of that name.
inline std::string written(const IInfileXmlNode& node, const std::string& name) {
  TiXmlElement element(name);
  node.Write(element);
  TiXmlPrinter printer;
  printer.SetStreamPrinting();
  element.Accept(&printer);
  return printer.Str();
}

inline std::string written(const CTrackItem& item) {
  return written(item, orlo::toStdString(item.GetElementName()));
}

template <class Node>
orlo::P<Node> readInto(orlo::P<Node> node, const std::string& text) {
  node->Read(*ParseElement(text));
  return node;
}

template <class Node>
orlo::P<Node> read(const std::string& text) {
  return readInto(orlo::makeObject<Node>(), text);
}

inline std::string stdText(const orlo::String& text) {
  return orlo::toStdString(text);
}

/// The message of the error that a call throws, "none" if it throws none.
template <class Call>
std::string refusalOf(Call call) {
  try {
    call();
    return "none";
  } catch (const orlo::CError& error) {
    return stdText(error.getMessage());
  }
}

}  // namespace vantra::infilexml
