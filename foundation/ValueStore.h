#pragma once

#include "foundation/Enum.h"
#include "foundation/MemoryBlock.h"
#include "foundation/String.h"

#include <cstddef>
#include <cstdint>

namespace orlo {

/// A tree of stores, each with named values, that outlives the process. Names are told apart without regard to case and
/// kept as they were first written; a value and a sub store may have the same name. A path is names with backslashes
/// between them. What is written is there for everybody at once, and a reader sees what others have written.
///
/// A value that is missing, or that was stored as another type or in another size, is no error: readers give the
/// default. A truth value is stored as a 32-bit number, 0 or 1, and a double as its 8 bytes; both may be read as
/// either. Everything else throws CError if it fails. Stores may be used from several threads.
class IValueStore : public virtual IBase {
public:
  /// Makes what is missing of the path.
  virtual P<IValueStore> openSubStore(const String& path) = 0;

  virtual void setInt(const String& name, std::int32_t value) = 0;
  virtual void setInt64(const String& name, std::int64_t value) = 0;
  virtual void setBool(const String& name, bool value) = 0;
  virtual void setDouble(const String& name, double value) = 0;
  virtual void setString(const String& name, const String& value) = 0;
  virtual void setBinary(const String& name, const void* data, std::size_t size) = 0;

  /// Throws CNoSuchObjectError if there is no such store.
  virtual P<IValueStore> getSubStore(const String& path) const = 0;

  virtual std::int32_t getInt(const String& name, std::int32_t otherwise) const = 0;
  virtual std::int64_t getInt64(const String& name, std::int64_t otherwise) const = 0;
  virtual bool getBool(const String& name, bool otherwise) const = 0;
  virtual double getDouble(const String& name, double otherwise) const = 0;
  virtual String getString(const String& name, const String& otherwise) const = 0;
  /// Null if there is no such value.
  virtual P<IMemoryBlock> getBinary(const String& name) const = 0;

  virtual bool hasValue(const String& name) const = 0;
  virtual bool hasSubStore(const String& path) const = 0;
  /// The names at the time of the call, as IString objects.
  virtual P<IConstEnum> getValueNames() const = 0;
  virtual P<IConstEnum> getSubStoreNames() const = 0;

  /// Both throw CNoSuchObjectError if there is nothing to remove. A sub store goes with all that is in it.
  virtual void removeValue(const String& name) = 0;
  virtual void removeSubStore(const String& path) = 0;

  /// For stores that collect changes before they write them. The others have nothing to do.
  virtual void flush() = 0;
  virtual void reload() = 0;
};

/// The settings that the user has for an application, in the place that the system has for them. The name may be any
/// that a folder may have.
P<IValueStore> openUserValueStore(const String& application);

}  // namespace orlo
