#include "foundation/EmptyEnum.h"

#include "foundation/Error.h"

namespace orlo {

P<IBase> CEmptyEnum::next() {
  throw CEndOfEnumError(nullptr, &typeid(CEmptyEnum));
}

}  // namespace orlo
