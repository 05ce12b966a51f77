#pragma once

#include "foundation/Object.h"
#include "foundation/ValueStore.h"
#include "foundation/posix/ValueFile.h"

namespace orlo::posix {

/// A value store in a settings file, of which CValueDocument tells the format. Every change is written at once, safe
/// against other processes that use the file through such a store, and seen by all. A store that has been removed reads
/// as empty, and is made again by the first value that is set. A file that cannot be read is an error, for readers as
/// well, and is never written over.
class CFileValueStore : public CObject, public IValueStore {
public:
  /// The store at the path within the file. If it is not there, it is made, or CNoSuchObjectError thrown if create is
  /// not set. The root store, at the empty path, is always there.
  explicit CFileValueStore(const String& file, const String& path = String(), bool create = true);
  CFileValueStore(P<CValueFile> file, CStorePath path, bool create);

  P<IValueStore> openSubStore(const String& path) override;
  void setInt(const String& name, std::int32_t value) override;
  void setInt64(const String& name, std::int64_t value) override;
  void setBool(const String& name, bool value) override;
  void setDouble(const String& name, double value) override;
  void setString(const String& name, const String& value) override;
  void setBinary(const String& name, const void* data, std::size_t size) override;

  P<IValueStore> getSubStore(const String& path) const override;
  std::int32_t getInt(const String& name, std::int32_t otherwise) const override;
  std::int64_t getInt64(const String& name, std::int64_t otherwise) const override;
  bool getBool(const String& name, bool otherwise) const override;
  double getDouble(const String& name, double otherwise) const override;
  String getString(const String& name, const String& otherwise) const override;
  P<IMemoryBlock> getBinary(const String& name) const override;

  bool hasValue(const String& name) const override;
  bool hasSubStore(const String& path) const override;
  P<IConstEnum> getValueNames() const override;
  P<IConstEnum> getSubStoreNames() const override;
  void removeValue(const String& name) override;
  void removeSubStore(const String& path) override;

  /// Nothing is collected.
  void flush() override {}
  void reload() override {}

private:
  CStorePath pathOf(const String& subPath) const;
  void set(const String& name, CStoredValue::Content value);
  /// What take(CStoredValue) makes of the value; nothing if there is none.
  template <class Take>
  auto read(const String& name, Take take) const;

  P<CValueFile> file_;
  CStorePath path_;
};

}  // namespace orlo::posix
