#include "foundation/Error.h"
#include "foundation/posix/UniqueName.h"
#include "tests/foundation/TextOf.h"
#include "tests/foundation_system/TestFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <regex>

namespace orlo {
namespace {

TEST(UniqueName, HasEightDigitsBetweenPrefixAndSuffix) {
  const CTestFolder folder;
  const P<IURI> file = getSystem()->createUniqueFile(folder.uriAt(""), u"prä ", ".x%d");
  EXPECT_TRUE(std::regex_match(toStdString(file->getFileName()), std::regex("prä [0-9A-F]{8}\\.x%d")));
  EXPECT_TRUE(getSystem()->fileExists(file));
  EXPECT_EQ(getSystem()->getFileSize(file), 0);
  const P<IURI> made = getSystem()->createUniqueFolder(folder.uriAt(""), "a", "b");
  EXPECT_TRUE(std::regex_match(toStdString(made->getPath()), std::regex(folder.path + "/a[0-9A-F]{8}b/")));
  EXPECT_TRUE(getSystem()->folderExists(made));
}

TEST(UniqueName, DiffersFromTheOneBefore) {
  const CTestFolder folder;
  const P<IURI> first = getSystem()->createUniqueFile(folder.uriAt(""), "", "");
  EXPECT_FALSE(*first == *getSystem()->createUniqueFile(folder.uriAt(""), "", ""));
}

TEST(UniqueName, PassesOverNamesThatExist) {
  const CTestFolder folder;
  std::string first;
  std::string second;
  CMersenneTwisterRandomNumberGenerator random(1);
  EXPECT_EQ(posix::createUniqueFile(folder.path, "a", "", random, first), 0);
  CMersenneTwisterRandomNumberGenerator again(1);
  EXPECT_EQ(posix::createUniqueFile(folder.path, "a", "", again, second), 0);
  EXPECT_NE(first, second);
  EXPECT_EQ(again.getNext(), (random.getNext(), random.getNext()));
  CMersenneTwisterRandomNumberGenerator third(1);
  std::string made;
  EXPECT_EQ(posix::createUniqueFolder(folder.path, "a", "", third, made), 0);
  EXPECT_NE(made, first + "/");
  EXPECT_NE(made, second + "/");
}

TEST(UniqueName, HasNoPrefixThatWouldEndIt) {
  const CTestFolder folder;
  const String prefix = fromUTF8(std::string_view("a\0b", 3));
  EXPECT_THROW(getSystem()->createUniqueFile(folder.uriAt(""), prefix, ""), CError);
  EXPECT_THROW(getSystem()->createUniqueFolder(folder.uriAt(""), prefix, ""), CError);
  EXPECT_FALSE(exists(folder.at("a")));
}

TEST(UniqueName, IsNotFoundInAMissingFolder) {
  const CTestFolder folder;
  EXPECT_THROW(getSystem()->createUniqueFile(folder.uriAt("x/"), "a", "b"), CFileNotFoundError);
  EXPECT_THROW(getSystem()->createUniqueFolder(folder.uriAt("x/"), "a", "b"), CFileNotFoundError);
  EXPECT_THROW(getSystem()->createUniqueFile(nullptr, "a", "b"), CFileNotFoundError);
}

TEST(UniqueName, SaysWhyItCouldNotBeMade) {
  const CTestFolder folder;
  chmod(folder.path.c_str(), 0555);
  const CUnprivileged user;
  try {
    getSystem()->createUniqueFile(folder.uriAt(""), "a", "b");
    ADD_FAILURE();
  } catch (const CError& error) {
    EXPECT_EQ(messageOf(error), "Error creating unique file name. Permission denied");
  }
  try {
    getSystem()->createUniqueFolder(folder.uriAt(""), "a", "b");
    ADD_FAILURE();
  } catch (const CError& error) {
    EXPECT_EQ(messageOf(error), "Error creating unique folder name. Permission denied");
  }
}

}  // namespace
}  // namespace orlo
