#pragma once

#include <cstdint>

/// The generated table: per kind a page number for each kPageSize code points, and the pages, which are shared.
namespace orlo::unicode {

inline constexpr char32_t kLastCodePoint = 0x2FA1D;
inline constexpr std::uint32_t kPageSize = 128;

/// Deltas are added modulo 2^16 to the code point, which stays in its plane.
extern const std::uint8_t kLowerPages[];
extern const std::uint8_t kUpperPages[];
extern const std::uint8_t kTitlePages[];
extern const std::int16_t kDeltas[];

extern const std::uint8_t kCategoryPages[];
extern const std::uint8_t kCategories[];

}  // namespace orlo::unicode
