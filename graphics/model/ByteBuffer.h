#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"

#include <utility>
#include <vector>

namespace graphics {

/// A counted block of bytes.
class CByteBuffer : public orlo::CObject {
public:
  CByteBuffer() = default;
  explicit CByteBuffer(std::vector<unsigned char> content) : bytes(std::move(content)) {}

  std::vector<unsigned char> bytes;
};

}  // namespace graphics
