#include "backend/ffmpeg/LastError.h"

extern "C" {
#include <libavutil/error.h>
}

#include <array>

namespace vantra::ffmpeg {

namespace {

std::string WhatOf(int number) {
  if (number == 0) return {};
  std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
  av_strerror(number, text.data(), text.size());
  return text.data();
}

void Set(Fault fault, const std::string& text, int number) {
  LastError() = orlo::makeObject<CBackendError>(fault, text, number);
}

}  // namespace

CBackendError::CBackendError(Fault fault, const std::string& text, int number)
    : fault_(fault), text_(text), what_(number ? text + ": " + WhatOf(number) : text), number_(number) {}

orlo::P<IError>& LastError() {
  static thread_local orlo::P<IError> error;
  return error;
}

void SetLastError(const CFailure& failure) {
  Set(failure.GetFault(), orlo::toStdString(failure.getMessage()), failure.GetNumber());
}

void SetLastErrorFromException() noexcept {
  try {
    throw;
  } catch (const CFailure& failure) {
    SetLastError(failure);
  } catch (const orlo::CException& error) {
    Set(Fault::infile, orlo::toStdString(error.getMessage()), 0);
  } catch (const std::bad_alloc&) {
    Set(Fault::memory, "There is not enough memory", 0);
  } catch (...) {
    Set(Fault::notPlayable, "Unspecified error", 0);
  }
}

}  // namespace vantra::ffmpeg
