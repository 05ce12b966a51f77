#pragma once

#include "backend/infilexml/Infile.h"

#include <string>

namespace authed::data {

/// Makes the names of shader files absolute: a relative one begins at the folder, a URI in UTF-8.
void ResolveShaders(const vantra::infilexml::CInfile& infile, const std::string& folder);

}  // namespace authed::data
