#include "host/ElementFaults.h"

#include "host/Errors.h"
#include "host/Spelling.h"

namespace host {

namespace {

bool hasText(const xmlNode& node, std::string_view property) {
  return !findProperty(node, property).value_or("").empty();
}

// Of a brush or pen.
bool isTransparent(const xmlNode& node) {
  return findProperty(node, "style").value_or("") == "106";
}

// What is wrong with its size, to stand behind its name.
std::string sizeFault(const xmlNode& element, Needs needs) {
  const xmlNode* size = findChild(element, "size");
  if (!size) return needs == Needs::ownSizeOrNone ? "" : "has no size and shows nothing";
  const double width = needs == Needs::height ? 1 : numberOf(*size, "width");
  const double height = numberOf(*size, "height");
  if (width < 0 || height < 0) return "has a size below 0";
  if (width == 0 && height == 0) return "has the size 0 and shows nothing";
  if (width == 0) return "has the width 0 and shows nothing";
  if (height == 0) return "has the height 0 and shows nothing";
  return {};
}

void findTableFaults(const xmlNode& table, Findings& findings) {
  const std::size_t rows = countChildren(findChild(table, "rows"));
  const std::size_t cols = countChildren(findChild(table, "cols"));
  const xmlNode* cells = findChild(table, "cells");
  const std::size_t count = countChildren(cells);
  if (rows == 0 || cols == 0)
    findings.warning(lineOf(table),
                     describe(table) + " has no " + (rows == 0 ? "rows" : "columns") + " and shows nothing");
  else if (count != rows * cols)
    findings.warning(lineOf(cells ? *cells : table),
                     describe(table) + " has " + counted(rows, "row") + " and " + counted(cols, "column") + " but " +
                         counted(count, "cell") +
                         (count < rows * cols ? ": the last ones are empty" : ": those that are too many are ignored"));
}

void findShapeFaults(const xmlNode& shape, Findings& findings) {
  const bool isFree = sameName(findProperty(shape, "shape").value_or(""), "free-form");
  const xmlNode* form = findChild(shape, "free-form");
  const xmlNode* outline = form ? findChild(*form, "graphic-document") : nullptr;
  if (isFree && !(outline && findChild(*outline, "point")))
    findings.warning(lineOf(shape), describe(shape) + " is a free form without points and shows nothing");
}

// An element that lies in a button covers it, whatever its size says.
bool isWithinButton(const xmlNode& element) {
  return element.parent && element.parent->type == XML_ELEMENT_NODE && sameName(nameOf(*element.parent), "element");
}

// Of the state that pages show. A skin that stands elsewhere counts as one that has such a layer.
bool hasCustomLayer(const xmlNode& skin) {
  const xmlNode* states = findChild(skin, "states");
  const xmlNode* state = states ? findChild(*states, "normal") : nullptr;
  const xmlNode* layers = state ? findChild(*state, "layers") : nullptr;
  return !states || (layers && findChild(*layers, "custom"));
}

void findActionFaults(const xmlNode& button, const xmlNode* skin, Findings& findings) {
  const xmlNode* within = findChild(button, "element");
  if (!within) return;
  const auto warn = [&](const std::string& text) { findings.warning(lineOf(*within), describe(button) + text); };
  std::size_t elements = 0;
  for (const xmlNode* child = firstElement(*within); child; child = nextElement(*child))
    elements += isElementNode(nameOf(*child)) ? 1 : 0;
  if (elements == 0) warn(" has nothing in its <element>");
  if (elements > 1) warn(" has " + counted(elements, "element") + " in its <element>: only the first one is shown");
  if (skin && !hasCustomLayer(*skin))
    warn(": its <element> is not shown, as the state <normal> of its skin has no <custom> layer");
}

void findButtonFaults(const xmlNode& button, Findings& findings) {
  const auto warn = [&](const std::string& text) { findings.warning(lineOf(button), describe(button) + text); };
  const std::string type = typeNameOf(button);
  const bool isAction = sameName(type, "authed-state-button-action");
  const bool isSkinned = isAction || type == "skin-button";
  const xmlNode* skin = findChild(button, "skin");
  if (isSkinned && !skin) warn(" has no <skin> and looks like a plain button");
  if (skin && !isSkinned) warn(" has no type-name=\"skin-button\": its <skin> is ignored");
  if (isAction) return findActionFaults(button, skin, findings);
  for (const char* const name : {"action", "element"})
    if (const xmlNode* node = findChild(button, name))
      findings.warning(lineOf(*node), describe(button) + " has no type-name=\"authed-state-button-action\": its " +
                                          tagOf(*node) + " is ignored");
}

}  // namespace

std::size_t countChildren(const xmlNode* node) {
  std::size_t count = 0;
  for (const xmlNode* child = node ? firstElement(*node) : nullptr; child; child = nextElement(*child)) ++count;
  return count;
}

std::string tagOf(const xmlNode& node) {
  std::string tag = inQuotes(nameOf(node));
  tag.front() = '<';
  tag.back() = '>';
  return tag;
}

std::string describe(const xmlNode& element) {
  std::string text = tagOf(element);
  const std::string name = findProperty(element, "name").value_or("");
  if (!name.empty()) text.append(" ").append(inQuotes(name));
  return text;
}

std::string typeNameOf(const xmlNode& element) {
  const std::string name = findProperty(element, "type-name").value_or("");
  return name.empty() ? findProperty(element, "type").value_or("") : name;
}

void findElementFaults(const xmlNode& element, const ElementKind& kind, Findings& findings) {
  const auto warn = [&](const std::string& text) { findings.warning(lineOf(element), describe(element) + text); };
  if (kind.needs != Needs::nothing && !isWithinButton(element))
    if (const std::string fault = sizeFault(element, kind.needs); !fault.empty()) warn(" " + fault);

  if (kind.name == "image" && !hasText(element, "filename") && !findChild(element, "attachment-bitmap"))
    warn(" has no picture, neither \"filename\" nor <attachment-bitmap>, and shows nothing");
  if ((kind.name == "text" || kind.name == "text-circle") && !findChild(element, "attachment-richtextbuffer"))
    warn(" has no <attachment-richtextbuffer> and shows \"Double click to edit!\"");
  if (kind.name == "mirror" && !findChild(element, "graphic-document"))
    warn(" has no <graphic-document> and shows nothing");
  if (kind.name == "label" && !hasText(element, "text")) warn(" has no \"text\" and shows nothing");
  if (kind.name == "table") findTableFaults(element, findings);
  if (kind.name == "shape") findShapeFaults(element, findings);
  if (kind.name == "state-button") findButtonFaults(element, findings);
}

void findNodeFaults(const xmlNode& node, const NodeForm& form, Findings& findings) {
  if (&form == &colourForm && !findProperty(node, "alpha") && !isTransparent(*node.parent))
    findings.warning(lineOf(node), tagOf(node) + " has no \"alpha\" and is fully transparent; 255 is opaque");
  if (&form == &dataForm && !findProperty(node, "type"))
    findings.warning(lineOf(node), tagOf(node) + " has no \"type\" and is left out");
}

}  // namespace host
