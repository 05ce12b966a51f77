// The encodings against the runtime library's iconv, and against themselves on random bytes.

#include "tests/foundation_strings/RandomTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <iconv.h>
#include <random>

using namespace samples;

namespace {

constexpr bool kLittle = std::endian::native == std::endian::little;

std::string converted(std::string source, const char* from, const char* to) {
  const iconv_t converter = iconv_open(to, from);
  if (converter == reinterpret_cast<iconv_t>(-1)) throw std::runtime_error("iconv_open");
  std::string result(source.size() * 4 + 16, '\0');
  char* in = source.data();
  std::size_t inLeft = source.size();
  char* out = result.data();
  std::size_t outLeft = result.size();
  const std::size_t failed = iconv(converter, &in, &inLeft, &out, &outLeft);
  iconv_close(converter);
  if (failed == static_cast<std::size_t>(-1)) throw std::runtime_error("iconv");
  result.resize(result.size() - outLeft);
  return result;
}

/// All code points of Unicode but the surrogates, up to a bound.
std::u32string everything(char32_t bound) {
  std::u32string result;
  for (char32_t codePoint = 0; codePoint < bound; ++codePoint)
    if (codePoint < 0xD800 || codePoint >= 0xE000) result += codePoint;
  return result;
}

bool readableInUTF8(char32_t codePoint) {
  return !(codePoint >= 0x800 && codePoint < 0x1000) && !(codePoint >= 0x10000 && codePoint < 0x40000);
}

struct CPeer {
  const char* name;
  CForm form;
  char32_t bound;
};

class Iconv : public testing::TestWithParam<CPeer> {
protected:
  std::string byIconv(const std::u32string& text) const {
    const std::string source(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char32_t));
    return converted(source, kLittle ? "UTF-32LE" : "UTF-32BE", GetParam().name);
  }
  CLocale locale_;
};

TEST_P(Iconv, WritesEveryCharacterTheSame) {
  const std::u32string all = everything(GetParam().bound);
  const String text = GetParam().form.convert(textOf(all));
  EXPECT_TRUE(content(text) == byIconv(all));
}

TEST_P(Iconv, ReadsWhatItWrites) {
  std::u32string all = everything(GetParam().bound);
  if (GetParam().form.encoding()->getId() == kUTF8Tag)
    std::erase_if(all, [](char32_t codePoint) { return !readableInUTF8(codePoint); });
  std::shuffle(all.begin(), all.end(), std::mt19937(1));
  const String text = bytes(byIconv(all), GetParam().form.encoding());
  EXPECT_EQ(text.length(), static_cast<int>(all.size()));
  EXPECT_TRUE(codePoints(text) == all);
  EXPECT_TRUE(text == textOf(all));
}

INSTANTIATE_TEST_SUITE_P(Agrees, Iconv,
                         testing::Values(CPeer{"ISO-8859-1", forms()[0], 0x100}, CPeer{"UTF-8", forms()[1], 0x110000},
                                         CPeer{kLittle ? "UTF-16LE" : "UTF-16BE", forms()[2], 0x110000},
                                         CPeer{kLittle ? "UTF-32LE" : "UTF-32BE", forms()[3], 0x110000},
                                         CPeer{"UTF-8", forms()[4], 0x110000}),
                         [](const auto& param) { return param.param.form.name; });

struct CStep {
  char32_t codePoint;
  int start;
  int end;
  bool operator==(const CStep&) const = default;
};

class Bytes : public testing::TestWithParam<CForm> {};

TEST_P(Bytes, GiveTheSameCharactersForwardsAndBackwards) {
  const ICharEncoding& encoding = *GetParam().encoding();
  std::mt19937 random(1);
  std::size_t characters = 0;
  for (int round = 0; round < 20000; ++round) {
    const std::string content = randomBytes(random, static_cast<std::size_t>(encoding.getEncodedSize('a')));
    const int size = static_cast<int>(content.size());
    std::vector<CStep> forwards;
    char32_t codePoint;
    for (int pos = 0, behind; (behind = encoding.decode(codePoint, raw(content), size, pos)) >= 0; pos = behind)
      forwards.push_back({codePoint, encoding.findValid(raw(content), size, pos), behind});
    std::vector<CStep> backwards;
    for (int pos = size, start; (start = encoding.decodeBackwards(codePoint, raw(content), size, pos)) >= 0;
         pos = start)
      backwards.push_back({codePoint, start, encoding.findValidBackwards(raw(content), size, pos)});
    std::reverse(backwards.begin(), backwards.end());
    ASSERT_TRUE(forwards == backwards) << testing::PrintToString(content);
    ASSERT_EQ(encoding.countChars(raw(content), size, 0), static_cast<int>(forwards.size()));
    characters += forwards.size();
  }
  EXPECT_GT(characters, 20000u);
}

INSTANTIATE_TEST_SUITE_P(Any, Bytes, testing::Values(forms()[0], forms()[1], forms()[2], forms()[3]),
                         [](const auto& param) { return param.param.name; });

}  // namespace
