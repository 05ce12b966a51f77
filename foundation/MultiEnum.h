#pragma once

#include "foundation/Enum.h"
#include "foundation/Object.h"
#include "foundation/SimpleArray.h"

namespace orlo {

namespace detail {

/// One walk after the other. The first use as an enumerator locks the list of walks.
template <class Enum>
class TMultiEnum : public CObject, public Enum {
public:
  bool hasNext() override { return findNext() != nullptr; }
  int getCount() override;
  PC<IBase> nextConst() override { return needNext().nextConst(); }
  void reset() override;

protected:
  /// The text is the one of the key, for an enumerator that is locked.
  void addSub(P<Enum> sub, const char* lockedKey, const char* lockedText);
  /// The walk that the next object comes from; throws CEndOfEnumError if there is none.
  Enum& needNext();

private:
  Enum* findNext();

  TSimpleArray<P<Enum>> subs_;
  int index_ = 0;
  bool locked_ = false;
};

extern template class TMultiEnum<IEnum>;
extern template class TMultiEnum<IConstEnum>;

}  // namespace detail

/// Walks over the objects of its sub enumerators, in the order in which these were added. They belong to it from then
/// on.
class CMultiEnum : public detail::TMultiEnum<IEnum> {
public:
  /// Throws CInvalidObjectStateError once a method of IEnum has been called, CInvalidArgError for null.
  void add(P<IEnum> sub);
  P<IBase> next() override { return needNext().next(); }
};

/// The same for objects that are only read.
class CConstMultiEnum : public detail::TMultiEnum<IConstEnum> {
public:
  void add(P<IConstEnum> sub);
};

}  // namespace orlo
