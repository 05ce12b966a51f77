#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"

namespace orlo {

/// A library that is loaded while the program runs. It goes with its last reference.
class ISharedLibrary : public virtual IBase {
public:
  /// Null if the library has no such function.
  virtual void* findFunction(const char* name) const = 0;
};

/// How the platform calls the file of a library: "libvantraplugin.so" for "vantraplugin".
String getSharedLibraryFileName(const String& name);

/// Found as the system finds libraries for the code that calls this, if the name has no folder. Null for a library that
/// is not there or can't be loaded.
P<ISharedLibrary> loadSharedLibrary(const String& fileName);

}  // namespace orlo
