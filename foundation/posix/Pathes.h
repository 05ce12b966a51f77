#pragma once

#include "foundation/Object.h"
#include "foundation/Pathes.h"

namespace orlo::posix {

/// Paths are bytes: a name that is no UTF-8 is escaped byte by byte in a URI, and comes back as it was.
class CPathes : public CObject, public IPathes {
public:
  String uriToPath(const PC<IURI>& uri) override;
  P<IURI> pathToURI(const String& path) override;
  String toFileURI(const PC<IURI>& uri) override;
};

}  // namespace orlo::posix
