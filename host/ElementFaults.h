#pragma once

#include "host/Findings.h"
#include "host/PageVocabulary.h"
#include "host/Xml.h"

#include <cstddef>
#include <string>

namespace host {

// "<image>", cut off if it is long.
std::string tagOf(const xmlNode& node);
// What one calls an element: its tag and its name if it has one.
std::string describe(const xmlNode& element);
// The type name that it gives itself; empty if it is what its node is named.
std::string typeNameOf(const xmlNode& element);
// How many elements are in a node, 0 for null.
std::size_t countChildren(const xmlNode* node);

// What is wrong with an element as a whole: what it needs to show something and does not have.
void findElementFaults(const xmlNode& element, const ElementKind& kind, Findings& findings);
// What is wrong with a node beside what its form says.
void findNodeFaults(const xmlNode& node, const NodeForm& form, Findings& findings);

}  // namespace host
