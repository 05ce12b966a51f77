#include "foundation/Unicode.h"

#include "foundation/UnicodeTable.h"

namespace orlo::unicode {

namespace {

char32_t mapped(char32_t codePoint, const std::uint8_t* pages) {
  if (codePoint > kLastCodePoint) return codePoint;
  const std::int16_t delta = kDeltas[pages[codePoint / kPageSize] * kPageSize + codePoint % kPageSize];
  const char32_t plane = codePoint & 0xFFFF0000;
  return plane | static_cast<std::uint16_t>(codePoint + static_cast<std::uint16_t>(delta));
}

}  // namespace

char32_t detail::toLower(char32_t codePoint) {
  return mapped(codePoint, kLowerPages);
}

char32_t toUpper(char32_t codePoint) {
  return mapped(codePoint, kUpperPages);
}

char32_t toTitle(char32_t codePoint) {
  return mapped(codePoint, kTitlePages);
}

Category category(char32_t codePoint) {
  if (codePoint > kLastCodePoint) return Category::Cn;
  return static_cast<Category>(kCategories[kCategoryPages[codePoint / kPageSize] * kPageSize + codePoint % kPageSize]);
}

}  // namespace orlo::unicode
