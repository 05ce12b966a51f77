#pragma once

#include "host/PageFile.h"

#include <libxml/tree.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct XmlDeleter {
  void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
using XmlDocument = std::unique_ptr<xmlDoc, XmlDeleter>;

struct XmlProblem {
  long line = 0;
  std::string text;  // one line
};

// Reads without network, without other files and without entities: a text that declares some is refused, as is one
// that nests too deep or has too many elements. Null with at least one problem, or a document with a root and none.
XmlDocument readXml(std::string_view xml, std::vector<XmlProblem>& problems);

// The same of a page. Throws InputError with the line of the first problem.
XmlDocument parseXml(const PageFile& page);

// Names are compared without case, as the module does.
bool sameName(std::string_view a, std::string_view b);
std::string nameOf(const xmlNode& node);
std::string nameOf(const xmlAttr& property);
std::string valueOf(const xmlAttr& property);
long lineOf(const xmlNode& node);
const xmlNode* firstElement(const xmlNode& parent);
const xmlNode* nextElement(const xmlNode& node);
// The first child element of that name, or null.
const xmlNode* findChild(const xmlNode& parent, std::string_view name);
std::optional<std::string> findProperty(const xmlNode& node, std::string_view name);
// The text of a text or of a CDATA section; empty for any other node.
std::string_view textOf(const xmlNode& node);
// The property as a number; 0 if it is missing or no number.
double numberOf(const xmlNode& node, std::string_view name);
// The number that the text begins with, and how much of the text it is.
struct LeadingNumber {
  double value = 0;
  std::size_t length = 0;
};
LeadingNumber leadingNumber(std::string text);

}  // namespace host
