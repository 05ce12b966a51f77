#pragma once

#include "host/Findings.h"
#include "host/Xml.h"

namespace host {

// How many frames an animated image says it has; what is no such number counts as 0.
double frameCountOf(const xmlNode& animationImage);

// What is wrong with an animated image beside what its form says: what it needs to show each of its frames.
void findAnimationFaults(const xmlNode& animationImage, Findings& findings);

}  // namespace host
