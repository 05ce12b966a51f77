#pragma once

#include "foundation/Object.h"

#include <cstdint>

namespace orlo {

/// A number or a truth value as an object, for what holds objects of any kind. It never changes. The interfaces differ
/// by type, so that a checked cast tells what an object holds.
template <class T>
class IBoxed : public virtual IBase {
public:
  virtual T getValue() const = 0;
};

class IInt : public IBoxed<std::int32_t> {};
class IInt64 : public IBoxed<std::int64_t> {};
class IFloat : public IBoxed<float> {};
class IDouble : public IBoxed<double> {};
class IBool : public IBoxed<bool> {};

template <class T, class Interface>
class TBoxedValue : public CObject, public Interface {
public:
  explicit TBoxedValue(T value) : value_(value) {}
  T getValue() const override { return value_; }

private:
  const T value_;
};

class CInt : public TBoxedValue<std::int32_t, IInt> {
  using TBoxedValue::TBoxedValue;
};
class CInt64 : public TBoxedValue<std::int64_t, IInt64> {
  using TBoxedValue::TBoxedValue;
};
class CFloat : public TBoxedValue<float, IFloat> {
  using TBoxedValue::TBoxedValue;
};
class CDouble : public TBoxedValue<double, IDouble> {
  using TBoxedValue::TBoxedValue;
};
class CBool : public TBoxedValue<bool, IBool> {
  using TBoxedValue::TBoxedValue;
};

}  // namespace orlo
