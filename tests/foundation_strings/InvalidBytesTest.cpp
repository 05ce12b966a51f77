// What the encodings refuse, against the runtime library's iconv.

#include "tests/foundation_strings/RandomTexts.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <iconv.h>
#include <stdexcept>

using namespace samples;

namespace {

constexpr bool kLittle = std::endian::native == std::endian::little;

/// One character at the start of the bytes, as iconv reads it.
class CIconvReader {
public:
  explicit CIconvReader(const char* from) : converter_(iconv_open(kLittle ? "UTF-32LE" : "UTF-32BE", from)) {
    if (converter_ == reinterpret_cast<iconv_t>(-1)) throw std::runtime_error("iconv_open");
  }
  ~CIconvReader() { iconv_close(converter_); }
  CIconvReader(const CIconvReader&) = delete;
  CIconvReader& operator=(const CIconvReader&) = delete;

  /// The size of the character, -1 if there is none.
  int read(char32_t& codePoint, std::string bytes) {
    char* in = bytes.data();
    std::size_t inLeft = bytes.size();
    char* out = reinterpret_cast<char*>(&codePoint);
    std::size_t outLeft = sizeof codePoint;
    iconv(converter_, &in, &inLeft, &out, &outLeft);
    iconv(converter_, nullptr, nullptr, nullptr, nullptr);
    return outLeft == 0 ? static_cast<int>(bytes.size() - inLeft) : -1;
  }

private:
  iconv_t converter_;
};

/// What an encoding reads on purpose otherwise than iconv does.
struct CDifference {
  /// True if it lies in these bytes; then this is what is read of them.
  bool applies = false;
  int size = -1;
  char32_t codePoint = 0;
};

unsigned byteAt(const std::string& text, std::size_t index) {
  return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

CDifference differenceOfUTF8(const std::string& text) {
  const unsigned lead = byteAt(text, 0);
  const unsigned second = byteAt(text, 1);
  const unsigned third = byteAt(text, 2);
  const auto continues = [](unsigned byte) { return byte >= 0x80 && byte < 0xC0; };
  if (lead == 0xE0 || lead == 0xF0) return {true};
  if (lead == 0xC1 && continues(second)) return {true, 2, 0x40 | (second & 0x3F)};
  if (lead == 0xED && second >= 0xA0 && continues(second) && continues(third))
    return {true, 3, 0xD000 | (second & 0x3F) << 6 | (third & 0x3F)};
  return {};
}

/// Surrogates that are not a pair.
CDifference differenceOfUTF16(const std::string& text) {
  char16_t unit = 0;
  char16_t behind = 0;
  if (text.size() >= 2) std::memcpy(&unit, text.data(), 2);
  if (text.size() >= 4) std::memcpy(&behind, text.data() + 2, 2);
  const bool paired = unit < 0xDC00 && behind >= 0xDC00 && behind < 0xE000;
  if (unit < 0xD800 || unit >= 0xE000 || paired) return {};
  return {true, 2, unit};
}

CDifference differenceOfUTF32(const std::string& text) {
  char32_t unit = 0;
  if (text.size() >= 4) std::memcpy(&unit, text.data(), 4);
  if (unit < 0xD800 || unit >= 0xE000) return {};
  return {true, 4, unit};
}

CDifference noDifference(const std::string&) {
  return {};
}

struct CStrictPeer {
  const char* name;
  CForm form;
  CDifference (*difference)(const std::string&);
};

class InvalidBytes : public testing::TestWithParam<CStrictPeer> {};

TEST_P(InvalidBytes, AreInvalidToIconvTooUnlessMeantOtherwise) {
  const CLocale locale;
  const ICharEncoding& encoding = *GetParam().form.encoding();
  const int unit = encoding.getEncodedSize('a');
  CIconvReader peer(GetParam().name);
  std::mt19937 random(2);
  int valid = 0;
  int invalid = 0;
  int different = 0;
  for (int round = 0; round < 20000 && !HasFailure(); ++round) {
    const std::string content = randomBytes(random, static_cast<std::size_t>(unit));
    for (int pos = 0; pos < static_cast<int>(content.size()); pos += unit) {
      const std::string rest = content.substr(static_cast<std::size_t>(pos));
      const CDifference difference = GetParam().difference(rest);
      char32_t expected = difference.codePoint;
      const int size = difference.applies ? difference.size : peer.read(expected, rest);
      char32_t codePoint = 0;
      const int behind = encoding.decodeStrict(codePoint, raw(rest), static_cast<int>(rest.size()), 0);
      ASSERT_EQ(behind, size) << testing::PrintToString(rest);
      if (size > 0) {
        ASSERT_EQ(codePoint, expected) << testing::PrintToString(rest);
      }
      ++(difference.applies ? different : size > 0 ? valid : invalid);
    }
  }
  EXPECT_GT(valid, 1000);
  EXPECT_TRUE(invalid > 1000 || encoding.getId() == kLatin1Tag);
  EXPECT_EQ(different > 100, GetParam().difference != noDifference);
}

INSTANTIATE_TEST_SUITE_P(Of, InvalidBytes,
                         testing::Values(CStrictPeer{"ISO-8859-1", forms()[0], noDifference},
                                         CStrictPeer{"UTF-8", forms()[1], differenceOfUTF8},
                                         CStrictPeer{kLittle ? "UTF-16LE" : "UTF-16BE", forms()[2], differenceOfUTF16},
                                         CStrictPeer{kLittle ? "UTF-32LE" : "UTF-32BE", forms()[3], differenceOfUTF32},
                                         CStrictPeer{"UTF-8", forms()[4], noDifference}),
                         [](const auto& param) { return param.param.form.name; });

}  // namespace
