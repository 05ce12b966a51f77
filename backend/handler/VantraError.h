#pragma once

#include "backend/handler/Backend.h"
#include "foundation/Error.h"
#include "foundation/Pointer.h"

#include <cstdint>
#include <string>

namespace vantra::wx::handler {

/// A failure of the backend.
class CVantraError : public orlo::CError {
public:
  /// The error that lies behind it may be null.
  explicit CVantraError(std::int32_t code, const std::string& text = {}, const orlo::P<IError>& error = nullptr)
      : code_(code), text_(text), error_(error) {}
  orlo::P<orlo::CException> clone() const override { return copyOf(*this); }

  std::int32_t getCode() const { return code_; }
  const char* getString() const { return text_.c_str(); }
  const char* getWhat() const { return what(); }
  const char* getXML() const { return error_ ? error_->getXML() : nullptr; }
  const orlo::P<IError>& getError() const { return error_; }

private:
  std::int32_t code_;
  std::string text_;
  orlo::P<IError> error_;
};

}  // namespace vantra::wx::handler
