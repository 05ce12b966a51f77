#include "foundation/WindowsPaths.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

namespace orlo {
namespace {

std::string pathOf(const String& uri, bool knowsLongPaths = true) {
  return textOf(windows::uriToPath(createURI(uri), knowsLongPaths));
}

std::string uriOf(const String& path) {
  return textOf(windows::pathToURI(path)->getDescription());
}

String file(const std::string& start, std::size_t length) {
  return fromUTF8(start + std::string(length, 'n'));
}

TEST(WindowsPaths, HaveBackslashesAndNoSlashBeforeTheDrive) {
  EXPECT_EQ(pathOf("file:///C:/a/b%20c.txt"), "C:\\a\\b c.txt");
  EXPECT_EQ(pathOf("a/b"), "a\\b");
  EXPECT_EQ(textOf(windows::uriToPath(nullptr, true)), "");
  EXPECT_EQ(pathOf("http://h/a"), "http://h/a");
}

TEST(WindowsPaths, BeginWithTheHostIfThereIsOne) {
  EXPECT_EQ(pathOf("file://server/share/a"), "\\\\server\\share\\a");
}

TEST(WindowsPaths, OfADriveGainAPrefixWhenTheyAreLong) {
  const std::string name(300, 'n');
  EXPECT_EQ(pathOf(fromUTF8("file:///C:/" + name)), "\\\\?\\C:\\" + name);
  EXPECT_EQ(pathOf(file("file:///C:/", 237)), "\\\\?\\C:\\" + std::string(237, 'n'));
  EXPECT_EQ(pathOf(file("file:///C:/", 236)), "C:\\" + std::string(236, 'n'));
}

TEST(WindowsPaths, OfAHostGainAPrefixWhenTheyAreLong) {
  EXPECT_EQ(pathOf(file("file://server/", 300)), "\\\\?\\UNC\\server\\" + std::string(300, 'n'));
}

TEST(WindowsPaths, ThrowIfTheyAreLongAndCanHaveNoPrefix) {
  const std::string name(300, 'n');
  const auto messageFor = [](const String& uri, bool knowsLongPaths) {
    try {
      return pathOf(uri, knowsLongPaths);
    } catch (const CError& error) {
      return messageOf(error);
    }
  };
  const std::string start = "Error: Windows path is longer than MAX_PATH and the limit cannot be circumvented (path='";
  EXPECT_EQ(messageFor(fromUTF8(name), true), start + name + "'.");
  EXPECT_EQ(messageFor(fromUTF8("file:///C:/" + name), false), start + "C:\\" + name + "'.");
  EXPECT_EQ(messageFor(fromUTF8("file://s/" + name), false), start + "\\\\s\\" + name + "'.");
}

TEST(WindowsPaths, BecomeFileURIs) {
  EXPECT_EQ(uriOf("C:\\a\\b c.txt"), "file:///C:/a/b%20c.txt");
  EXPECT_EQ(uriOf("\\\\server\\share\\a"), "file://server/share/a");
  EXPECT_EQ(uriOf("\\\\server"), "file://server");
  EXPECT_EQ(uriOf(u"C:\\menü\\\U0001F3AC"), "file:///C:/men%C3%BC/%F0%9F%8E%AC");
}

TEST(WindowsPaths, LoseTheirPrefix) {
  EXPECT_EQ(uriOf("\\\\?\\C:\\a"), "file:///C:/a");
  EXPECT_EQ(uriOf("\\\\?\\UNC\\server\\a"), "file://server/a");
}

TEST(WindowsPaths, BecomeRelativeURIsOtherwise) {
  EXPECT_EQ(uriOf("a\\b c"), "a/b%20c");
  EXPECT_EQ(uriOf("..\\b"), "../b");
  EXPECT_FALSE(windows::pathToURI("stream:x")->isAbsolute());
}

TEST(WindowsPaths, ComeBackAsTheyWere) {
  for (const char16_t* path :
       {u"C:\\", u"C:\\a\\b", u"\\\\s\\b", u"a\\b", u"C:\\100% #?;=@&+$,", u"Z:\\ä\\\U0001F3AC", u"name"})
    EXPECT_EQ(textOf(windows::uriToPath(windows::pathToURI(path), true)), textOf(path));
  const String whole = file("\\\\?\\C:\\", 300);
  EXPECT_EQ(textOf(windows::uriToPath(windows::pathToURI(whole), true)), textOf(whole));
}

TEST(WindowsPaths, AreWrittenBehindThreeSlashes) {
  EXPECT_EQ(textOf(windows::toFileURI(createURI("file:///C:/a/b%20c"), true)), "file:///C:/a/b c");
}

}  // namespace
}  // namespace orlo
