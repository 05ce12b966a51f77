#pragma once

#include "foundation/Object.h"
#include "foundation/String.h"
#include "foundation/URI.h"

/// A location that is nothing but its text.
class CLocation : public orlo::CObject, public orlo::IURI {
public:
  explicit CLocation(orlo::String text) : text_(std::move(text)) {}
  orlo::String toString() const override { return text_; }

private:
  orlo::String text_;
};
