#pragma once

#include <libxml/tree.h>

#include <string>

namespace host {

// Which of the module's limits a rich text goes beyond, as what follows its name; empty if none. The module shows
// nothing of such a text.
std::string beyondLimits(const xmlNode& richText);

}  // namespace host
