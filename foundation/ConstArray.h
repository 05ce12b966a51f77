#pragma once

#include "foundation/Bucket.h"
#include "foundation/CleaningSimpleArray.h"
#include "foundation/Object.h"

namespace orlo {

/// Objects in an order, counted from 0. An index that is not there throws CInvalidArgError.
class IConstArray : public virtual IConstBucket {
public:
  virtual PC<IBase> getConst(int index) const = 0;
  /// The first index of the object itself, not of an equal one; -1 if it is not there.
  virtual int indexOf(const PC<IBase>& object) const = 0;
};

namespace detail {

/// What arrays of objects have in common, whether their objects may change or not.
template <class Pointer, class Interface>
class TObjectArray : public CObject, public Interface {
public:
  TObjectArray();
  TObjectArray(const TObjectArray&) = delete;
  TObjectArray& operator=(const TObjectArray&) = delete;

  int getCount() const override { return elements_->getCount(); }
  bool isEmpty() const override { return elements_->isEmpty(); }
  bool contains(const PC<IBase>& object) const override { return indexOf(object) >= 0; }
  P<IConstEnum> getConstEnum() const override;
  PC<IBase> getConst(int index) const override { return at(index); }
  int indexOf(const PC<IBase>& object) const override;

protected:
  TCleaningSimpleArray<Pointer>& elements() { return *elements_; }
  const Pointer& at(int index) const { return (*elements_)[checked(index, getCount() - 1)]; }
  /// The index, if it is from 0 to the last one.
  int checked(int index, int last) const;

private:
  P<TCleaningSimpleArray<Pointer>> elements_;
};

}  // namespace detail

/// An array of objects that its users only read. No locks.
class CConstArray : public detail::TObjectArray<PC<IBase>, IConstArray> {
public:
  class CConstEnum;

  void add(PC<IBase> object) { elements().add(std::move(object)); }
};

class CConstArray::CConstEnum : public CObject, public IConstEnum {
public:
  explicit CConstEnum(PC<IConstArray> array) : array_(std::move(array)) {}

  bool hasNext() override { return index_ < array_->getCount(); }
  int getCount() override { return array_->getCount(); }
  PC<IBase> nextConst() override;
  void reset() override { index_ = 0; }

private:
  PC<IConstArray> array_;
  int index_ = 0;
};

}  // namespace orlo
