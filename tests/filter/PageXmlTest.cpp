#include "filter/PageXml.h"

#include <gtest/gtest.h>

#include <string>

namespace authfilter {
namespace {

CPageXml parse(const std::string& text) {
  return ParsePageXml(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

std::string nested(int depth) {
  std::string text;
  for (int level = 0; level < depth; ++level) text += "<a>";
  for (int level = 0; level < depth; ++level) text += "</a>";
  return text;
}

TEST(PageXml, OfNothingIsNoDocument) {
  EXPECT_EQ(parse("").document, nullptr);
}

TEST(PageXml, ThatIsBrokenIsNoDocumentAndNamesNoLimit) {
  const CPageXml page = parse("<page><line></page>");
  EXPECT_EQ(page.document, nullptr);
  EXPECT_EQ(page.limit, "");
}

TEST(PageXml, KeepsItsNodes) {
  const CPageXml page = parse("<?xml version=\"1.0\"?><page><line name=\"caf\xC3\xA9\"/></page>");
  ASSERT_NE(page.document, nullptr);
  EXPECT_EQ(page.document->GetRoot()->GetName(), "page");
  EXPECT_EQ(page.document->GetRoot()->GetChildren()->GetAttribute("name"), wxString(L"café"));
}

TEST(PageXml, MayNest256Deep) {
  EXPECT_NE(parse(nested(256)).document, nullptr);
}

TEST(PageXml, ThatNestsDeeperIsRefusedWithTheLimit) {
  const CPageXml page = parse(nested(257));
  EXPECT_EQ(page.document, nullptr);
  EXPECT_EQ(page.limit, "line 1: elements nest more than 256 deep");
}

TEST(PageXml, ThatNestsAMillionDeepIsRefusedWithoutHarm) {
  EXPECT_EQ(parse(nested(1'000'000)).document, nullptr);
}

TEST(PageXml, InAOneByteEncodingIsRead) {
  const CPageXml page = parse("<?xml version=\"1.0\" encoding=\"windows-1252\"?><page name=\"caf\xE9\"/>");
  ASSERT_NE(page.document, nullptr);
  EXPECT_EQ(page.document->GetRoot()->GetAttribute("name"), wxString(L"café"));
}

TEST(PageXml, WithEntitiesThatMultiplyIsRefused) {
  std::string text = "<!DOCTYPE page [<!ENTITY a0 \"" + std::string(1000, 'x') + "\">";
  for (int level = 1; level < 12; ++level) {
    text += "<!ENTITY a" + std::to_string(level) + " \"";
    for (int copy = 0; copy < 10; ++copy) text += "&a" + std::to_string(level - 1) + ";";
    text += "\">";
  }
  text += "]><page>&a11;</page>";
  EXPECT_EQ(parse(text).document, nullptr);
}

}  // namespace
}  // namespace authfilter
