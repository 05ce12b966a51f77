#include "foundation/CharEncoding.h"
#include "tests/foundation_strings/TextSamples.h"

#include <climits>
#include <gtest/gtest.h>

#include <cstring>

using namespace samples;

namespace {

/// Each encoding with three characters of its own and the size of one.
struct CCase {
  CForm form;
  std::uint32_t id;
  const char* encodingName;
  int maxCharSize;
};

class CharEncoding : public testing::TestWithParam<CCase> {
protected:
  const ICharEncoding& encoding() const { return *GetParam().form.encoding(); }
  /// "aéz" in the encoding, and where its characters end.
  std::string sample() const { return content(GetParam().form.convert(textOf(U"aéz"))); }
  std::vector<int> ends() const {
    const int unit = encoding().getEncodedSize('a');
    const int accented = encoding().getEncodedSize(U'é');
    return {unit, unit + accented, 2 * unit + accented};
  }

private:
  CLocale locale_;
};

TEST_P(CharEncoding, HasItsTagAndName) {
  EXPECT_EQ(encoding().getId(), GetParam().id);
  EXPECT_EQ(encoding().getName(), GetParam().encodingName);
  EXPECT_EQ(encoding().getMaxCharSize(), GetParam().maxCharSize);
}

TEST_P(CharEncoding, WritesACharacterWhereThereIsPlace) {
  const int size = encoding().getEncodedSize(U'é');
  ASSERT_GT(size, 0);
  std::string buffer(static_cast<std::size_t>(size + 2), '#');
  auto* place = reinterpret_cast<unsigned char*>(buffer.data());
  EXPECT_EQ(encoding().encode(U'é', place, size + 2, 1), size + 1);
  EXPECT_EQ(buffer.front(), '#');
  EXPECT_EQ(buffer.back(), '#');
  EXPECT_EQ(buffer.substr(1, static_cast<std::size_t>(size)), content(GetParam().form.convert(textOf(U"é"))));
}

TEST_P(CharEncoding, WritesNothingWhereThereIsNone) {
  const int size = encoding().getEncodedSize(U'é');
  std::string buffer(static_cast<std::size_t>(size), '#');
  const std::string untouched = buffer;
  auto* place = reinterpret_cast<unsigned char*>(buffer.data());
  EXPECT_EQ(encoding().encode(U'é', place, size - 1, 0), -1);
  EXPECT_EQ(encoding().encode(U'é', place, size, 1), -1);
  EXPECT_EQ(encoding().encode(U'é', place, size, size + 1), -1);
  EXPECT_EQ(encoding().encode(U'é', place, size, -1), -1);
  EXPECT_EQ(buffer, untouched);
}

TEST_P(CharEncoding, HasNoPlaceForWhatIsNoCodePoint) {
  unsigned char buffer[8] = {};
  for (const char32_t outside : {0x110000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
    EXPECT_EQ(encoding().getEncodedSize(outside), 0);
    EXPECT_EQ(encoding().encode(outside, buffer, 8, 0), -1);
  }
}

TEST_P(CharEncoding, DecodesForwards) {
  const std::string sampleText = sample();
  const int size = static_cast<int>(sampleText.size());
  int pos = 0;
  std::u32string read;
  for (const int end : ends()) {
    char32_t strict = 0;
    char32_t skipping = 0;
    EXPECT_EQ(encoding().getCharSizeAt(raw(sampleText), size, pos), end - pos);
    EXPECT_EQ(encoding().decode(skipping, raw(sampleText), size, pos), end);
    pos = encoding().decodeStrict(strict, raw(sampleText), size, pos);
    EXPECT_EQ(pos, end);
    EXPECT_EQ(skipping, strict);
    read += strict;
  }
  EXPECT_EQ(read, U"aéz");
  char32_t none;
  EXPECT_EQ(encoding().decodeStrict(none, raw(sampleText), size, pos), -1);
  EXPECT_EQ(encoding().decode(none, raw(sampleText), size, pos), -1);
}

TEST_P(CharEncoding, CountsAndSkips) {
  const std::string sampleText = sample();
  const int size = static_cast<int>(sampleText.size());
  EXPECT_EQ(encoding().countChars(raw(sampleText), size, 0), 3);
  EXPECT_EQ(encoding().countChars(raw(sampleText), size, ends()[0]), 2);
  EXPECT_EQ(encoding().countChars(raw(sampleText), size, size), 0);
  EXPECT_EQ(encoding().skipChars(raw(sampleText), size, 0), 0);
  EXPECT_EQ(encoding().skipChars(raw(sampleText), size, 2), ends()[1]);
  EXPECT_EQ(encoding().skipChars(raw(sampleText), size, 3), size);
  EXPECT_EQ(encoding().skipChars(raw(sampleText), size, 4), -1);
  EXPECT_EQ(encoding().skipChars(raw(sampleText), size, -1), -1);
  EXPECT_EQ(encoding().findValid(raw(sampleText), size, 0), 0);
  EXPECT_EQ(encoding().findValid(raw(sampleText), size, size), -1);
}

TEST_P(CharEncoding, MeasuresToTheTerminator) {
  const std::string sampleText = sample() + std::string(4, '\0') + sample();
  EXPECT_EQ(encoding().measureTerminated(sampleText.data()), ends()[2]);
  const std::string none(4, '\0');
  EXPECT_EQ(encoding().measureTerminated(none.data()), 0);
}

TEST_P(CharEncoding, FailsAtPositionsOutsideTheBuffer) {
  const std::string sampleText = sample();
  const int size = static_cast<int>(sampleText.size());
  char32_t none;
  int place;
  int count = 7;
  for (const int outside : {INT_MIN, -1, size + 1, INT_MAX}) {
    EXPECT_EQ(encoding().getCharSizeAt(raw(sampleText), size, outside), -1);
    EXPECT_EQ(encoding().countChars(raw(sampleText), size, outside), -1);
    EXPECT_EQ(encoding().findValid(raw(sampleText), size, outside), -1);
    EXPECT_EQ(encoding().decodeStrict(none, raw(sampleText), size, outside), -1);
    EXPECT_EQ(encoding().decode(none, raw(sampleText), size, outside), -1);
    EXPECT_EQ(encoding().decodeRun(&none, &place, 1, count, raw(sampleText), size, outside), -1);
    EXPECT_EQ(count, 0);
    if (!encoding().canWalkBackwards()) continue;
    EXPECT_EQ(encoding().findValidBackwards(raw(sampleText), size, outside), -1);
    EXPECT_EQ(encoding().decodeStrictBackwards(none, raw(sampleText), size, outside), -1);
    EXPECT_EQ(encoding().decodeBackwards(none, raw(sampleText), size, outside), -1);
    EXPECT_EQ(encoding().decodeRunBackwards(&none, &place, 1, count, raw(sampleText), size, outside), -1);
    EXPECT_EQ(count, 0);
  }
}

TEST_P(CharEncoding, ReadsAnEmptyBuffer) {
  char32_t none;
  EXPECT_EQ(encoding().countChars(nullptr, 0, 0), 0);
  EXPECT_EQ(encoding().decode(none, nullptr, 0, 0), -1);
  EXPECT_EQ(encoding().findValid(nullptr, 0, 0), -1);
  EXPECT_EQ(encoding().skipChars(nullptr, 0, 0), 0);
}

TEST_P(CharEncoding, DecodesARunWithThePositionBehindEachCharacter) {
  const std::string sampleText = sample();
  const int size = static_cast<int>(sampleText.size());
  char32_t read[4] = {};
  int positions[4] = {};
  int count = 0;
  EXPECT_EQ(encoding().decodeRun(read, positions, 4, count, raw(sampleText), size, 0), size);
  ASSERT_EQ(count, 3);
  EXPECT_EQ(std::u32string(read, 3), U"aéz");
  EXPECT_EQ(std::vector<int>(positions, positions + 3), ends());

  EXPECT_EQ(encoding().decodeRun(read, positions, 2, count, raw(sampleText), size, 0), ends()[1]);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(encoding().decodeRun(read, positions, 2, count, raw(sampleText), size, size), -1);
  EXPECT_EQ(count, 0);
}

TEST_P(CharEncoding, DecodesBackwardsUnlessItIsTheCodePage) {
  if (!encoding().canWalkBackwards()) {
    EXPECT_EQ(GetParam().id, kCodePageTag);
    return;
  }
  const std::string sampleText = sample();
  const int size = static_cast<int>(sampleText.size());
  const std::vector<int> starts = {ends()[1], ends()[0], 0};
  int pos = size;
  std::u32string strictly;
  for (const int start : starts) {
    char32_t strict = 0;
    char32_t skipping = 0;
    EXPECT_EQ(encoding().findValidBackwards(raw(sampleText), size, pos), pos);
    EXPECT_EQ(encoding().decodeBackwards(skipping, raw(sampleText), size, pos), start);
    pos = encoding().decodeStrictBackwards(strict, raw(sampleText), size, pos);
    EXPECT_EQ(pos, start);
    EXPECT_EQ(skipping, strict);
    strictly += strict;
  }
  EXPECT_EQ(strictly, U"zéa");

  char32_t read[4] = {};
  int positions[4] = {};
  int count = 0;
  EXPECT_EQ(encoding().decodeRunBackwards(read, positions, 4, count, raw(sampleText), size, size), 0);
  ASSERT_EQ(count, 3);
  EXPECT_EQ(std::u32string(read, 3), U"zéa");
  EXPECT_EQ(std::vector<int>(positions, positions + 3), starts);
  EXPECT_EQ(encoding().decodeRunBackwards(read, positions, 1, count, raw(sampleText), size, size), ends()[1]);
  EXPECT_EQ(encoding().decodeRunBackwards(read, positions, 4, count, raw(sampleText), size, 0), -1);
  EXPECT_EQ(count, 0);
}

INSTANTIATE_TEST_SUITE_P(Each, CharEncoding,
                         testing::Values(CCase{forms()[0], 0x3154414C, "Latin-1", 1},
                                         CCase{forms()[1], 0x38465455, "UTF-8", 4},
                                         CCase{forms()[2], 0x36314655, "UTF-16", 4},
                                         CCase{forms()[3], 0x32334655, "UTF-32", 4},
                                         CCase{forms()[4], 0x47504443, "CodePage", 6}),
                         [](const auto& param) { return param.param.form.name; });

TEST(Latin1, HasTheFirst256CodePoints) {
  const ICharEncoding& latin1 = *getLatin1CharEncoding();
  for (char32_t codePoint = 0; codePoint < 0x100; ++codePoint) {
    unsigned char byte = 0;
    ASSERT_EQ(latin1.encode(codePoint, &byte, 1, 0), 1);
    EXPECT_EQ(byte, codePoint);
    char32_t read = 0x999;
    ASSERT_EQ(latin1.decodeStrict(read, &byte, 1, 0), 1);
    EXPECT_EQ(read, codePoint);
  }
  EXPECT_EQ(latin1.getEncodedSize(0x100), 0);
}

}  // namespace
