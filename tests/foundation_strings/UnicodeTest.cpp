#include "foundation/Unicode.h"
#include "tests/foundation_strings/TextSamples.h"

#include <gtest/gtest.h>

#include <cwctype>
#include <fstream>
#include <sstream>

using namespace samples;
using unicode::Category;

namespace {

TEST(CaseTable, MapsLettersOfManyScripts) {
  EXPECT_EQ(unicode::toLower('A'), U'a');
  EXPECT_EQ(unicode::toUpper('z'), U'Z');
  EXPECT_EQ(unicode::toLower(U'É'), U'é');
  EXPECT_EQ(unicode::toUpper(U'ω'), U'Ω');
  EXPECT_EQ(unicode::toLower(U'Я'), U'я');
  EXPECT_EQ(unicode::toLower(U'\u1E9E'), U'ß');
  EXPECT_EQ(unicode::toUpper(U'ß'), U'ß');
  EXPECT_EQ(unicode::toUpper(U'ÿ'), U'\u0178');
  EXPECT_EQ(unicode::toUpper(U'µ'), U'\u039C');
  EXPECT_EQ(unicode::toLower(U'\U00010400'), U'\U00010428');
  EXPECT_EQ(unicode::toUpper(U'\U0001E943'), U'\U0001E921');
}

TEST(CaseTable, MapsOverMoreThanHalfAPlane) {
  EXPECT_EQ(unicode::toLower(0xA7AA), 0x266u);
  EXPECT_EQ(unicode::toUpper(0x266), 0xA7AAu);
  EXPECT_EQ(unicode::toUpper(0x1C88), 0xA64Au);
  EXPECT_EQ(unicode::toUpper(0xAB70), 0x13A0u);
}

TEST(CaseTable, HasATitleCaseOfItsOwn) {
  EXPECT_EQ(unicode::toTitle(0x1C4), 0x1C5u);
  EXPECT_EQ(unicode::toTitle(0x1C6), 0x1C5u);
  EXPECT_EQ(unicode::toUpper(0x1C6), 0x1C4u);
  EXPECT_EQ(unicode::toTitle('a'), U'A');
  EXPECT_EQ(unicode::toTitle(0x10D0), 0x10D0u);
}

TEST(CaseTable, MapsEverythingElseToItself) {
  for (const char32_t codePoint :
       {U'1', U'日', char32_t{0xD800}, char32_t{0x2FA1D}, char32_t{0x2FA1E}, char32_t{0x10FFFF}, char32_t{0x110000},
        char32_t{0x80000041}, char32_t{0xFFFFFFFF}}) {
    EXPECT_EQ(unicode::toLower(codePoint), codePoint);
    EXPECT_EQ(unicode::toUpper(codePoint), codePoint);
    EXPECT_EQ(unicode::toTitle(codePoint), codePoint);
  }
}

TEST(CaseTable, KnowsGeneralCategories) {
  EXPECT_EQ(unicode::category('A'), Category::Lu);
  EXPECT_EQ(unicode::category(U'é'), Category::Ll);
  EXPECT_EQ(unicode::category('7'), Category::Nd);
  EXPECT_EQ(unicode::category(' '), Category::Zs);
  EXPECT_EQ(unicode::category(U'€'), Category::Sc);
  EXPECT_EQ(unicode::category(U'日'), Category::Lo);
  EXPECT_EQ(unicode::category(0xD800), Category::Cs);
  EXPECT_EQ(unicode::category(0x378), Category::Cn);
  EXPECT_EQ(unicode::category(0x2FA1D), Category::Lo);
  EXPECT_EQ(unicode::category(0x2FA1E), Category::Cn);
  EXPECT_EQ(unicode::category(0xFFFFFFFF), Category::Cn);
}

/// The mapping in a field of the database, the code point itself if it is empty.
char32_t mappingIn(const std::string& field, char32_t codePoint) {
  return field.empty() ? codePoint : static_cast<char32_t>(std::stoul(field, nullptr, 16));
}

TEST(CaseTable, AgreesWithTheUnicodeCharacterDatabase) {
  std::ifstream database("/usr/share/unicode/UnicodeData.txt");
  if (!database) GTEST_SKIP() << "the package unicode-data is not installed";
  int mapped = 0;
  for (std::string line; std::getline(database, line);) {
    std::vector<std::string> fields;
    std::istringstream fieldsOfLine(line + ";end");
    for (std::string field; std::getline(fieldsOfLine, field, ';');) fields.push_back(field);
    ASSERT_EQ(fields.size(), 16u) << line;
    const auto codePoint = static_cast<char32_t>(std::stoul(fields[0], nullptr, 16));
    const char32_t upper = mappingIn(fields[12], codePoint);
    ASSERT_EQ(unicode::toUpper(codePoint), upper) << line;
    ASSERT_EQ(unicode::toLower(codePoint), mappingIn(fields[13], codePoint)) << line;
    ASSERT_EQ(unicode::toTitle(codePoint), fields[14].empty() ? upper : mappingIn(fields[14], codePoint)) << line;
    mapped += codePoint != upper;
  }
  EXPECT_GT(mapped, 1400);
}

TEST(CaseTable, AgreesWithTheRuntimeLibraryOnTheAlphabetsOfEurope) {
  const CLocale locale("C.UTF-8");
  for (char32_t codePoint = 0; codePoint < 0x530; ++codePoint) {
    EXPECT_EQ(unicode::toLower(codePoint), std::towlower(static_cast<wint_t>(codePoint)))
        << static_cast<unsigned>(codePoint);
    EXPECT_EQ(unicode::toUpper(codePoint), std::towupper(static_cast<wint_t>(codePoint)))
        << static_cast<unsigned>(codePoint);
  }
}

TEST(StringCase, ChangesEveryCharacterInTheEncodingOfTheText) {
  for (const CForm& form : forms()) {
    const CLocale locale;
    const String text = form.convert(textOf(U"Größe É 7"));
    EXPECT_EQ(codePoints(text.toLower()), U"größe é 7") << form.name;
    EXPECT_EQ(codePoints(text.toUpper()), U"GRÖßE É 7") << form.name;
    EXPECT_EQ(text.toLower().getEncodingId(), text.getEncodingId());
  }
  EXPECT_EQ(String(u"ΑΒ \U00010400").toLower(), u"αβ \U00010428");
}

TEST(StringCase, LeavesACharacterWhoseOtherCaseTheEncodingDoesNotHave) {
  EXPECT_EQ(String("\xFF\xB5").toUpper(), "\xFF\xB5");
  EXPECT_EQ(String(u"\u00FF\u00B5").toUpper(), u"\u0178\u039C");
}

TEST(StringCase, ChangesTheSizeWhereTheOtherCaseNeedsMore) {
  const String text = toUTF8(u"\u023A");
  EXPECT_EQ(text.getByteSize(), 2);
  EXPECT_EQ(text.toLower(), u"\u2C65");
  EXPECT_EQ(text.toLower().getByteSize(), 3);
}

TEST(StringCase, OfAnEmptyTextIsEmpty) {
  EXPECT_EQ(String().toLower(), "");
  EXPECT_FALSE(String(nullptr).toUpper().isNull());
}

}  // namespace
