#include "foundation/StringObject.h"
#include "foundation/URI.h"
#include "foundation/URIEscape.h"
#include "foundation/URIText.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <random>

namespace orlo {
namespace {

class CRandomTexts {
public:
  std::size_t below(std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(generator_); }

  /// Any character of Unicode, of every size in UTF-8 alike.
  char32_t character() {
    constexpr char32_t kEnds[] = {0x80, 0x800, 0x10000, 0x110000};
    for (;;) {
      const auto codePoint = static_cast<char32_t>(1 + below(kEnds[below(4)] - 1));
      if (codePoint < 0xD800 || codePoint >= 0xE000) return codePoint;
    }
  }
  String text(std::size_t longest) {
    std::u32string result;
    for (std::size_t i = below(longest + 1); i > 0; --i) result += character();
    return toWide(P<IString>(makeObject<CUTF32String>(result.c_str(), CString::Storage::copy)));
  }
  /// Made of what matters in a URI.
  std::string uriText() {
    static const char* const kPieces[] = {"a",  "b.c", "file", ":",   "/",   "//",     "/",   "?", "#", "@",
                                          "..", ".",   "/../", "/./", "%20", "%C3%A9", "%FF", "%", "[", "]"};
    std::string result;
    for (std::size_t i = below(12); i > 0; --i) result += kPieces[below(std::size(kPieces))];
    return result;
  }

private:
  std::mt19937 generator_{20260101};
};

P<IURI> parsed(const String& text) {
  try {
    return createURI(text);
  } catch (const CParseError&) {
    return nullptr;
  }
}

/// A path that has lost its dots may look like a scheme or an authority.
bool readsBack(const IURI& uri) {
  const String path = uri.getRawPath();
  if (!uri.hasPath() || uri.hasAuthority()) return true;
  if (path.startsWith("//")) return false;
  return uri.hasScheme() ? path.startsWith("/") : path.substring({}, path.find("/")).find(":").isEnd();
}

void expectSame(const IURI& a, const IURI& b, const std::string& text) {
  const auto same = [&](String (IURI::*get)() const) { EXPECT_EQ(textOf((a.*get)()), textOf((b.*get)())) << text; };
  for (const auto get : {&IURI::getScheme, &IURI::getRawAuthority, &IURI::getRawUserInfo, &IURI::getHost,
                         &IURI::getPortText, &IURI::getRawFileName, &IURI::getRawBaseName, &IURI::getRawExtension,
                         &IURI::getRawFolder, &IURI::getRawQuery, &IURI::getRawFragment, &IURI::getAuthority,
                         &IURI::getUserInfo, &IURI::getFileName, &IURI::getFolder, &IURI::getQuery, &IURI::getFragment})
    same(get);
  EXPECT_TRUE(a.getRawPath() == b.getRawPath()) << text;
  EXPECT_EQ(a.getPort(), b.getPort()) << text;
}

TEST(URIProperties, AComposedTextParsesToTheSameComponents) {
  CRandomTexts random;
  int compared = 0;
  for (int i = 0; i < 20000; ++i) {
    const std::string text = random.uriText();
    const P<IURI> uri = parsed(fromUTF8(text));
    if (!uri || !readsBack(*uri)) continue;
    const P<IURI> again = parsed(uri->getDescription());
    ASSERT_TRUE(again) << text;
    expectSame(*uri, *again, text);
    EXPECT_EQ(textOf(again->getDescription()), textOf(uri->getDescription()));
    ++compared;
  }
  EXPECT_GT(compared, 10000);
}

/// Step by step on the text, as one would do it by hand.
std::string withoutDots(std::string path) {
  while (path.starts_with("./")) path.erase(0, 2);
  for (std::size_t at; (at = path.find("/./")) != std::string::npos;) path.erase(at, 2);
  if (path.ends_with("/.")) path.pop_back();
  if (path == ".") path.clear();
  const std::size_t root = path.starts_with('/') ? 1 : 0;
  for (std::size_t start = root; start < path.size();) {
    const std::size_t slash = path.find('/', start);
    if (slash == std::string::npos) break;
    const std::size_t end = std::min(path.find('/', slash + 1), path.size());
    const bool isPair = path.substr(start, slash - start) != ".." && path.substr(slash + 1, end - slash - 1) == "..";
    if (isPair) path.erase(start, end + 1 - start);
    start = isPair ? root : slash + 1;
  }
  return path;
}

TEST(URIProperties, APathLosesItsDotSegmentsStepByStep) {
  CRandomTexts random;
  int changed = 0;
  for (int i = 0; i < 20000; ++i) {
    static const char* const kNames[] = {"a", "b", "..", ".", "..", "...", ".c"};
    std::string path(random.below(2), '/');
    for (std::size_t names = 1 + random.below(9); names > 0; --names)
      path.append(kNames[random.below(std::size(kNames))]).append(names > 1 || random.below(2) == 0 ? "/" : "");
    const std::string expected = withoutDots(path);
    EXPECT_EQ(textOf(CURI(fromUTF8(path)).getRawPath()), expected) << path;
    changed += expected == path ? 0 : 1;
  }
  EXPECT_GT(changed, 10000);
}

TEST(URIProperties, ATextWithoutDotSegmentsIsComposedAsItWas) {
  CRandomTexts random;
  int compared = 0;
  for (int i = 0; i < 20000; ++i) {
    const String text = fromUTF8(random.uriText());
    const P<IURI> uri = parsed(text);
    const String wide = toWide(text);
    const uri::CParts parts = uri::split(uri::unitsOf(wide));
    if (!uri || uri::hasDotSegments(parts.path.value_or(uri::View()))) continue;
    EXPECT_EQ(textOf(uri->getDescription()), textOf(text));
    ++compared;
  }
  EXPECT_GT(compared, 5000);
}

TEST(URIProperties, ComponentsThatAreEscapedComeBack) {
  CRandomTexts random;
  for (int i = 0; i < 3000; ++i) {
    const String path = u"/" + random.text(12).replace("/", "-") + "/" + random.text(12).replace(".", "-");
    const String user = random.text(8);
    const String query = random.text(12);
    const String fragment = random.text(12);
    const CURI uri("abc", "host", 17, user, path.replace("/.", "/x"), query, fragment);
    EXPECT_EQ(textOf(uri.getUserInfo()), textOf(user));
    EXPECT_EQ(textOf(uri.getPath()), textOf(path.replace("/.", "/x")));
    EXPECT_EQ(textOf(uri.getQuery()), textOf(query));
    EXPECT_EQ(textOf(uri.getFragment()), textOf(fragment));
    EXPECT_EQ(uri.getPort(), 17);
  }
}

TEST(URIProperties, UnescapingTakesBackEscaping) {
  CRandomTexts random;
  for (int i = 0; i < 20000; ++i) {
    const String text = random.text(20);
    const String escaped = uriEscape(text, i % 2 == 0 ? L"" : L";:,/?@&=+$");
    EXPECT_TRUE(uriUnescape(escaped) == text) << textOf(escaped);
    EXPECT_TRUE(escaped.findNoneOf("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_.!~*'()%;:,/?@&=+$")
                    .isEnd());
  }
}

TEST(URIProperties, AnEscapedTextIsReadAlikeInEveryEncoding) {
  CRandomTexts random;
  for (int i = 0; i < 5000; ++i) {
    const String text = random.text(20);
    const std::string escaped = textOf(uriEscape(text, L"/"));
    EXPECT_EQ(textOf(uriEscape(toUTF8(text), L"/")), escaped);
    EXPECT_EQ(textOf(uriEscape(toUTF32(text), L"/")), escaped);
  }
}

TEST(URIProperties, ResolvingTakesBackMakingRelative) {
  CRandomTexts random;
  const auto location = [&random] {
    static const char* const kNames[] = {"/a", "/b", "/c.d", "/", "/x:y", "/%20"};
    std::string text = "abc://h";
    for (std::size_t i = 1 + random.below(5); i > 0; --i) text += kNames[random.below(std::size(kNames))];
    if (random.below(3) == 0) text += "?q";
    if (random.below(3) == 0) text += "#f";
    return createURI(fromUTF8(text));
  };
  int relative = 0;
  for (int i = 0; i < 20000; ++i) {
    const P<IURI> target = location();
    const P<IURI> base = location();
    const P<IURI> reference = createURI(target->makeRelative(base)->getDescription());
    EXPECT_EQ(textOf(reference->resolve(base)->getDescription()), textOf(target->getDescription()));
    relative += reference->isAbsolute() ? 0 : 1;
  }
  EXPECT_GT(relative, 15000);
}

}  // namespace
}  // namespace orlo
