#pragma once

#include "backend/infilexml/Infile.h"

#include <functional>

namespace authed::data {

/// One infile of the passes that makePass gives, one behind the other, cut at a length in seconds. Null if a pass is
/// null. Throws orlo::CError if it takes more than 10000 of them, or more tracks than an infile may have elements.
orlo::P<vantra::infilexml::CInfile> RepeatInfile(const std::function<orlo::P<vantra::infilexml::CInfile>()>& makePass,
                                                 double length);

}  // namespace authed::data
