#include "foundation/Error.h"
#include "foundation/posix/Trash.h"
#include "tests/foundation/TextOf.h"
#include "tests/foundation_system/SmallDisk.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <regex>

namespace orlo {
namespace {

/// A recycle bin of its own.
struct CTrashTest : testing::Test {
  CTestFolder folder;
  CVariable data{"XDG_DATA_HOME", folder.at("data")};
  std::string trash = folder.at("data/Trash/");
};

TEST_F(CTrashTest, KeepsAFileWithTheNoteOfItsPlace) {
  writeFile(folder.at("a ü%.txt"), "kept");
  getSystem()->deleteFile(folder.uriAt("a ü%.txt"), true);
  EXPECT_FALSE(exists(folder.at("a ü%.txt")));
  EXPECT_EQ(readFile(trash + "files/a ü%.txt"), "kept");
  const std::regex note("\\[Trash Info\\]\nPath=" + folder.path +
                        "/a%20%C3%BC%25\\.txt\nDeletionDate=[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\n");
  EXPECT_TRUE(std::regex_match(readFile(trash + "info/a ü%.txt.trashinfo"), note));
}

TEST_F(CTrashTest, GivesFilesOfOneNameNamesOfTheirOwn) {
  for (const char* content : {"1", "2", "3"}) {
    writeFile(folder.at("a"), content);
    getSystem()->deleteFile(folder.uriAt("a"), true);
  }
  EXPECT_EQ(readFile(trash + "files/a"), "1");
  EXPECT_EQ(readFile(trash + "files/a.2"), "2");
  EXPECT_EQ(readFile(trash + "files/a.3"), "3");
  EXPECT_TRUE(exists(trash + "info/a.3.trashinfo"));
}

TEST_F(CTrashTest, LeavesAFileWithoutANoteAlone) {
  std::filesystem::create_directories(trash + "files");
  writeFile(trash + "files/a", "somebody's");
  writeFile(folder.at("a"), "mine");
  getSystem()->deleteFile(folder.uriAt("a"), true);
  EXPECT_EQ(readFile(trash + "files/a"), "somebody's");
  EXPECT_FALSE(exists(trash + "info/a.trashinfo"));
  EXPECT_EQ(readFile(trash + "files/a.2"), "mine");
}

TEST_F(CTrashTest, KeepsFoldersAndLinks) {
  std::filesystem::create_directories(folder.at("f/g"));
  writeFile(folder.at("f/g/a"));
  getSystem()->deleteFolder(folder.uriAt("f/"), true, true);
  EXPECT_TRUE(exists(trash + "files/f/g/a"));
  writeFile(folder.at("target"));
  std::filesystem::create_symlink("target", folder.at("link"));
  getSystem()->deleteFile(folder.uriAt("link"), true);
  EXPECT_TRUE(exists(folder.at("target")));
  EXPECT_TRUE(std::filesystem::is_symlink(trash + "files/link"));
}

TEST_F(CTrashTest, TakesTheLinkToAFolderAsAFileOrAFolder) {
  std::filesystem::create_directories(folder.at("f"));
  for (const char* name : {"one", "two"}) std::filesystem::create_directory_symlink("f", folder.at(name));
  getSystem()->deleteFile(folder.uriAt("one"), true);
  getSystem()->deleteFolder(folder.uriAt("two/"), true, true);
  for (const char* name : {"one", "two"}) EXPECT_TRUE(std::filesystem::is_symlink(trash + "files/" + name)) << name;
  EXPECT_TRUE(exists(folder.at("f")));
}

TEST_F(CTrashTest, IsNotLedElsewhereByLinks) {
  const std::string disk = folder.at("disk");
  std::filesystem::create_directory(disk);
  CSmallDisk::run(disk, "1m", [&]() -> std::string {
    const std::string elsewhere = disk + "/elsewhere";
    const std::string own = disk + "/.Trash-" + std::to_string(geteuid());
    std::filesystem::create_directory(elsewhere);
    for (const std::string& name : {own, own + "/files", own + "/info"}) {
      std::filesystem::remove_all(own);
      std::filesystem::create_directories(std::filesystem::path(name).parent_path());
      std::filesystem::create_directory_symlink(elsewhere, name);
      writeFile(disk + "/a");
      if (posix::moveToTrash(disk + "/a") == 0 || !exists(disk + "/a")) return "moved by the link " + name;
      if (!std::filesystem::is_empty(elsewhere)) return "something written behind the link " + name;
    }
    return "";
  });
}

TEST_F(CTrashTest, TakesNamesOfAnyLength) {
  const std::string name(255, 'n');
  writeFile(folder.at(name));
  getSystem()->deleteFile(folder.uriAt(name), true);
  EXPECT_FALSE(exists(folder.at(name)));
  EXPECT_TRUE(exists(trash + "files/" + std::string(230, 'n')));
}

TEST_F(CTrashTest, SaysWhatItCannotTake) {
  const auto messageFor = [&](auto action) {
    try {
      action();
    } catch (const CError& error) {
      return messageOf(error);
    }
    return std::string("(none)");
  };
  EXPECT_EQ(messageFor([&] { getSystem()->deleteFile(folder.uriAt("a"), true); }),
            "Error deleting the file '" + folder.at("a") + "' (No such file or directory).");
  EXPECT_EQ(messageFor([&] { getSystem()->deleteFolder(folder.uriAt("a"), true, true); }),
            "Error deleting the folder '" + folder.at("a") + "' (No such file or directory).");
  writeFile(folder.at("file"));
  EXPECT_EQ(messageFor([&] { getSystem()->deleteFolder(folder.uriAt("file"), true, true); }),
            "Error deleting the folder '" + folder.at("file") + "' (Not a directory).");
  EXPECT_EQ(posix::moveToTrash("/"), EINVAL);
  EXPECT_EQ(posix::moveToTrash(""), EINVAL);
  EXPECT_EQ(posix::moveToTrash(folder.at("..")), EINVAL);
}

TEST_F(CTrashTest, OfAnotherFileSystemIsAtItsTop) {
  std::filesystem::create_directory(folder.at("disk"));
  CSmallDisk::run(folder.at("disk"), "1m", [&]() -> std::string {
    const std::string own = folder.at("disk/.Trash-") + std::to_string(geteuid());
    std::filesystem::create_directory(folder.at("disk/sub"));
    writeFile(folder.at("disk/sub/a b"), "kept");
    getSystem()->deleteFile(folder.uriAt("disk/sub/a b"), true);
    if (readFile(own + "/files/a b") != "kept") return "the file is not there";
    if (readFile(own + "/info/a b.trashinfo").find("\nPath=sub/a%20b\n") == std::string::npos)
      return "the path is not relative";
    if (exists(trash + "files/a b")) return "the file is in the home's trash";

    // One for all users, made by the administrator.
    std::filesystem::create_directory(folder.at("disk/.Trash"));
    chmod(folder.at("disk/.Trash").c_str(), 01777);
    writeFile(folder.at("disk/c"));
    getSystem()->deleteFile(folder.uriAt("disk/c"), true);
    return exists(folder.at("disk/.Trash/") + std::to_string(geteuid()) + "/files/c") ? "" : "not in the shared one";
  });
}

TEST_F(CTrashTest, DoesNotTakeTheFolderThatAFileSystemIsMountedAt) {
  std::filesystem::create_directory(folder.at("disk"));
  CSmallDisk::run(folder.at("disk"), "1m", [&]() -> std::string {
    try {
      getSystem()->deleteFolder(folder.uriAt("disk"), true, true);
      return "deleted";
    } catch (const CError& error) {
      if (messageOf(error) != "Error deleting the folder '" + folder.at("disk") + "' (Device or resource busy).")
        return messageOf(error);
    }
    return std::filesystem::is_empty(folder.at("disk")) ? "" : "something is left behind";
  });
}

TEST_F(CTrashTest, TrustsNoSharedFolderThatIsNotSticky) {
  std::filesystem::create_directory(folder.at("disk"));
  CSmallDisk::run(folder.at("disk"), "1m", [&]() -> std::string {
    std::filesystem::create_directory(folder.at("disk/.Trash"));
    chmod(folder.at("disk/.Trash").c_str(), 0777);
    writeFile(folder.at("disk/c"));
    getSystem()->deleteFile(folder.uriAt("disk/c"), true);
    return exists(folder.at("disk/.Trash-") + std::to_string(geteuid()) + "/files/c") ? "" : "the file is elsewhere";
  });
}

}  // namespace
}  // namespace orlo
