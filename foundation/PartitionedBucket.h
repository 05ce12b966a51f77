#pragma once

#include "foundation/Array.h"
#include "foundation/ValueList.h"

namespace orlo {

/// A collection of objects in parts that have names, which case does not tell apart. As a bucket it is all of its parts
/// one after the other, in no order of names.
class IPartitionedBucket : public virtual IBucket {
public:
  using IBucket::add;
  /// Makes the part if it is not there.
  virtual void add(const String& partition, P<IBase> object) = 0;
  /// Nothing happens if it is not there.
  virtual void removePartition(const String& partition) = 0;
  /// Null if it is not there. A part stays when its last object goes.
  virtual P<IArray> getPartition(const String& partition) const = 0;
  /// The names, in lower case, as IString objects.
  virtual P<IConstEnum> getPartitionNames() const = 0;
};

/// No locks.
class CPartitionedBucket : public CObject, public IPartitionedBucket {
public:
  int getCount() const override;
  bool isEmpty() const override;
  bool contains(const PC<IBase>& object) const override;
  P<IConstEnum> getConstEnum() const override;
  /// To the part with the empty name.
  void add(P<IBase> object) override { add(String(), std::move(object)); }
  /// From the first part that has it.
  bool remove(const PC<IBase>& object) override;
  void removeAll() override { partitions_.removeAll(); }
  P<IEnum> getEnum() override;

  void add(const String& partition, P<IBase> object) override;
  void removePartition(const String& partition) override { partitions_.remove(partition); }
  P<IArray> getPartition(const String& partition) const override;
  P<IConstEnum> getPartitionNames() const override { return partitions_.getNames(); }

private:
  /// Until visit(IArray&) returns true; tells whether it did.
  template <class Visit>
  bool visitPartitions(Visit visit) const;

  CValueList partitions_{false};
};

}  // namespace orlo
