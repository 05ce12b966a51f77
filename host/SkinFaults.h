#pragma once

#include "host/Findings.h"
#include "host/Xml.h"

namespace host {

// What is wrong with a skin beside what its form says: which states and layers it says it has and does not show.
void findSkinFaults(const xmlNode& skin, Findings& findings);

}  // namespace host
