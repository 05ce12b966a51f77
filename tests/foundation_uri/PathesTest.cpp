#include "foundation/Pathes.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <random>

namespace orlo {
namespace {

std::string pathOf(const String& uri) {
  return toStdString(getPathes()->uriToPath(createURI(uri)));
}

std::string uriOf(const String& path) {
  return textOf(getPathes()->pathToURI(path)->getDescription());
}

TEST(Pathes, AreThePathsOfFilesAndRelativeURIs) {
  EXPECT_EQ(pathOf("file:///a/b%20c.txt?q#f"), "/a/b c.txt");
  EXPECT_EQ(pathOf("file:/a"), "/a");
  EXPECT_EQ(pathOf("FILE://localhost/a"), "/a");
  EXPECT_EQ(pathOf("a/b"), "a/b");
  EXPECT_EQ(pathOf("../b"), "../b");
  EXPECT_EQ(pathOf("file:///"), "/");
  EXPECT_EQ(textOf(getPathes()->uriToPath(nullptr)), "");
}

TEST(Pathes, AreTheTextOfLocationsElsewhere) {
  EXPECT_EQ(pathOf("http://h/a%20b"), "http://h/a%20b");
  EXPECT_EQ(pathOf("file://server/a%20b"), "file://server/a%20b");
}

TEST(Pathes, BecomeFileURIsIfTheyBeginAtTheRoot) {
  EXPECT_EQ(uriOf("/a/b c.txt"), "file:///a/b%20c.txt");
  EXPECT_EQ(uriOf(u"/menü/\U0001F3AC"), "file:///men%C3%BC/%F0%9F%8E%AC");
  EXPECT_EQ(uriOf("/100%/a#b?c"), "file:///100%25/a%23b%3Fc");
  EXPECT_EQ(uriOf("/a\\b"), "file:///a%5Cb");
  EXPECT_EQ(uriOf("/"), "file:///");
  EXPECT_EQ(uriOf("//server/x"), "file:///server/x");
  EXPECT_EQ(uriOf("///"), "file:///");
}

TEST(Pathes, BecomeRelativeURIsOtherwise) {
  EXPECT_EQ(uriOf("a b/c"), "a%20b/c");
  EXPECT_EQ(uriOf("a:b/c:d"), "a%3Ab/c%3Ad");
  EXPECT_EQ(uriOf("a/../b:c"), "b%3Ac");
  EXPECT_EQ(uriOf("a/..//b"), "b");
  EXPECT_EQ(uriOf("C:\\a"), "C%3A%5Ca");
  EXPECT_EQ(uriOf(""), "");
  EXPECT_FALSE(getPathes()->pathToURI("a:b")->isAbsolute());
}

TEST(Pathes, HaveNoLimitOfTheirOwn) {
  const std::string name = "/" + std::string(300, 'n');
  EXPECT_EQ(pathOf(fromUTF8("file://" + name)), name);
}

TEST(Pathes, KeepNamesThatAreNoUTF8) {
  const std::string name = "/tmp/\xFF\xC3/\xE4\xF6.x \x01\xED\xA0\x80";
  const P<IURI> uri = getPathes()->pathToURI(fromUTF8(name));
  EXPECT_EQ(textOf(uri->getDescription()), "file:///tmp/%FF%C3/%E4%F6.x%20%01%ED%A0%80");
  EXPECT_EQ(toStdString(getPathes()->uriToPath(uri)), name);
  EXPECT_EQ(toStdString(getPathes()->uriToPath(createURI(uri->getDescription()))), name);
}

TEST(Pathes, KeepAllBytesThatANameMayHave) {
  std::mt19937 random(7);
  for (int i = 0; i < 2000; ++i) {
    std::string path = "/";
    for (int length = 0; length < 20; ++length) {
      const char byte = static_cast<char>(1 + random() % 255);
      path += byte == '.' || byte == '/' ? 'n' : byte;
      if (random() % 4 == 0) path += "/n";
    }
    EXPECT_EQ(toStdString(getPathes()->uriToPath(getPathes()->pathToURI(fromUTF8(path)))), path);
    path.erase(0, 1);
    EXPECT_EQ(toStdString(getPathes()->uriToPath(getPathes()->pathToURI(fromUTF8(path)))), path);
  }
}

TEST(Pathes, NeverHoldAZero) {
  EXPECT_EQ(pathOf("file:///a%00b"), "/a%00b");
  EXPECT_EQ(pathOf(fromUTF8(std::string_view("file:///a\0b", 11))), "/a%00b");
}

TEST(Pathes, AreWrittenBehindThreeSlashes) {
  EXPECT_EQ(textOf(CURI("file:///a/b%20c").toFileURI()), "file:///a/b c");
  EXPECT_EQ(textOf(CURI("a").toFileURI()), "file:///a");
  EXPECT_EQ(textOf(CURI("file:///a%20b").getLocalPath()), "/a b");
}

}  // namespace
}  // namespace orlo
