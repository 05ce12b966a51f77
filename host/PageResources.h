#pragma once

#include "host/Findings.h"
#include "host/PageContent.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace host {

// A picture, the pictures of an animation or a rich text of a page: in the page itself, or in a file beside it.
struct Resource {
  Content content = Content::none;
  long line = 0;
  std::string name;  // of the element that has it, or of the file
  std::size_t bytes = 0;
  std::string format;  // of a picture
  std::int64_t width = 0;
  std::int64_t height = 0;
  long paragraphs = 0;
  long frames = 0;  // of an animation: that many pictures of the same kind and size, told in one
  long uses = 1;
};

// The archive that resources lie in instead.
struct ResourceArchive {
  std::string path;
  std::set<std::string> names;
};

// Reads every resource, notes what is wrong with it, and gives those that are what they should be. Of resources in an
// archive, only the names are looked at. Throws Interrupted.
std::vector<Resource> readResources(const PageContent& content, const std::optional<ResourceArchive>& archive,
                                    Findings& findings);

}  // namespace host
