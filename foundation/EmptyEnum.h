#pragma once

#include "foundation/Enum.h"
#include "foundation/Object.h"

namespace orlo {

/// The walk over nothing.
class CEmptyEnum : public CObject, public IEnum {
public:
  bool hasNext() override { return false; }
  int getCount() override { return 0; }
  PC<IBase> nextConst() override { return next(); }
  void reset() override {}
  P<IBase> next() override;
};

}  // namespace orlo
