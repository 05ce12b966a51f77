#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "foundation/posix/FolderOperations.h"
#include "tests/foundation/TextOf.h"
#include "tests/foundation_system/TestFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>

namespace orlo {
namespace {

template <class Action>
std::string errorOf(Action action) {
  try {
    action();
  } catch (const CError& error) {
    return messageOf(error);
  }
  return "(none)";
}

std::string listed(const P<IURI>& folder, bool files, bool folders) {
  std::string names;
  const P<IEnum> found = getSystem()->enumFolder(folder, files, folders);
  const std::string start = textOf(folder->getDescription());
  while (found->hasNext()) names += textOf(cast<IURI>(found->next())->getDescription()).substr(start.size()) + " ";
  return names;
}

TEST(Folders, AreCreatedBelowThoseThatExist) {
  const CTestFolder folder;
  getSystem()->createFolder(folder.uriAt("a b ü/"), false);
  EXPECT_TRUE(getSystem()->folderExists(folder.uriAt("a b ü")));
  EXPECT_FALSE(getSystem()->fileExists(folder.uriAt("a b ü")));
  EXPECT_EQ(errorOf([&] { getSystem()->createFolder(folder.uriAt("a b ü"), false); }),
            "Error creating the folder '" + folder.at("a b ü") + "' (File exists).");
  EXPECT_EQ(errorOf([&] { getSystem()->createFolder(folder.uriAt("x/y"), false); }),
            "Error creating the folder '" + folder.at("x/y") + "' (No such file or directory).");
}

TEST(Folders, AreCreatedWithTheirParents) {
  const CTestFolder folder;
  getSystem()->createFolder(folder.uriAt("a/b/c \xF0\x9F\x8E\xAC/d"), true);
  EXPECT_TRUE(getSystem()->folderExists(folder.uriAt("a/b/c \xF0\x9F\x8E\xAC/d/")));
  EXPECT_NO_THROW(getSystem()->createFolder(folder.uriAt("a/b/c \xF0\x9F\x8E\xAC/d"), true));
  EXPECT_NO_THROW(getSystem()->createFolder(folder.uriAt("a/b/c \xF0\x9F\x8E\xAC/d/"), true));
}

TEST(Folders, AreNotCreatedBelowAFile) {
  const CTestFolder folder;
  writeFile(folder.at("a"));
  EXPECT_NE(errorOf([&] { getSystem()->createFolder(folder.uriAt("a/b"), true); }), "(none)");
  EXPECT_NE(errorOf([&] { getSystem()->createFolder(folder.uriAt("a"), true); }), "(none)");
}

TEST(Folders, AreNotCreatedWithoutPermission) {
  const CTestFolder folder;
  std::filesystem::create_directory(folder.at("locked"));
  chmod(folder.at("locked").c_str(), 0555);
  const CUnprivileged user;
  EXPECT_EQ(errorOf([&] { getSystem()->createFolder(folder.uriAt("locked/a/b"), true); }),
            "Error creating the folder '" + folder.at("locked/a/b") + "' (Permission denied).");
}

TEST(Folders, AreDeletedIfTheyAreEmpty) {
  const CTestFolder folder;
  std::filesystem::create_directories(folder.at("a/b"));
  EXPECT_EQ(errorOf([&] { getSystem()->deleteFolder(folder.uriAt("a"), false, false); }),
            "Error deleting the folder '" + folder.at("a") + "' (Directory not empty).");
  getSystem()->deleteFolder(folder.uriAt("a/b/"), false, false);
  EXPECT_FALSE(exists(folder.at("a/b")));
}

TEST(Folders, AreDeletedWithAllThatIsInThem) {
  const CTestFolder folder;
  std::filesystem::create_directories(folder.at("a/b/c"));
  std::filesystem::create_directories(folder.at("a/d"));
  for (const char* name : {"a/1", "a/b/2 ü", "a/b/c/.hidden", "a/d/3"}) writeFile(folder.at(name));
  chmod(folder.at("a/1").c_str(), 0400);
  getSystem()->deleteFolder(folder.uriAt("a"), true, false);
  EXPECT_FALSE(exists(folder.at("a")));
}

TEST(Folders, AreDeletedWithoutWhatTheirLinksLeadTo) {
  const CTestFolder folder;
  std::filesystem::create_directories(folder.at("a/b"));
  std::filesystem::create_directories(folder.at("kept"));
  writeFile(folder.at("kept/file"));
  std::filesystem::create_symlink("../../kept", folder.at("a/b/link"));
  std::filesystem::create_symlink("b", folder.at("a/loop"));
  std::filesystem::create_symlink("loop", folder.at("a/b/loop"));
  std::filesystem::create_symlink("nowhere", folder.at("a/broken"));
  getSystem()->deleteFolder(folder.uriAt("a"), true, false);
  EXPECT_FALSE(exists(folder.at("a")));
  EXPECT_TRUE(exists(folder.at("kept/file")));

  std::filesystem::create_symlink("kept", folder.at("link"));
  getSystem()->deleteFolder(folder.uriAt("link/"), true, false);
  EXPECT_FALSE(exists(folder.at("link")));
  EXPECT_TRUE(exists(folder.at("kept/file")));
}

TEST(Folders, AreDeletedHoweverDeepTheyNest) {
  const CTestFolder folder;
  const int before = open(".", O_RDONLY | O_DIRECTORY);
  ASSERT_EQ(chdir(folder.path.c_str()), 0);
  // Longer than a path may be, and more levels than files may be open.
  int made = 0;
  while (made < 3000 && mkdir("deep folder", 0777) == 0 && chdir("deep folder") == 0) ++made;
  ASSERT_EQ(fchdir(before), 0);
  close(before);
  EXPECT_EQ(made, 3000);
  getSystem()->deleteFolder(folder.uriAt("deep folder"), true, false);
  EXPECT_FALSE(exists(folder.at("deep folder")));
}

TEST(Folders, ThatCannotBeDeletedSayWhy) {
  const CTestFolder folder;
  const std::string start = "Error deleting the folder '" + folder.at("a") + "' (";
  for (const bool recursive : {false, true})
    EXPECT_EQ(errorOf([&] { getSystem()->deleteFolder(folder.uriAt("a"), recursive, false); }),
              start + "No such file or directory).");
  writeFile(folder.at("a"));
  for (const bool recursive : {false, true})
    EXPECT_EQ(errorOf([&] { getSystem()->deleteFolder(folder.uriAt("a"), recursive, false); }),
              start + "Not a directory).");
}

TEST(Folders, WithoutPermissionStay) {
  const CTestFolder folder;
  std::filesystem::create_directories(folder.at("a/locked"));
  writeFile(folder.at("a/locked/file"));
  chmod(folder.at("a/locked").c_str(), 0000);
  {
    const CUnprivileged user;
    EXPECT_EQ(errorOf([&] { getSystem()->deleteFolder(folder.uriAt("a"), true, false); }),
              "Error deleting the folder '" + folder.at("a") + "' (Permission denied).");
    EXPECT_EQ(listed(folder.uriAt("a/locked/"), true, true), "");
  }
  chmod(folder.at("a/locked").c_str(), 0755);
  EXPECT_TRUE(exists(folder.at("a/locked/file")));
}

TEST(Folders, SayThatAFileInThemIsAnothers) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make a file of another user";
  const CTestFolder folder;
  std::filesystem::create_directory(folder.at("sticky"));
  writeFile(folder.at("sticky/file"));
  chmod(folder.at("sticky").c_str(), 01777);
  const CUnprivileged user;
  EXPECT_EQ(errorOf([&] { getSystem()->deleteFolder(folder.uriAt("sticky"), true, false); }),
            "Error deleting the folder '" + folder.at("sticky") + "' (Operation not permitted).");
}

TEST(Folders, AreMovedWithAllThatIsInThem) {
  const CTestFolder folder;
  std::filesystem::create_directories(folder.at("a/b"));
  getSystem()->moveFolder(folder.uriAt("a/"), folder.uriAt("c/"));
  EXPECT_TRUE(exists(folder.at("c/b")));
  std::filesystem::create_directories(folder.at("d"));
  EXPECT_EQ(errorOf([&] { getSystem()->moveFolder(folder.uriAt("c"), folder.uriAt("d")); }),
            "Error moving folder '" + folder.at("c") + "' to '" + folder.at("d") + "'.");
  EXPECT_NE(errorOf([&] { getSystem()->moveFolder(folder.uriAt("c"), folder.uriAt("c/b/x")); }), "(none)");
}

TEST(Folders, TellWhatIsInThemByName) {
  const CTestFolder folder;
  std::filesystem::create_directory(folder.at("sub folder"));
  for (const char* name : {"b", "a ü", "c#", "latin1 \xE4", ".hidden"}) writeFile(folder.at(name));
  std::filesystem::create_symlink("sub folder", folder.at("link"));
  std::filesystem::create_symlink("nowhere", folder.at("x"));
  const P<IURI> uri = folder.uriAt("");
  EXPECT_EQ(listed(uri, true, true), ".hidden a%20%C3%BC b c%23 latin1%20%E4 link/ sub%20folder/ x ");
  EXPECT_EQ(listed(uri, true, false), ".hidden a%20%C3%BC b c%23 latin1%20%E4 x ");
  EXPECT_EQ(listed(uri, false, true), "link/ sub%20folder/ ");
  EXPECT_EQ(listed(uri, false, false), "");
  EXPECT_EQ(listed(folder.uriAt("missing/"), true, true), "");
  EXPECT_EQ(listed(folder.uriAt("b"), true, true), "");
}

}  // namespace
}  // namespace orlo
