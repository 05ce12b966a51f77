#include "host/Archive.h"
#include "host/Errors.h"
#include "tests/host/Media.h"
#include "tests/support/ZipArchive.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Pages whose pictures and texts lie in an archive, as the command takes them.
namespace {

using test::Folder;
using test::stored;
using test::ZipArchive;
using testing::HasSubstr;

std::string names(const std::string& archive) {
  const Folder folder;
  folder.write("a.zip", archive);
  std::string text;
  for (const std::string& name : host::readArchiveNames(folder.path() / "a.zip")) text += name + " ";
  return text;
}

TEST(Archive, TellsTheNamesOfItsFiles) {
  ZipArchive archive{stored("b", "x"), stored("./f/a", "x"), stored("B\x84r", "x")};
  const std::string all = "B\xC3\xA4r b f/a ";
  EXPECT_EQ(names(archive.bytes()), all);
  EXPECT_EQ(names(archive.bytes64()), all);
  EXPECT_EQ(names("before" + archive.bytes()), all);
  EXPECT_EQ(names("before" + archive.bytes64()), all);
  archive.comment = "a comment";
  EXPECT_EQ(names(archive.bytes()), all);
  EXPECT_EQ(names(ZipArchive().bytes()), "");
}

TEST(Archive, IsRefusedIfItIsNone) {
  for (const std::string& content :
       {std::string(), std::string("no archive"), std::string("PK\5\6"), std::string(70'000, 'P')})
    EXPECT_THROW(names(content), host::InputError);
}

TEST(Archive, SurvivesEveryChangedByte) {
  const std::string whole = ZipArchive{stored("a", "x"), stored("b", "x")}.bytes64();
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string bytes = whole;
    bytes[at] = static_cast<char>(bytes[at] ^ 0xFF);
    try {
      names(bytes);
    } catch (const host::InputError&) {
      // No archive any more.
    }
  }
}

const std::string place = "<center x=\"80\" y=\"45\"/><size width=\"160\" height=\"90\"/>";

std::string image(const std::string& name) {
  return "<image>" + place + "<attachment-bitmap name=\"" + name + "\"/></image>\n";
}

std::string bmp() {
  return "BM" + test::number(58, 4) + test::number(0, 4) + test::number(54, 4) + test::number(40, 4) +
         test::number(1, 4) + test::number(1, 4) + test::number(1, 2) + test::number(24, 2) + test::number(0, 24) +
         std::string("\0\0\xFF\0", 4);
}

TEST(Archive, GivesThePicturesOfAPage) {
  const Folder folder;
  const std::string name = "100% \xC3\xA4?#.zip";
  folder.write(name, ZipArchive{stored("red.bmp", bmp())}.bytes());
  folder.write("page.xml", test::page(image("red.bmp")));
  const test::Outcome outcome =
      test::render(folder.path(), {"page.xml", "--attachments", name, "--size", "16x9", "--frames", "0", "-o", "-"});
  EXPECT_EQ(outcome.errors, "");
  ASSERT_EQ(outcome.output.size(), 16u * 9 * 4);
  EXPECT_EQ(outcome.output.substr(16 * 4 * 4 + 32, 4), std::string("\0\0\xFF\xFF", 4));
}

TEST(Archive, IsNamedWhenItIsMissing) {
  const Folder folder;
  folder.write("page.xml", test::page(""));
  for (const std::string verb : {"render", "check"}) {
    const std::string end = verb == "render" ? " -o a.png" : "";
    const test::Outcome outcome =
        test::shell(folder.path(), "$mfilter " + verb + " page.xml --attachments no.zip" + end);
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "no.zip: No such file or directory\n");
  }
  EXPECT_EQ(test::shell(folder.path(), "$mfilter check page.xml --attachments page.xml").errors,
            "page.xml: no zip archive\n");
  EXPECT_THAT(test::shell(folder.path(), "$mfilter render page.xml --set attachments=a.zip -o a.png").errors,
              HasSubstr("use --attachments for it"));
}

TEST(Archive, IsCheckedForTheNamesOfAPage) {
  const Folder folder;
  folder.write("menu.zip", ZipArchive{stored("red.bmp", bmp()), stored("a.gif", "x")}.bytes());
  folder.write("page.xml", test::page(image("red.bmp") + image("none.png") + image("a.gif") + image("") +
                                      "<image filename=\"a.png\">" + place + "</image>\n<text>" + place +
                                      "<attachment-richtextbuffer name=\"none.xml\"/></text>"));
  const test::Outcome outcome = test::shell(folder.path(), "$mfilter check page.xml --attachments menu.zip");
  EXPECT_EQ(outcome.exitCode, 1);
  const std::string picture = "; the substitute picture is shown instead\n";
  EXPECT_EQ(
      outcome.output.substr(0, outcome.output.find("  page  ")),
      "page.xml:5: error: <attachment-bitmap> of <image> name=\"none.png\": there is no such file in menu.zip" +
          picture +
          "page.xml:6: error: <attachment-bitmap> of <image> name=\"a.gif\": must end in .png, .jpg, .bmp or .ico" +
          picture + "page.xml:7: error: <attachment-bitmap> of <image> has no \"name\" of a file in menu.zip" +
          picture +
          "page.xml:8: warning: <image> filename=\"a.png\" is ignored: pictures come from menu.zip\n"
          "page.xml:9: error: <attachment-richtextbuffer> of <text> name=\"none.xml\": there is no such file in "
          "menu.zip; there is no text\n"
          "page.xml: 4 errors, 1 warning\n");
  EXPECT_THAT(test::shell(folder.path(), "$mfilter check page.xml").output,
              HasSubstr("is \"red.bmp\" of an archive, which --attachments tells"));
}

}  // namespace
