#include "foundation/Cast.h"
#include "foundation/StringSlice.h"
#include "tests/foundation_strings/TextSamples.h"

#include <climits>
#include <gtest/gtest.h>

using namespace samples;

namespace {

constexpr CStringPos kEnd = CStringPos::end();

const IString* rootOf(const String& text) {
  return &text.getText().getRoot();
}

TEST(StringSlice, IsAWindowOfTheSameBytes) {
  for (const CForm& form : forms()) {
    const CLocale locale;
    const String text = form.convert(textOf(U"aébcd"));
    const String slice = text.substring(text.positionAt(1), text.positionAt(4));
    EXPECT_EQ(slice, U"ébc") << form.name;
    EXPECT_EQ(slice.length(), 3);
    EXPECT_EQ(slice.getEncodingId(), text.getEncodingId());
    EXPECT_EQ(slice.getData(), static_cast<const char*>(text.getData()) + text.positionAt(1).byteOffset);
    EXPECT_EQ(rootOf(slice), &text.getText());
    EXPECT_NE(tryCast<CStringSlice>(slice.getObject()), nullptr);
    EXPECT_FALSE(slice.isNull());
    EXPECT_EQ(text.substring(1, 3), slice);
  }
}

TEST(StringSlice, KeepsItsParentAlive) {
  String slice;
  {
    const String text = fromUTF8("a text of its own memory");
    slice = text.substring(2, 4);
  }
  EXPECT_EQ(slice, "text");
}

TEST(StringSlice, OfASliceRefersToTheFirstParent) {
  const String text = fromUTF8("0123456789");
  const String outer = text.substring(2, 6);
  const String inner = outer.substring(1, 3);
  EXPECT_EQ(inner, "345");
  EXPECT_EQ(rootOf(inner), &text.getText());
  EXPECT_EQ(inner.find("5"), (CStringPos{2, 2}));
}

TEST(StringSlice, IsTerminatedOnlyWhereItEndsWithATerminatedParent) {
  const String text = fromUTF8("terminated");
  EXPECT_TRUE(text.substring(4, 6).isTerminated());
  EXPECT_FALSE(text.substring(4, 5).isTerminated());
  EXPECT_TRUE(text.substring(4, 6).substring(1, 5).isTerminated());
  EXPECT_FALSE(text.substring(4, 5).substring(1, 4).isTerminated());
  const char open[] = {'o', 'p', 'e', 'n'};
  const String unterminated = P<IString>(makeObject<CLatin1String>(open, CString::Storage::reference, 4, false));
  EXPECT_FALSE(unterminated.substring(2, 2).isTerminated());
}

TEST(StringSlice, IsCopiedToBeTerminated) {
  const String text = fromUTF8("a text");
  const String slice = text.substring(0, 3);
  const String copy = slice.toTerminated();
  EXPECT_TRUE(copy.isTerminated());
  EXPECT_EQ(copy, "a t");
  EXPECT_EQ(rootOf(copy), &copy.getText());
  EXPECT_NE(tryCast<CString>(copy.getObject()), nullptr);
  const String tail = text.substring(2, 4);
  EXPECT_EQ(tail.toTerminated().getObject(), tail.getObject());
}

TEST(StringSlice, OfAWideTextIsCopiedByToWide) {
  const String text = u"a wide text";
  EXPECT_EQ(toWide(text).getObject(), text.getObject());
  const String slice = text.substring(2, 4);
  const String copy = toWide(slice);
  EXPECT_NE(copy.getObject(), slice.getObject());
  EXPECT_TRUE(copy.isTerminated());
  EXPECT_EQ(copy, u"wide");
  EXPECT_EQ(content(copy), content(slice));
}

TEST(StringSlice, IsEmptyOutsideTheText) {
  const String text = "text";
  for (const auto& [index, count] :
       {std::pair{-1, 2}, {4, 1}, {5, 1}, {INT_MAX, INT_MAX}, {INT_MIN, 1}, {1, 0}, {1, -1}, {1, INT_MIN}}) {
    const String slice = text.substring(index, count);
    EXPECT_TRUE(slice.isEmpty()) << index << ' ' << count;
    EXPECT_EQ(slice.getByteSize(), 0);
    EXPECT_FALSE(slice.isNull());
    EXPECT_EQ(slice.getEncodingId(), kLatin1Tag);
  }
  EXPECT_TRUE(text.substring(text.positionAt(3), text.positionAt(1)).isEmpty());
  EXPECT_TRUE(text.substring(kEnd, kEnd).isEmpty());
  EXPECT_TRUE(text.substring({9, 9}, {12, 12}).isEmpty());
  EXPECT_TRUE(text.substring({-5, -5}, {-7, -7}).substring(1, 1).isEmpty());
  EXPECT_TRUE(String(nullptr).substring(0, 1).isEmpty());
  EXPECT_TRUE(String().substring(0, 1).isEmpty());
}

TEST(StringSlice, GoesToTheEndForACountBehindIt) {
  EXPECT_EQ(String("text").substring(2, 2), "xt");
  EXPECT_EQ(String("text").substring(2, 3), "xt");
  EXPECT_EQ(String("text").substring(0, INT_MAX), "text");
  EXPECT_EQ(String("text").substring(CStringPos{}), "text");
}

TEST(StringSlice, DoesEverythingThatAStringDoes) {
  const CLocale locale;
  for (const CForm& form : forms()) {
    const String text = form.convert(textOf(U"<<Größe, größer>>"));
    const String slice = text.substring(2, 13);
    ASSERT_EQ(slice, U"Größe, größer") << form.name;
    EXPECT_EQ(slice.compare(U"Größe"), 1);
    EXPECT_EQ(slice.getText().compare(PC<IBase>(text.getObject())), 1) << form.name;
    EXPECT_TRUE(slice.equalsIgnoreCase(U"GRÖßE, GRÖßER"));
    EXPECT_TRUE(slice.startsWith("Gr"));
    EXPECT_TRUE(slice.endsWithIgnoreCase("ER"));
    EXPECT_EQ(slice.find(U"größe").index, 7);
    EXPECT_EQ(slice.find("<"), kEnd);
    EXPECT_EQ(slice.find(">"), kEnd);
    EXPECT_EQ(slice.findAnyOf(",").index, 5);
    EXPECT_EQ(slice.replace(U"ö", "oe"), U"Groeße, groeßer");
    EXPECT_EQ(slice.toUpper(), U"GRÖßE, GRÖßER");
    EXPECT_EQ(slice + "!", U"Größe, größer!");
    EXPECT_EQ(codePoints(slice), U"Größe, größer");
    EXPECT_EQ(slice.getHash(), toUTF32(slice).getHash());
    if (!slice.getEncoding()->canWalkBackwards()) continue;
    EXPECT_EQ(slice.findLast("r").index, 12);
    EXPECT_EQ(slice.findLastAnyOf("<>"), kEnd);
  }
}

TEST(StringSlice, LeavesOutInvalidBytesLikeItsParent) {
  const String text = bytes(
      "a\xFF\xFF"
      "b\xFF"
      "c\xFF",
      getUTF8CharEncoding());
  EXPECT_EQ(text.substring(1, 1), "b");
  EXPECT_EQ(text.substring(1, 1).length(), 1);
  EXPECT_EQ(text.substring(1, 2), "bc");
  EXPECT_TRUE(text.substring(2, 1).isTerminated());
}

TEST(Strip, CutsASetAtTheEndsNamed) {
  const CLocale locale;
  for (const CForm& form : forms()) {
    const String text = form.convert(textOf(U" \té x é \t"));
    EXPECT_EQ(text.strip(" \t"), U"é x é") << form.name;
    EXPECT_EQ(text.strip(U"é \t"), "x");
    EXPECT_EQ(text.strip(" \t", true, false), U"é x é \t");
    EXPECT_EQ(text.strip(" \t", false, true), U" \té x é");
    EXPECT_EQ(text.strip(" \t", false, false), text);
    EXPECT_EQ(text.strip(U' '), U"\té x é \t");
    EXPECT_EQ(text.strip(""), text);
    EXPECT_EQ(rootOf(text.strip(" ")), &text.getText());
  }
}

TEST(Strip, HeedsTheCaseUnlessToldOtherwise) {
  EXPECT_EQ(String("xXaXx").strip("x"), "XaX");
  EXPECT_EQ(String("xXaXx").strip("x", true, true, true), "a");
  EXPECT_EQ(String("xXaXx").strip(U'X', true, false, true), "aXx");
  EXPECT_EQ(String(u"ÉaÉ").strip(u8"é", false, true, true), u"Éa");
}

TEST(Strip, GivesTheEmptyStringWhereNothingIsLeft) {
  const String text = u"    ";
  for (const auto& [left, right] : {std::pair{true, true}, {true, false}, {false, true}}) {
    const String result = text.strip(" ", left, right);
    EXPECT_TRUE(result.isEmpty());
    EXPECT_EQ(result.getObject(), String().getObject());
  }
  EXPECT_EQ(String(nullptr).strip(" ").getObject(), String().getObject());
  EXPECT_EQ(String(u"").strip(" ", false, false).getObject(), String().getObject());
}

TEST(Hash, FollowsItsFormula) {
  EXPECT_EQ(String().getHash(), 0);
  EXPECT_EQ(String("a").getHash(), 0x61);
  // (0x61 << 3) ^ ((0x61 >> 2) ^ 0x62)
  EXPECT_EQ(String("ab").getHash(), 0x308 ^ 0x18 ^ 0x62);
  EXPECT_EQ(String(U"\U0010FFFF").getHash(), 0x10FFFF);
}

TEST(Hash, IsThatOfTheCodePoints) {
  const CLocale locale;
  const String text = textOf(U"Größe, ein längerer Text mit é und ü, damit alle Bits an die Reihe kommen");
  for (const CForm& form : forms()) EXPECT_EQ(form.convert(text).getHash(), text.getHash()) << form.name;
  EXPECT_EQ(String("a").getHash(), String(u"a").getHash());
  EXPECT_NE(String("ab").getHash(), String("ba").getHash());
  EXPECT_GE(text.getHash(), 0);
}

}  // namespace
