#include "foundation/Object.h"

#include "foundation/ClassName.h"
#include "foundation/String.h"

namespace orlo {

namespace {

// A pair of addRef and release inside the destructor moves the count around this value, so that it never reaches
// zero a second time.
constexpr std::int32_t kDestroyingCount = -1000000;

}  // namespace

void CReferencable::end() const {
  count_.store(kDestroyingCount, std::memory_order_relaxed);
  destroy();
}

void CReferencable::destroy() const {
  delete this;
}

bool CObject::queryCast(const std::type_info&, IBase**, CastLink**) {
  return true;
}

String CObject::getDescription() const {
  return className(typeid(*this)) + " object";
}

}  // namespace orlo
