#pragma once

#include "foundation/Object.h"

#include <functional>
#include <utility>

/// An object that shows its count and tells of its end.
class CCounted : public orlo::CObject {
public:
  CCounted() = default;
  explicit CCounted(std::function<void()> atEnd) : atEnd_(std::move(atEnd)) {}
  ~CCounted() override {
    if (atEnd_) atEnd_();
  }
  CCounted(const CCounted&) = default;
  CCounted& operator=(const CCounted&) = default;

  using orlo::CReferencable::referenceCount;

private:
  std::function<void()> atEnd_;
};

/// An interface and its implementation, to count through a virtual base.
class ICountedFace : public virtual orlo::IBase {
public:
  virtual int face() const = 0;
};

class CCountedFace : public CCounted, public ICountedFace {
public:
  using CCounted::CCounted;
  int face() const override { return 7; }
};
