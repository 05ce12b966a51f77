#pragma once

#include "foundation/URI.h"

namespace orlo {

/// The one place that knows what paths look like on the platform.
class IPathes : public virtual IBase {
public:
  /// The path of a file's location; the text of any other location, and nothing for null.
  virtual String uriToPath(const PC<IURI>& uri) = 0;
  /// A relative path gives a relative URI.
  virtual P<IURI> pathToURI(const String& path) = 0;
  /// "file:///" and the path with "/" between its names, not escaped.
  virtual String toFileURI(const PC<IURI>& uri) = 0;
};

P<IPathes>& getPathes();

}  // namespace orlo
