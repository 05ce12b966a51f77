#pragma once

#include "foundation/Cast.h"
#include "foundation/CleaningSimpleArray.h"

namespace orlo {

/// What lists of observers share, whatever they observe.
class CFrailArrayTemplateBase : public CObject {
public:
  CFrailArrayTemplateBase(const CFrailArrayTemplateBase&) = delete;
  CFrailArrayTemplateBase& operator=(const CFrailArrayTemplateBase&) = delete;

  int getCount() const { return elements_->getCount(); }
  void clear() { elements_->clear(); }
  /// By identity. The object may have ended.
  bool contains(const IBase* object) const;

protected:
  CFrailArrayTemplateBase();

  void addObject(IBase* object, bool strong);
  bool removeObject(const IBase* object);
  /// Null for an index that is not there.
  IBase* objectAt(int index) const;

private:
  P<TCleaningSimpleArray<PFrail<IBase>>> elements_;
};

/// A list of observers, in the order in which they were added. Those that are added frail are not kept alive: they take
/// themselves out before they end. The owner locks.
template <class T>
class TFrailArray : public CFrailArrayTemplateBase {
public:
  void addStrong(T* object) { addObject(object, true); }
  void addFrail(T* object) { addObject(object, false); }
  /// Takes out the first place that the object has, and tells whether there was one.
  bool remove(T* object) { return removeObject(object); }

  /// A strong pointer, which keeps the object for the caller's use. Null for an object that is no T and for an index
  /// that is not there, so that a walk goes on although its observers take themselves out.
  PFrail<T> get(int index) const { return {tryCast<T>(objectAt(index)), true}; }
};

}  // namespace orlo
