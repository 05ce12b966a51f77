#pragma once

#include "host/Findings.h"
#include "host/Xml.h"

#include <string>

namespace host {

// Of a movie file; empty if it names none.
std::string fileNameOf(const xmlNode& movie);
// "<movie> 'Title'".
std::string describeMovie(const xmlNode& movie);

// What is wrong with a movie apart from its names, values and files.
void findMovieFaults(const xmlNode& movie, Findings& findings);
// With the node in which its movie is written, or null.
void findMovieImageFaults(const xmlNode& image, const xmlNode* movie, Findings& findings);

}  // namespace host
