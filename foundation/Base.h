#pragma once

#include <typeinfo>

namespace orlo {

class IBase;
class String;

/// One object of a chain that an object offers as its aggregates.
struct CastLink {
  IBase* object = nullptr;
  CastLink* next = nullptr;
};

/// Root interface of every counted object. Interfaces derive from it virtually, so that an object has one count
/// however many interfaces it has.
class IBase {
public:
  virtual ~IBase() = default;

  /// Both are atomic and may be called from any thread.
  virtual void addRef() const = 0;
  virtual void release() const = 0;

  /// Hook of the checked casts: false denies the cast, *outer redirects it to an owning object, *aggregates offers
  /// further objects to try. Both outputs are null on entry.
  virtual bool queryCast(const std::type_info& target, IBase** outer, CastLink** aggregates) = 0;

  /// A short text for error messages, by default the class name followed by " object".
  virtual String getDescription() const = 0;

protected:
  IBase() = default;
  IBase(const IBase&) = default;
  IBase& operator=(const IBase&) = default;
};

}  // namespace orlo
