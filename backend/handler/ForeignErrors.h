#pragma once

#include "foundation/Base.h"

#include <cstdint>

/// Errors of the libraries that a backend may stand on. Texts are UTF-8 and may be null.

namespace rop {

class IError : public virtual orlo::IBase {
public:
  virtual std::int32_t getCode() const = 0;
  virtual const char* getString() const = 0;
  virtual const char* getWhat() const = 0;
  virtual const char* getXML() const = 0;
};

}  // namespace rop

namespace sul {

class IError : public virtual orlo::IBase {
public:
  virtual std::int32_t getErrorCode() const = 0;
  virtual const char* getErrorString() const = 0;
  virtual const char* getAdditionalErrorString() const = 0;
  virtual const char* getYenLog() const = 0;
  virtual const char* getGraphXml() const = 0;
};

}  // namespace sul
