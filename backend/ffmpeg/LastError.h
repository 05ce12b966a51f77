#pragma once

#include "backend/ffmpeg/Failure.h"
#include "backend/handler/Backend.h"
#include "foundation/Object.h"
#include "foundation/Pointer.h"

#include <string>

namespace vantra::ffmpeg {

/// A failure as the host sees it.
class CBackendError : public orlo::CObject, public virtual IError {
public:
  CBackendError(Fault fault, const std::string& text, int number);

  std::int32_t getCode() const override { return static_cast<std::int32_t>(fault_); }
  const char* getString() const override { return text_.c_str(); }
  const char* getWhat() const override { return what_.c_str(); }
  std::int32_t getAdditionalCode() const override { return number_; }
  const char* getXML() const override { return nullptr; }

private:
  Fault fault_;
  std::string text_;
  std::string what_;
  int number_;
};

/// The error of the last call of this thread, null for none.
orlo::P<IError>& LastError();
void SetLastError(const CFailure& failure);

/// From within a catch block.
void SetLastErrorFromException() noexcept;

/// What a call gives, or nothing and an error. Whatever it throws stays here.
template <class Call>
auto Guarded(Call call) noexcept -> decltype(call()) {
  try {
    return call();
  } catch (...) {
    SetLastErrorFromException();
    return decltype(call())();
  }
}

}  // namespace vantra::ffmpeg
