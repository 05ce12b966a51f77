#include "tests/host/Media.h"

#include <gtest/gtest.h>

namespace {

using test::Folder;
using test::page;
using test::render;

std::string errorOf(const std::string& content, const std::vector<std::string>& more = {}) {
  const Folder folder;
  folder.write("page.xml", content);
  std::vector<std::string> arguments = {"page.xml", "-o", "out.png"};
  if (more.empty()) arguments.insert(arguments.end(), {"--size", "64x36"});
  arguments.insert(arguments.end(), more.begin(), more.end());
  const test::Outcome outcome = render(folder.path(), arguments);
  EXPECT_EQ(outcome.exitCode, 1) << outcome.errors;
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(folder.count(), 1u) << "something was left behind";
  return outcome.errors;
}

TEST(PageError, NamesAMissingFile) {
  const Folder folder;
  const test::Outcome outcome = render(folder.path(), {"gone.xml", "-o", "out.png"});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_EQ(outcome.errors, "gone.xml: No such file or directory\n");
}

TEST(PageError, NamesAFolderGivenAsAPage) {
  const Folder folder;
  const test::Outcome outcome = render(folder.path(), {".", "-o", "out.png"});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_EQ(outcome.errors, ".: Is a directory\n");
}

TEST(PageError, NamesTheLineOfBrokenXml) {
  EXPECT_EQ(errorOf("<page>\n  <line>\n</page>\n"),
            "page.xml:3: Opening and ending tag mismatch: line line 2 and page\n");
  EXPECT_EQ(errorOf("<page>\n\n<line x=1/></page>\n"), "page.xml:3: AttValue: \" or ' expected\n");
  EXPECT_EQ(errorOf(""), "page.xml:1: Document is empty\n");
  EXPECT_EQ(errorOf("no page at all"), "page.xml:1: Start tag expected, '<' not found\n");
  EXPECT_EQ(errorOf("<page>\n" + std::string("\xC3\x28", 2) + "</page>").substr(0, 11), "page.xml:2:");
}

TEST(PageError, NamesLinesBeyondSixteenBits) {
  EXPECT_EQ(errorOf(page(std::string(70000, '\n') + "<star/>")), "page.xml:70004: unknown element type 'star'\n");
}

TEST(PageError, NamesTheLineOfAnUnknownElementType) {
  EXPECT_EQ(errorOf(page("  <line/>\n  <star/>\n  <moon/>\n")), "page.xml:5: unknown element type 'star'\n");
  EXPECT_EQ(errorOf(page("<x:line xmlns:x=\"y\"/>")), "page.xml:4: unknown element type 'x:line'\n");
  EXPECT_EQ(errorOf(page("<table-content/>")), "page.xml:4: unknown element type 'table-content'\n");
}

TEST(PageError, NamesTheLineOfAnUnknownTypeName) {
  EXPECT_EQ(errorOf(page("<state-button type-name=\"sun\"/>")), "page.xml:4: unknown element type 'sun'\n");
  EXPECT_EQ(errorOf(page("<label type=\"sun\"/>")), "page.xml:4: unknown element type 'sun'\n");
}

TEST(PageError, NamesTheLineOfAnUnknownElementInsideAMirror) {
  EXPECT_EQ(errorOf(page("<mirror>\n<Graphic-Document>\n<star/></Graphic-Document></mirror>")),
            "page.xml:6: unknown element type 'star'\n");
}

TEST(PageError, NamesTheLineOfAnElementThatTheModuleRefuses) {
  EXPECT_EQ(errorOf(page("<line/>\n<custom/>\n")), "page.xml:5: CSheetItemFormat.NewInstance unknwown type\n");
  EXPECT_EQ(errorOf(page("<mirror><graphic-document>\n<base/></graphic-document></mirror>")),
            "page.xml:5: CSheetItemFormat.NewInstance unknwown type\n");
}

TEST(PageError, RefusesEntities) {
  EXPECT_EQ(errorOf("<!DOCTYPE p [\n<!ENTITY a \"aaaa\">\n]><p>&a;</p>"),
            "page.xml:2: entities are not allowed: 'a'\n");
  EXPECT_EQ(errorOf("<!DOCTYPE p [<!ENTITY a SYSTEM \"file:///etc/passwd\">]><p>&a;</p>"),
            "page.xml:1: entities are not allowed: 'a'\n");
}

TEST(PageError, RefusesAttributesThatThePageDeclares) {
  EXPECT_EQ(errorOf("<!DOCTYPE p [\n<!ATTLIST q a CDATA \"aaaa\">\n]><p><q/></p>"),
            "page.xml:2: attributes cannot be declared: 'a'\n");
}

TEST(PageError, NamesAPageWithoutSize) {
  const std::string noSize = "the page has no size: neither a content-box nor elements give it one\n";
  EXPECT_EQ(errorOf("\n<page/>"), "page.xml:2: " + noSize);
  EXPECT_EQ(errorOf("<page>\n<line><center x=\"5\" y=\"5\"/></line></page>"), "page.xml:1: " + noSize);
  EXPECT_EQ(errorOf("<page>\n<line><size width=\"nan\" height=\"5\"/></line></page>"), "page.xml:1: " + noSize);
  for (const std::string size :
       {"width=\"0\" height=\"5\"", "width=\"5\"", "width=\"-5\" height=\"5\"", "width=\"inf\" height=\"5\"",
        "width=\"\" height=\"x\"", "width=\"nan\" height=\"nan\""}) {
    EXPECT_EQ(errorOf("<page>\n<content-box " + size + "/></page>"), "page.xml:2: the content-box has no size\n");
  }
}

TEST(PageError, NamesAnAspectRatioTooFarOffAndASizeThatFits) {
  EXPECT_EQ(
      errorOf(page(), {"--size", "640x480"}),
      "page.xml: the page's aspect ratio 1.778 is too far from 1.333 of a frame of 640x480; try --size 854x480\n");
}

TEST(PageError, NamesAFolderOfSkinsThatIsNone) {
  EXPECT_EQ(errorOf(page(), {"--skins", "nowhere"}), "nowhere: not a folder\n");
}

TEST(PageError, StaysOneLineWhateverTheFileHolds) {
  const std::string error = errorOf(page("<star type-name=\"&#10;&#13;&#9;x\"/>"));
  EXPECT_EQ(error, "page.xml:4: unknown element type 'star'\n");
  const std::string typeName = errorOf(page("<line type-name=\"a&#10;b\"/>"));
  EXPECT_EQ(typeName, "page.xml:4: unknown element type 'a b'\n");
}

}  // namespace
