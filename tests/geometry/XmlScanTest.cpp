#include "graphics/geometry/XmlScan.h"

#include <gtest/gtest.h>

#include <string_view>

namespace graphics::xml {
namespace {

std::string ScanText(std::string_view text, CScanLimits limits = {3, 5}) {
  return Scan({reinterpret_cast<const unsigned char*>(text.data()), text.size()}, limits).problem;
}

EScan VerdictOn(std::string_view text) {
  return Scan({reinterpret_cast<const unsigned char*>(text.data()), text.size()}, {3, 5}).verdict;
}

TEST(XmlScan, TellsMalformedTextFromTextBeyondItsLimits) {
  EXPECT_EQ(VerdictOn("<a/>"), EScan::good);
  EXPECT_EQ(VerdictOn("<a>"), EScan::malformed);
  EXPECT_EQ(VerdictOn("<a><b><c><d/></c></b></a>"), EScan::beyondLimit);
}

TEST(XmlScan, FindsNothingWrongWithADocumentWithinItsLimits) {
  EXPECT_EQ(ScanText("<a><b><c/></b><b/><b/></a>"), "");
}

TEST(XmlScan, TellsTheLineOfWhatIsNotWellFormed) {
  EXPECT_EQ(ScanText("<a>\n<b></a>"), "line 2: mismatched tag");
  EXPECT_NE(ScanText(""), "");
}

TEST(XmlScan, RefusesWhatNestsTooDeep) {
  EXPECT_EQ(ScanText("<a>\n<b><c><d/></c></b></a>"), "line 2: elements nest more than 3 deep");
}

TEST(XmlScan, RefusesTooManyElements) {
  EXPECT_EQ(ScanText("<a><b/><b/><b/><b/><b/></a>"), "line 1: more than 5 elements");
}

TEST(XmlScan, WalksOneByteEncodingsThatItDoesNotKnow) {
  EXPECT_EQ(ScanText("<?xml version='1.0' encoding='windows-1252'?><a>\x80</a>"), "");
  EXPECT_NE(ScanText("<?xml version='1.0' encoding='windows-1252'?><a><b><c><d/></c></b></a>"), "");
}

}  // namespace
}  // namespace graphics::xml
