#pragma once

#include "foundation/Error.h"

#include <cstdint>
#include <string>

namespace vantra::ffmpeg {

/// What getCode of an error says.
enum class Fault : std::int32_t {
  kind = 1,
  infile,
  theme,
  notLocal,
  notFound,
  notPlayable,
  limit,
  skipped,
  memory,
  deadline,
  closed,
};

/// Why something can't be played. The text is UTF-8, the number FFmpeg's own or 0.
class CFailure : public orlo::CError {
public:
  CFailure(Fault fault, const std::string& text, int number = 0)
      : CError(orlo::fromUTF8(text)), fault_(fault), number_(number) {}
  orlo::P<orlo::CException> clone() const override { return copyOf(*this); }

  Fault GetFault() const { return fault_; }
  int GetNumber() const { return number_; }

private:
  Fault fault_;
  int number_;
};

}  // namespace vantra::ffmpeg
