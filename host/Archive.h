#pragma once

#include <set>
#include <string>

namespace host {

// The names of the files in a zip archive, in UTF-8 and as archiveName gives them. Throws InputError if it cannot be
// read or is no archive.
std::set<std::string> readArchiveNames(const std::string& path);

// A name without separators and "./" before it, as the module compares names.
std::string archiveName(std::string name);

// An archive's path as the module takes it. Throws InputError if there is no such file.
std::string archiveUri(const std::string& path);

}  // namespace host
