#include "foundation/URI.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

namespace orlo {
namespace {

std::string resolved(const char* reference, const char* base) {
  const std::string result = textOf(CURI(reference).resolve(createURI(base))->getDescription());
  EXPECT_EQ(textOf(CURI(CURI(base), reference).getDescription()), result);
  return result;
}

std::string relative(const char* target, const char* base) {
  const P<IURI> result = CURI(target).makeRelative(createURI(base));
  const P<IURI> again = createURI(result->getDescription());
  EXPECT_EQ(textOf(again->resolve(createURI(base))->getDescription()), textOf(CURI(target).getDescription()));
  return textOf(result->getDescription());
}

std::string textOf(const P<IURI>& uri) {
  return uri ? orlo::toStdString(uri->getDescription()) : "(none)";
}

TEST(URIResolve, ReplacesTheNameBehindTheBasesFolder) {
  EXPECT_EQ(resolved("c.png", "file:///a/b.xml"), "file:///a/c.png");
}

// The normal examples of RFC 2396, appendix C.1.
TEST(URIResolve, GivesTheNormalExamplesOfTheRFC) {
  const char* base = "http://a/b/c/d;p?q";
  const std::pair<const char*, const char*> examples[] = {
      {"g:h", "g:h"},
      {"g", "http://a/b/c/g"},
      {"./g", "http://a/b/c/g"},
      {"g/", "http://a/b/c/g/"},
      {"/g", "http://a/g"},
      {"//g", "http://g"},
      {"?y", "http://a/b/c/?y"},
      {"g?y", "http://a/b/c/g?y"},
      {"g#s", "http://a/b/c/g#s"},
      {"g?y#s", "http://a/b/c/g?y#s"},
      {";x", "http://a/b/c/;x"},
      {"g;x", "http://a/b/c/g;x"},
      {"g;x?y#s", "http://a/b/c/g;x?y#s"},
      {".", "http://a/b/c/"},
      {"./", "http://a/b/c/"},
      {"..", "http://a/b/"},
      {"../", "http://a/b/"},
      {"../g", "http://a/b/g"},
      {"../..", "http://a/"},
      {"../../", "http://a/"},
      {"../../g", "http://a/g"},
  };
  for (const auto& [reference, target] : examples) EXPECT_EQ(resolved(reference, base), target) << reference;
  // "(current document)#s": the document is that of the base, its query included.
  EXPECT_EQ(resolved("#s", base), "http://a/b/c/d;p?q#s");
}

// The abnormal examples of RFC 2396, appendix C.2.
TEST(URIResolve, GivesTheAbnormalExamplesOfTheRFC) {
  const char* base = "http://a/b/c/d;p?q";
  const std::pair<const char*, const char*> examples[] = {
      {"", "http://a/b/c/d;p?q"},
      {"../../../g", "http://a/../g"},
      {"../../../../g", "http://a/../../g"},
      {"/../g", "http://a/../g"},
      {"g.", "http://a/b/c/g."},
      {".g", "http://a/b/c/.g"},
      {"g..", "http://a/b/c/g.."},
      {"..g", "http://a/b/c/..g"},
      {"./../g", "http://a/b/g"},
      {"./g/.", "http://a/b/c/g/"},
      {"g/./h", "http://a/b/c/g/h"},
      {"g/../h", "http://a/b/c/h"},
      {"g;x=1/./y", "http://a/b/c/g;x=1/y"},
      {"g;x=1/../y", "http://a/b/c/y"},
      {"g?y/./x", "http://a/b/c/g?y/./x"},
      {"g?y/../x", "http://a/b/c/g?y/../x"},
      {"g#s/./x", "http://a/b/c/g#s/./x"},
      {"g#s/../x", "http://a/b/c/g#s/../x"},
      {"http:g", "http:g"},
      // Otherwise than in the RFC, which leaves "/./g" as it is: every path loses its dots when it is parsed.
      {"/./g", "http://a/g"},
  };
  for (const auto& [reference, target] : examples) EXPECT_EQ(resolved(reference, base), target) << reference;
}

TEST(URIResolve, KeepsTheAuthorityOfTheReference) {
  EXPECT_EQ(resolved("//u@h:8/p", "abc://x/y?z"), "abc://u@h:8/p");
  EXPECT_EQ(CURI("//u@h:8/p").resolve(createURI("abc://x/y"))->getPort(), 8);
}

TEST(URIResolve, PutsAPathBelowTheRootOfABaseWithoutOne) {
  EXPECT_EQ(resolved("c", "abc://h"), "abc://h/c");
  EXPECT_EQ(resolved("c", "abc://h/"), "abc://h/c");
  EXPECT_EQ(resolved("c", "abc:/"), "abc:/c");
}

TEST(URIResolve, WorksWithARelativeBase) {
  EXPECT_EQ(resolved("c", "a/b"), "a/c");
  EXPECT_EQ(resolved("../c", "a/b"), "c");
  EXPECT_EQ(resolved("../../c", "a/b"), "../c");
}

TEST(URIResolve, TakesTheSchemeOfABaseThatHasNoPath) {
  EXPECT_EQ(resolved("c", "abc:opaque"), "abc:c");
  EXPECT_EQ(resolved("./b/../c?q#f", "abc:o/p"), "abc:c?q#f");
  EXPECT_EQ(resolved("?q", "abc:opaque"), "abc:?q");
  EXPECT_EQ(resolved("/c", "abc:opaque"), "abc:/c");
  EXPECT_EQ(resolved("//h/c", "abc:opaque"), "abc://h/c");
  EXPECT_EQ(resolved("xyz:c", "abc:opaque"), "xyz:c");
  EXPECT_EQ(resolved("", "abc:opaque"), "abc:opaque");
  const P<IURI> uri = CURI("b/c?q#f").resolve(createURI("abc:opaque"));
  EXPECT_TRUE(uri->isAbsolute());
  EXPECT_FALSE(uri->isHierarchical() || uri->hasPath() || uri->hasQuery() || uri->hasFragment());
  EXPECT_EQ(orlo::toStdString(uri->getSchemeSpecificPart()), "b/c?q#f");
  EXPECT_EQ(orlo::toStdString(CURI("/c?q").resolve(createURI("abc:opaque"))->getQuery()), "q");
}

TEST(URIResolve, LeavesAReferenceAloneThatHasNoBase) {
  EXPECT_EQ(textOf(CURI("c").resolve(nullptr)), "c");
}

TEST(URIResolve, FillsTheComponentsOfTheResult) {
  const P<IURI> uri = CURI("d%20e.f?x").resolve(createURI("abc://u@h:1/b/c"));
  EXPECT_EQ(orlo::toStdString(uri->getBaseName()), "d e");
  EXPECT_EQ(orlo::toStdString(uri->getExtension()), "f");
  EXPECT_EQ(orlo::toStdString(uri->getUserInfo()), "u");
  EXPECT_EQ(orlo::toStdString(uri->getQuery()), "x");
  EXPECT_EQ(orlo::toStdString(uri->getRawSchemeSpecificPart()), "//u@h:1/b/d%20e.f?x");
  EXPECT_TRUE(uri->isAbsolute());
}

TEST(URIMakeRelative, IsTheReverseOfResolve) {
  EXPECT_EQ(relative("file:///a/c.png", "file:///a/b.xml"), "c.png");
  EXPECT_EQ(relative("file:///a/d/c.png", "file:///a/b.xml"), "d/c.png");
  EXPECT_EQ(relative("file:///c.png", "file:///a/d/b.xml"), "../../c.png");
  EXPECT_EQ(relative("file:///a/x/c.png", "file:///a/d/b.xml"), "../x/c.png");
  EXPECT_EQ(relative("file:///a/xy/c", "file:///a/xz/b"), "../xy/c");
  EXPECT_EQ(relative("abc://h/a?q#f", "abc://h/b"), "a?q#f");
  EXPECT_EQ(relative("abc://h/a#f", "abc://h/a"), "#f");
  EXPECT_EQ(relative("abc://h/a", "abc://h/a?q"), "a");
  EXPECT_EQ(relative("abc://h/", "abc://h"), "/");
}

TEST(URIMakeRelative, FindsAFormThatIsNotTakenForSomethingElse) {
  EXPECT_EQ(relative("file:///a/d/", "file:///a/d/b.xml"), "../d/");
  EXPECT_EQ(relative("file:///", "file:///b.xml"), "/");
  EXPECT_EQ(relative("file:///a/x:y", "file:///a/b"), "../a/x:y");
  EXPECT_EQ(relative("file:///a//y", "file:///a/b"), "../a//y");
  EXPECT_EQ(relative("file:/c://h:x", "file:/q"), "/c://h:x");
  EXPECT_EQ(relative("file:////y", "file:///b"), "file:////y");
  EXPECT_EQ(relative("file:///a/b", "file:///../c/d"), "/a/b");
}

TEST(URIMakeRelative, LeavesAnotherSchemeOrAuthorityAlone) {
  EXPECT_EQ(relative("abc://h/a", "xyz://h/a"), "abc://h/a");
  EXPECT_EQ(relative("abc://h/a", "abc://g/a"), "abc://h/a");
  EXPECT_EQ(relative("abc:/a", "abc:///a"), "abc:/a");
  EXPECT_EQ(relative("abc:x", "abc:y"), "abc:x");
  EXPECT_EQ(textOf(CURI("abc://h/a").makeRelative(nullptr)), "abc://h/a");
}

TEST(URIFolder, IsThePathUpToItsLastSlashWithoutQueryAndFragment) {
  EXPECT_EQ(textOf(CURI("abc://h/a/b.c?q#f").getFolderURI()), "abc://h/a/");
  EXPECT_EQ(textOf(CURI("abc://h/a/b/").getFolderURI()), "abc://h/a/b/");
  EXPECT_EQ(textOf(CURI("a/b").getFolderURI()), "a/");
  EXPECT_EQ(textOf(CURI("b").getFolderURI()), "");
  EXPECT_EQ(textOf(CURI("abc://h").getFolderURI()), "(none)");
  EXPECT_EQ(textOf(CURI("abc:x").getFolderURI()), "(none)");
}

TEST(URIParent, IsOneLevelUp) {
  EXPECT_EQ(textOf(CURI("abc://h/a/b.c?q#f").getParentURI()), "abc://h/a/");
  EXPECT_EQ(textOf(CURI("abc://h/a/b/").getParentURI()), "abc://h/a/");
  EXPECT_EQ(textOf(CURI("abc://h/a/").getParentURI()), "abc://h/");
  EXPECT_EQ(textOf(CURI("abc://h/").getParentURI()), "(none)");
  EXPECT_EQ(textOf(CURI("abc://h").getParentURI()), "(none)");
  EXPECT_EQ(textOf(CURI("a/b").getParentURI()), "a/");
  EXPECT_EQ(textOf(CURI("a").getParentURI()), "");
  EXPECT_EQ(textOf(CURI(".").getParentURI()), "../");
  EXPECT_EQ(textOf(CURI("../").getParentURI()), "../../");
  EXPECT_EQ(textOf(CURI("..").getParentURI()), "../../");
}

}  // namespace
}  // namespace orlo
