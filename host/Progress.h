#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace host {

// One line on standard error that counts frames, there only when standard error is a terminal. The line goes away with
// the object.
class Progress {
public:
  explicit Progress(std::optional<std::int64_t> total);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void show(std::int64_t done);

private:
  using Clock = std::chrono::steady_clock;

  const bool visible_;
  const std::optional<std::int64_t> total_;
  Clock::time_point next_;
};

}  // namespace host
