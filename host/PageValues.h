#pragma once

#include "host/PageVocabulary.h"

#include <string>

namespace host {

// What is wrong with a value and what comes of it, "not a number; it counts as 0" say; empty if it is as it should be.
std::string faultOf(const ValueForm& form, const std::string& value);

}  // namespace host
