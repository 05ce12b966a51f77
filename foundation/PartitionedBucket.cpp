#include "foundation/PartitionedBucket.h"

#include "foundation/Cast.h"
#include "foundation/MultiEnum.h"

namespace orlo {

template <class Visit>
bool CPartitionedBucket::visitPartitions(Visit visit) const {
  for (const P<IConstEnum> names = partitions_.getNames(); names->hasNext();)
    if (visit(*getPartition(asString(names->nextConst())))) return true;
  return false;
}

int CPartitionedBucket::getCount() const {
  int count = 0;
  visitPartitions([&count](const IArray& partition) {
    count += partition.getCount();
    return false;
  });
  return count;
}

bool CPartitionedBucket::isEmpty() const {
  return !visitPartitions([](const IArray& partition) { return !partition.isEmpty(); });
}

bool CPartitionedBucket::contains(const PC<IBase>& object) const {
  return visitPartitions([&object](const IArray& partition) { return partition.contains(object); });
}

P<IConstEnum> CPartitionedBucket::getConstEnum() const {
  P<CConstMultiEnum> walk = makeObject<CConstMultiEnum>();
  visitPartitions([&walk](const IArray& partition) {
    walk->add(partition.getConstEnum());
    return false;
  });
  return walk;
}

bool CPartitionedBucket::remove(const PC<IBase>& object) {
  return visitPartitions([&object](IArray& partition) { return partition.remove(object); });
}

P<IEnum> CPartitionedBucket::getEnum() {
  P<CMultiEnum> walk = makeObject<CMultiEnum>();
  visitPartitions([&walk](IArray& partition) {
    walk->add(partition.getEnum());
    return false;
  });
  return walk;
}

void CPartitionedBucket::add(const String& partition, P<IBase> object) {
  P<IArray> objects = getPartition(partition);
  if (!objects) {
    objects = makeObject<CArray>();
    partitions_.setObject(partition, objects);
  }
  objects->add(std::move(object));
}

P<IArray> CPartitionedBucket::getPartition(const String& partition) const {
  // A value list holds what is only read; the parts are this bucket's own.
  const PC<IBase> objects = partitions_.getObject(partition);
  return const_cast<IArray*>(tryCast<IArray>(objects));
}

}  // namespace orlo
