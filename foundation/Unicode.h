#pragma once

#include <cstdint>

/// What the Unicode Character Database says about a code point.
namespace orlo::unicode {

/// General categories by their short names.
enum class Category : std::uint8_t {
  Lu,
  Ll,
  Lt,
  Lm,
  Lo,
  Mn,
  Mc,
  Me,
  Nd,
  Nl,
  No,
  Pc,
  Pd,
  Ps,
  Pe,
  Pi,
  Pf,
  Po,
  Sm,
  Sc,
  Sk,
  So,
  Zs,
  Zl,
  Zp,
  Cc,
  Cf,
  Cs,
  Co,
  Cn
};

namespace detail {
char32_t toLower(char32_t codePoint);
}

/// Simple mappings: one code point to one. What has no mapping maps to itself.
inline char32_t toLower(char32_t codePoint) {
  if (codePoint >= 0x80) return detail::toLower(codePoint);
  return codePoint >= U'A' && codePoint <= U'Z' ? codePoint + (U'a' - U'A') : codePoint;
}
char32_t toUpper(char32_t codePoint);
char32_t toTitle(char32_t codePoint);

/// Cn, unassigned, for everything above U+2FA1D.
Category category(char32_t codePoint);

}  // namespace orlo::unicode
