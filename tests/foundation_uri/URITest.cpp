#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "foundation/URI.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <ctime>

namespace orlo {
namespace {

constexpr auto kNull = "(null)";

TEST(URI, OfAFileHasAnEmptyAuthorityAndASplitName) {
  const CURI uri("file:///C:/a/b.txt");
  EXPECT_EQ(textOf(uri.getScheme()), "file");
  EXPECT_EQ(textOf(uri.getAuthority()), "");
  EXPECT_TRUE(uri.hasAuthority());
  EXPECT_EQ(textOf(uri.getPath()), "/C:/a/b.txt");
  EXPECT_EQ(textOf(uri.getFileName()), "b.txt");
  EXPECT_EQ(textOf(uri.getBaseName()), "b");
  EXPECT_EQ(textOf(uri.getExtension()), "txt");
  EXPECT_EQ(textOf(uri.getFolder()), "/C:/a/");
  EXPECT_EQ(textOf(uri.getHost()), "");
  EXPECT_EQ(textOf(uri.getSchemeSpecificPart()), "///C:/a/b.txt");
  EXPECT_TRUE(uri.isAbsolute());
}

TEST(URI, FillsAllOfItsComponents) {
  const CURI uri("abc://u@h:8080/p?q#f");
  EXPECT_EQ(textOf(uri.getScheme()), "abc");
  EXPECT_EQ(textOf(uri.getSchemeSpecificPart()), "//u@h:8080/p?q#f");
  EXPECT_EQ(textOf(uri.getAuthority()), "u@h:8080");
  EXPECT_EQ(textOf(uri.getUserInfo()), "u");
  EXPECT_EQ(textOf(uri.getHost()), "h");
  EXPECT_EQ(textOf(uri.getPortText()), "8080");
  EXPECT_EQ(uri.getPort(), 8080);
  EXPECT_EQ(textOf(uri.getPath()), "/p");
  EXPECT_EQ(textOf(uri.getFileName()), "p");
  EXPECT_EQ(textOf(uri.getBaseName()), "p");
  EXPECT_EQ(textOf(uri.getExtension()), kNull);
  EXPECT_EQ(textOf(uri.getFolder()), "/");
  EXPECT_EQ(textOf(uri.getQuery()), "q");
  EXPECT_EQ(textOf(uri.getFragment()), "f");
  EXPECT_EQ(textOf(uri.getDescription()), "abc://u@h:8080/p?q#f");
  EXPECT_TRUE(uri.isHierarchical());
}

TEST(URI, KeepsTheRawFormBesideTheDecodedOne) {
  const CURI uri("abc://u%3A@h/a%20b/c%C3%A9.d%41?x%26y#z%25");
  EXPECT_EQ(textOf(uri.getUserInfo()), "u:");
  EXPECT_EQ(textOf(uri.getRawUserInfo()), "u%3A");
  EXPECT_EQ(textOf(uri.getAuthority()), "u:@h");
  EXPECT_EQ(textOf(uri.getRawAuthority()), "u%3A@h");
  EXPECT_EQ(textOf(uri.getPath()), "/a b/cé.dA");
  EXPECT_EQ(textOf(uri.getRawPath()), "/a%20b/c%C3%A9.d%41");
  EXPECT_EQ(textOf(uri.getFileName()), "cé.dA");
  EXPECT_EQ(textOf(uri.getRawFileName()), "c%C3%A9.d%41");
  EXPECT_EQ(textOf(uri.getBaseName()), "cé");
  EXPECT_EQ(textOf(uri.getRawBaseName()), "c%C3%A9");
  EXPECT_EQ(textOf(uri.getExtension()), "dA");
  EXPECT_EQ(textOf(uri.getRawExtension()), "d%41");
  EXPECT_EQ(textOf(uri.getFolder()), "/a b/");
  EXPECT_EQ(textOf(uri.getRawFolder()), "/a%20b/");
  EXPECT_EQ(textOf(uri.getQuery()), "x&y");
  EXPECT_EQ(textOf(uri.getRawQuery()), "x%26y");
  EXPECT_EQ(textOf(uri.getFragment()), "z%");
  EXPECT_EQ(textOf(uri.getRawFragment()), "z%25");
  EXPECT_EQ(textOf(uri.getSchemeSpecificPart()), "//u:@h/a b/cé.dA?x&y#z%");
  EXPECT_EQ(textOf(uri.getRawSchemeSpecificPart()), "//u%3A@h/a%20b/c%C3%A9.d%41?x%26y#z%25");
}

TEST(URI, IsOpaqueIfNoSlashFollowsTheScheme) {
  const CURI uri("abc:x/y?z#f");
  EXPECT_FALSE(uri.isHierarchical());
  EXPECT_TRUE(uri.isAbsolute());
  EXPECT_FALSE(uri.hasPath());
  EXPECT_FALSE(uri.hasQuery());
  EXPECT_FALSE(uri.hasFragment());
  EXPECT_EQ(textOf(uri.getSchemeSpecificPart()), "x/y?z#f");
  EXPECT_EQ(textOf(uri.getDescription()), "abc:x/y?z#f");
}

TEST(URI, KeepsTheColonsOfAHostInBrackets) {
  const CURI withPort("abc://[::1]:80/");
  EXPECT_EQ(textOf(withPort.getHost()), "[::1]");
  EXPECT_EQ(withPort.getPort(), 80);
  const CURI without("abc://[::1]/");
  EXPECT_EQ(textOf(without.getHost()), "[::1]");
  EXPECT_EQ(textOf(without.getPortText()), kNull);
  EXPECT_EQ(without.getPort(), -1);
}

TEST(URI, ThrowsForAPortThatIsNoNumber) {
  try {
    const CURI uri("abc://h:x/");
    FAIL();
  } catch (const CParseError& error) {
    EXPECT_EQ(messageOf(error), "Error parsing integer.");
  }
  EXPECT_THROW(CURI("abc://h:80x/"), CParseError);
  EXPECT_THROW(CURI("//u@h:80:x"), CParseError);
  EXPECT_THROW(CURI("abc://h:-1/"), CParseError);
  EXPECT_THROW(CURI("abc://h:+80/"), CParseError);
  EXPECT_THROW(CURI(u8"abc://h:８/"), CParseError);
  EXPECT_EQ(CURI("abc://h:/").getPort(), 0);
  EXPECT_EQ(CURI("abc://h:0080/").getPort(), 80);
  EXPECT_NO_THROW(CURI("abc:h:x/"));
}

TEST(URI, RemovesDotSegmentsFromItsPath) {
  const auto path = [](const char* text) { return textOf(CURI(text).getRawPath()); };
  EXPECT_EQ(path("a/b/../c"), "a/c");
  EXPECT_EQ(path("/a/./b"), "/a/b");
  EXPECT_EQ(path("../x"), "../x");
  EXPECT_EQ(path("./x"), "x");
  EXPECT_EQ(path("/a/."), "/a/");
  EXPECT_EQ(path("/a/b/.."), "/a/");
  EXPECT_EQ(path("/a/.."), "/");
  EXPECT_EQ(path("/.."), "/..");
  EXPECT_EQ(path("/../a"), "/../a");
  EXPECT_EQ(path("/a/../../b"), "/../b");
  EXPECT_EQ(path("../../a/../b"), "../../b");
  EXPECT_EQ(path("a/.."), "");
  EXPECT_EQ(path("."), "");
  EXPECT_EQ(path(".."), "..");
  EXPECT_EQ(path("a/././.."), "");
  EXPECT_EQ(path("a//../b"), "a/b");
  EXPECT_EQ(path("/.a/..b/c../..."), "/.a/..b/c../...");
  EXPECT_EQ(path("/%2E%2E/a"), "/%2E%2E/a");
  EXPECT_EQ(path("/a/../"), "/");
}

TEST(URI, ComposesItsTextWithTheNormalisedPath) {
  const CURI uri("abc://u@h:1/a/../b/./c.d?q/../r#f/./g");
  EXPECT_EQ(textOf(uri.getDescription()), "abc://u@h:1/b/c.d?q/../r#f/./g");
  EXPECT_EQ(textOf(uri.getFileName()), "c.d");
  EXPECT_EQ(textOf(uri.getQuery()), "q/../r");
  EXPECT_EQ(textOf(uri.getFragment()), "f/./g");
  EXPECT_EQ(textOf(uri.getUserInfo()), "u");
  EXPECT_EQ(textOf(uri.getSchemeSpecificPart()), "//u@h:1/a/../b/./c.d?q/../r#f/./g");
}

TEST(URI, WithoutASchemeIsRelative) {
  const CURI uri("a/b.c?d#e");
  EXPECT_FALSE(uri.isAbsolute());
  EXPECT_TRUE(uri.isHierarchical());
  EXPECT_EQ(textOf(uri.getScheme()), kNull);
  EXPECT_EQ(textOf(uri.getAuthority()), kNull);
  EXPECT_EQ(textOf(uri.getPath()), "a/b.c");
  EXPECT_EQ(textOf(uri.getFolder()), "a/");
  EXPECT_EQ(textOf(uri.getQuery()), "d");
  EXPECT_EQ(textOf(uri.getFragment()), "e");
  EXPECT_EQ(textOf(uri.getSchemeSpecificPart()), "a/b.c?d#e");
}

TEST(URI, HasAuthorityWithoutASchemeBehindTwoSlashes) {
  const CURI uri("//h/p");
  EXPECT_FALSE(uri.isAbsolute());
  EXPECT_EQ(textOf(uri.getHost()), "h");
  EXPECT_EQ(textOf(uri.getPath()), "/p");
}

TEST(URI, TellsAnEmptyComponentFromAnAbsentOne) {
  const CURI full("abc://@:/?#");
  EXPECT_EQ(textOf(full.getUserInfo()), "");
  EXPECT_EQ(textOf(full.getHost()), "");
  EXPECT_EQ(textOf(full.getPortText()), "");
  EXPECT_EQ(textOf(full.getQuery()), "");
  EXPECT_EQ(textOf(full.getFragment()), "");
  EXPECT_EQ(textOf(full.getDescription()), "abc://@:/?#");
  const CURI bare("abc://h");
  EXPECT_EQ(textOf(bare.getUserInfo()), kNull);
  EXPECT_EQ(textOf(bare.getPath()), kNull);
  EXPECT_EQ(textOf(bare.getFolder()), kNull);
  EXPECT_EQ(textOf(bare.getQuery()), kNull);
  EXPECT_EQ(textOf(bare.getFragment()), kNull);
  const CURI nothing("");
  EXPECT_FALSE(nothing.hasPath());
  EXPECT_EQ(textOf(nothing.getDescription()), "");
  EXPECT_EQ(textOf(CURI(String(nullptr)).getDescription()), "");
}

TEST(URI, SplitsNamesAtTheirLastDot) {
  const auto split = [](const char* text) {
    const CURI uri(text);
    return textOf(uri.getBaseName()) + "|" + textOf(uri.getExtension());
  };
  EXPECT_EQ(split("/a/b.tar.gz"), "b.tar|gz");
  EXPECT_EQ(split("/a/.hidden"), "|hidden");
  EXPECT_EQ(split("/a/b."), "b|");
  EXPECT_EQ(split("/a.d/b"), "b|(null)");
  EXPECT_EQ(split("/a.d/"), "(null)|(null)");
}

TEST(URI, OfAFolderHasNoFileName) {
  const CURI uri("file:///a/b/");
  EXPECT_FALSE(uri.hasFileName());
  EXPECT_FALSE(uri.hasBaseName());
  EXPECT_EQ(textOf(uri.getFolder()), "/a/b/");
  EXPECT_EQ(textOf(CURI("file:///").getFolder()), "/");
  EXPECT_EQ(textOf(CURI("name").getFolder()), kNull);
}

TEST(URI, IsMadeOfASchemeAndWhatFollows) {
  EXPECT_EQ(textOf(CURI("mailto", "a@b.c").getDescription()), "mailto:a@b.c");
  EXPECT_EQ(textOf(CURI("abc", "//h/a%20b").getPath()), "/a b");
  EXPECT_EQ(textOf(CURI(String(nullptr), "a/b").getDescription()), "a/b");
}

TEST(URI, EscapesTheComponentsThatItIsMadeOf) {
  const CURI uri("abc", u"hôst", 81, "us:er@", u"/a b/%/é;=", u"q?#ü", "f#/?");
  EXPECT_EQ(textOf(uri.getDescription()), "abc://us:er%40@h%C3%B4st:81/a%20b/%25/%C3%A9;=?q?%23%C3%BC#f%23/?");
  EXPECT_EQ(textOf(uri.getUserInfo()), "us:er@");
  EXPECT_EQ(uri.getPort(), 81);
  EXPECT_EQ(textOf(uri.getPath()), "/a b/%/é;=");
  EXPECT_EQ(textOf(uri.getQuery()), "q?#ü");
  EXPECT_EQ(textOf(uri.getFragment()), "f#/?");
}

TEST(URI, LeavesOutTheComponentsThatAreNull) {
  const String none = nullptr;
  EXPECT_EQ(textOf(CURI("abc", "h:1", "/p", none, none).getDescription()), "abc://h:1/p");
  EXPECT_EQ(textOf(CURI(none, none, "p", "q", none).getDescription()), "p?q");
  EXPECT_EQ(textOf(CURI("abc", none, -1, none, "/p", none, "f").getDescription()), "abc:/p#f");
  EXPECT_EQ(textOf(CURI("abc", "h", -1, none, none, none, none).getDescription()), "abc://h");
  EXPECT_EQ(textOf(CURI("abc", "h", none, none, none).getDescription()), "abc://h");
}

TEST(URI, SeparatesThePathThatItIsMadeOfFromTheHost) {
  EXPECT_EQ(textOf(CURI("abc", "h", "p", nullptr, nullptr).getDescription()), "abc://h/p");
}

TEST(URI, ReadsTextsInEveryEncodingAlike) {
  const String wide = u"file:///films/\U0001F3AC menü/ä.xml";
  for (const String& text : {wide, toUTF8(wide), toUTF32(wide)}) {
    const CURI uri(text);
    EXPECT_EQ(textOf(uri.getPath()), "/films/\xF0\x9F\x8E\xAC menü/ä.xml");
    EXPECT_TRUE(uri.getFileName() == u"ä.xml");
    EXPECT_TRUE(uri.getFolder() == u"/films/\U0001F3AC menü/");
    EXPECT_EQ(uri.getFolder().length(), 14);
  }
  EXPECT_EQ(textOf(CURI("a/\xFC.x").getPath()), "a/ü.x");
}

TEST(URI, KeepsEmptyPartsInAnEncodingThatHoldsEverything) {
  const CURI uri(u"/.\U0001F3AC");
  EXPECT_TRUE(uri.getBaseName() + "." + uri.getExtension() == uri.getFileName());
  EXPECT_EQ(uri.getFileName().length(), 2);
}

TEST(URI, SharesTheTextThatItWasMadeOf) {
  const String text = u"abc://h/path/name.ext";
  const CURI uri(text);
  const auto* first = static_cast<const unsigned char*>(text.getData());
  for (const String& part : {uri.getHost(), uri.getPath(), uri.getRawPath(), uri.getFileName(), uri.getExtension()}) {
    const auto* data = static_cast<const unsigned char*>(part.getData());
    EXPECT_TRUE(data >= first && data < first + text.getByteSize());
  }
}

TEST(URI, OutlivesTheTextThatItWasMadeOf) {
  P<IURI> uri;
  {
    const std::string bytes = "abc://host/some/path";
    uri = createURI(fromUTF8(bytes));
  }
  EXPECT_EQ(textOf(uri->getHost()), "host");
  EXPECT_EQ(textOf(uri->getPath()), "/some/path");
}

TEST(URI, CopiesBeginALifeOfTheirOwn) {
  P<CURI> copy;
  {
    const CURI uri("abc://h/p");
    const P<const CURI> second = &uri;
    copy = makeObject<CURI>(uri);
  }
  EXPECT_EQ(textOf(copy->getDescription()), "abc://h/p");
  EXPECT_EQ(textOf(copy->getHost()), "h");
}

TEST(URI, ComparesByItsText) {
  const CURI a("abc:/a");
  const CURI b("abc:/x/../b");
  EXPECT_TRUE(b == CURI("abc:/b"));
  EXPECT_FALSE(a == b);
  EXPECT_LT(a.compare(&b), 0);
  EXPECT_GT(b.compare(&a), 0);
  EXPECT_EQ(a.compare(P<CURI>(makeObject<CURI>(u"abc:/a"))), 0);
  EXPECT_GT(a.compare(nullptr), 0);
  EXPECT_THROW(a.compare(createURI("x")->getPath().getObject()), CCastError);
}

TEST(URI, OfAMillionDotSegmentsIsReadInLinearTime) {
  const auto milliseconds = [](const std::string& text) {
    const std::clock_t start = std::clock();
    const CURI uri(fromUTF8(text));
    EXPECT_TRUE(uri.hasPath());
    return (std::clock() - start) * 1000 / CLOCKS_PER_SEC;
  };
  std::string ups = "/";
  std::string pairs = "/";
  std::string dots = "/";
  std::string deep = "/";
  for (int i = 0; i < 1000000; ++i) {
    ups += "../";
    pairs += "a/../";
    dots += "./";
    deep += "a/";
  }
  for (int i = 0; i < 1000000; ++i) deep += "../";
  // Quadratic time would be hours.
  for (const std::string& text : {ups, pairs, dots, deep}) EXPECT_LT(milliseconds(text), 20000);
  EXPECT_EQ(textOf(CURI(fromUTF8(deep)).getRawPath()), "/");
  EXPECT_EQ(textOf(CURI(fromUTF8(pairs)).getRawPath()), "/");
  EXPECT_EQ(textOf(CURI(fromUTF8(dots)).getRawPath()), "/");
  EXPECT_EQ(CURI(fromUTF8(ups)).getRawPath().length(), 3000001);
}

TEST(URI, OfAMegabyteKeepsAllOfIt) {
  const std::string name(1 << 20, 'n');
  const CURI uri(fromUTF8("abc://h/" + name + ".x?" + name + "#" + name));
  EXPECT_EQ(uri.getBaseName().length(), 1 << 20);
  EXPECT_EQ(uri.getQuery().length(), 1 << 20);
  EXPECT_EQ(uri.getFragment().length(), 1 << 20);
}

}  // namespace
}  // namespace orlo
