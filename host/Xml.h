#pragma once

#include "host/PageFile.h"

#include <libxml/tree.h>

#include <memory>
#include <optional>
#include <string>

namespace host {

struct XmlDeleter {
  void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
using XmlDocument = std::unique_ptr<xmlDoc, XmlDeleter>;

// Reads without network, without other files and without entities: a file that declares some is refused. Throws
// InputError with the line.
XmlDocument parseXml(const PageFile& page);

// Names are compared without case, as the module does.
bool sameName(const std::string& a, const std::string& b);
std::string nameOf(const xmlNode& node);
long lineOf(const xmlNode& node);
const xmlNode* firstElement(const xmlNode& parent);
const xmlNode* nextElement(const xmlNode& node);
// The first child element of that name, or null.
const xmlNode* findChild(const xmlNode& parent, const std::string& name);
std::optional<std::string> findProperty(const xmlNode& node, const std::string& name);
// The property as a number; 0 if it is missing or no number.
double numberOf(const xmlNode& node, const std::string& name);

}  // namespace host
