#pragma once

namespace orlo {

/// A place in a text of characters that vary in width. Valid only for the string that handed it out.
struct CStringPos {
  /// In characters.
  int index = 0;
  int byteOffset = 0;

  /// Behind the last character; also what a search answers that finds nothing.
  static constexpr CStringPos end() { return {-1, -1}; }
  constexpr bool isEnd() const { return index < 0; }

  friend constexpr bool operator==(const CStringPos&, const CStringPos&) = default;
};

}  // namespace orlo
