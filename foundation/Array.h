#pragma once

#include "foundation/ConstArray.h"

namespace orlo {

class IArray : public virtual IBucket, public virtual IConstArray {
public:
  virtual P<IBase> get(int index) const = 0;
  /// index: 0 to the count.
  virtual void insert(int index, P<IBase> object) = 0;
  virtual void set(int index, P<IBase> object) = 0;
  virtual void removeAt(int index) = 0;
  virtual void swap(int a, int b) = 0;
  /// Into the order that the objects have as IComparable; those that are equal stay as they stand. If one is no
  /// IComparable, or compares with none of the others, CCastError is thrown and nothing is moved. Null comes first.
  virtual void sort() = 0;
};

/// An array of objects. An object that ends because it is taken out may use the array. No locks.
class CArray : public detail::TObjectArray<P<IBase>, IArray> {
public:
  class CEnum;
  using CConstEnum = CConstArray::CConstEnum;

  /// As IArray says. Memory is taken for more than that, so that adding many objects moves each a few times only.
  int getCapacity() { return elements().getCapacity(); }

  void add(P<IBase> object) override { elements().add(std::move(object)); }
  bool remove(const PC<IBase>& object) override;
  void removeAll() override { elements().clear(); }
  P<IEnum> getEnum() override;

  P<IBase> get(int index) const override { return at(index); }
  void insert(int index, P<IBase> object) override;
  void set(int index, P<IBase> object) override;
  void removeAt(int index) override;
  void swap(int a, int b) override;
  void sort() override;
};

class CArray::CEnum : public CObject, public IEnum {
public:
  explicit CEnum(P<CArray> array) : array_(std::move(array)) {}

  bool hasNext() override { return index_ < array_->getCount(); }
  int getCount() override { return array_->getCount(); }
  PC<IBase> nextConst() override { return next(); }
  void reset() override { index_ = 0; }
  P<IBase> next() override;

private:
  P<CArray> array_;
  int index_ = 0;
};

}  // namespace orlo
