#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace host {

// Something about a page that its author should know.
struct Finding {
  enum class Level { error, warning };

  Level level = Level::error;
  long line = 0;
  std::string text;  // one line
};

// Keeps the first thousand and counts the others.
class Findings {
public:
  static constexpr std::size_t most = 1000;

  void error(long line, const std::string& text) { add(Finding::Level::error, line, text); }
  void warning(long line, const std::string& text) { add(Finding::Level::warning, line, text); }

  std::size_t errors() const { return errors_; }
  std::size_t warnings() const { return warnings_; }
  std::size_t leftOut() const { return errors_ + warnings_ - list_.size(); }
  // In the order of lines; those without a line come last.
  std::vector<Finding> sorted() const;

private:
  void add(Finding::Level level, long line, const std::string& text);

  std::vector<Finding> list_;
  std::size_t errors_ = 0;
  std::size_t warnings_ = 0;
};

}  // namespace host
