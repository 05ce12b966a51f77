#include "backend/infilexml/Infile.h"
#include "tests/infilexml/Nodes.h"

#include <gtest/gtest.h>

namespace vantra::infilexml {

namespace {

TEST(InfileText, OfAnotherTextIsNone) {
  EXPECT_FALSE(FromText(""));
  EXPECT_FALSE(FromText("words"));
  EXPECT_FALSE(FromText("<infile>"));
  EXPECT_FALSE(FromText("<Infile/>"));
  EXPECT_FALSE(FromText("<project/>"));
  EXPECT_FALSE(FromText(R"(<!DOCTYPE infile [<!ENTITY a "b">]><infile id="&a;"/>)"));
  EXPECT_TRUE(FromText("<?xml version='1.0'?><!-- a --><infile/>"));
}

std::string readRefusal(const std::string& text) {
  return refusalOf([&] { FromText(text); });
}

TEST(InfileText, ThatIsTooDeepOrTooLargeIsAnError) {
  std::string deep;
  for (int i = 0; i < 1'000'000; ++i) deep += "<a>";
  EXPECT_EQ(readRefusal(deep), "The elements of an infile may lie at most 64 deep");
  std::string many = "<infile>";
  for (int i = 0; i < 200'000; ++i) many += "<a/>";
  EXPECT_EQ(readRefusal(many + "</infile>"), "An infile may have at most 200000 elements");
  EXPECT_EQ(readRefusal(std::string(kMostTextBytes + 1, ' ')), "An infile may have at most 16 MB");
}

TEST(InfileText, OfVeryManyAttributesIsAnError) {
  std::string text = "<infile";
  for (int i = 0; i < 1'000'000; ++i) text += " a" + std::to_string(i) + "=''";
  EXPECT_EQ(readRefusal(text + "/>"), "An element of an infile may have at most 100 attributes");
}

TEST(InfileText, TakesNoAttributesThatItsDocumentTypeGives) {
  const std::string type = "<!DOCTYPE infile [<!ATTLIST track x CDATA '" + std::string(1'000'000, '1') + "'>]>";
  std::string tracks;
  for (int i = 0; i < 100'000; ++i) tracks += "<track/>";
  EXPECT_FALSE(FromText(type + "<infile><videotracklist>" + tracks + "</videotracklist></infile>"));
  EXPECT_TRUE(FromText("<!DOCTYPE infile SYSTEM 'infile.dtd'><infile/>"));
}

TEST(InfileText, MayHaveAMarkOrBlanksAheadOfItsDeclaration) {
  EXPECT_TRUE(FromText("\xEF\xBB\xBF<?xml version='1.0'?><infile/>"));
  EXPECT_TRUE(FromText("\r\n \t<?xml version='1.0' encoding='UTF-8'?>\n<infile/>\n"));
}

TEST(InfileText, IsUTF8WhateverItsDeclarationSays) {
  const auto infile = FromText("<?xml version='1.0' encoding='ISO-8859-1'?><infile id='\xC3\xA9'/>");
  ASSERT_TRUE(infile);
  EXPECT_EQ(stdText(infile->id), "\xC3\xA9");
  EXPECT_FALSE(FromText("<infile id='\xE9'/>"));
}

TEST(InfileText, BringsBackEveryText) {
  for (const char* const text : {"\xC3\xA9 \xF0\x9F\x8E\xAC", "a < b & c > d", "\"two\" 'three'", "line\nline\ttab\r",
                                 "&#x41;", "&#x\" src=\"other", "&amp;", "&#65;", "  ", "&"}) {
    CInfile infile;
    infile.id = orlo::fromUTF8(text);
    const auto back = FromText(ToText(infile));
    ASSERT_TRUE(back) << text;
    EXPECT_EQ(stdText(back->id), text);
  }
}

TEST(InfileText, ThatWouldBeTooLargeIsNotWritten) {
  CInfile infile;
  infile.id = orlo::fromUTF8(std::string(kMostTextBytes, 'a'));
  EXPECT_EQ(refusalOf([&] { ToText(infile); }), "An infile may have at most 16 MB");
}

}  // namespace

}  // namespace vantra::infilexml
