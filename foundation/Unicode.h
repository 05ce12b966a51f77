#pragma once

#include <array>
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

/// Of the code points below 0x100, which are asked for most.
inline constexpr auto kFirstLower = [] {
  std::array<std::uint8_t, 0x100> lower{};
  for (unsigned i = 0; i < lower.size(); ++i) {
    const bool isUpper = (i >= 'A' && i <= 'Z') || (i >= 0xC0 && i <= 0xDE && i != 0xD7);
    lower[i] = static_cast<std::uint8_t>(isUpper ? i + 0x20 : i);
  }
  return lower;
}();

}  // namespace detail

/// Simple mappings: one code point to one. What has no mapping maps to itself.
inline char32_t toLower(char32_t codePoint) {
  return codePoint < detail::kFirstLower.size() ? detail::kFirstLower[codePoint] : detail::toLower(codePoint);
}
char32_t toUpper(char32_t codePoint);
char32_t toTitle(char32_t codePoint);

/// Cn, unassigned, for everything above U+2FA1D.
Category category(char32_t codePoint);

}  // namespace orlo::unicode
