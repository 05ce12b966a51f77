#pragma once

#include "graphics/geometry/Matrix.h"

#include <deque>

namespace graphics {

/// A matrix that grows step by step, with the matrices it has been before. The step applied last is the first to act
/// on a point.
class CTransform {
public:
  CTransform() = default;
  explicit CTransform(const CMatrix& matrix) { Apply(matrix); }

  void Apply(const CMatrix& matrix) {
    history_.push_back(current_);
    current_ = matrix * current_;
  }

  const CMatrix& GetCurrent() const { return current_; }
  /// The matrix before the last step; the identity if there was none.
  CMatrix GetTop() const { return history_.empty() ? CMatrix::Identity() : history_.back(); }
  const std::deque<CMatrix>& GetHistory() const { return history_; }

private:
  CMatrix current_ = CMatrix::Identity();
  std::deque<CMatrix> history_;
};

}  // namespace graphics
