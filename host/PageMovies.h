#pragma once

#include "host/Findings.h"
#include "host/PageContent.h"

#include <string>

namespace host {

// Looks for the files of a page's movies, notes which are missing, and gives what the summary says of all movies; empty
// if there are none. Descriptions of themes are looked for in the folder, in the current one if it is empty.
std::string readMovies(const PageContent& content, const std::string& themeFolder, Findings& findings);

}  // namespace host
