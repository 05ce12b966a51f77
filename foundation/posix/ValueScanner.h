#pragma once

#include "foundation/posix/StoredValue.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace orlo::posix {

/// Why a line is not understood.
struct CValueTextError {
  std::string reason;
};

/// Reads names and values off a line of a settings file. All of it throws CValueTextError for what it does not know.
class CValueScanner {
public:
  explicit CValueScanner(std::string_view line) : line_(line) {}

  void skipBlanks();
  bool atEnd() const { return pos_ == line_.size(); }
  /// At a comment, or at the end.
  bool atRest() const { return atEnd() || line_[pos_] == '#'; }
  std::size_t getPos() const { return pos_; }

  bool take(char character);
  void expect(char character);
  /// Letters, digits, "_" and "-", or a text in quotes.
  std::string takeName();
  CStoredValue takeValue();

private:
  std::string_view takeWord();
  std::string takeQuoted();
  std::string takeLiteral();
  char32_t takeCodePoint(std::size_t digits);
  CStoredValue takePlain();
  CStoredValue takeTyped();

  std::string_view line_;
  std::size_t pos_ = 0;
};

}  // namespace orlo::posix
