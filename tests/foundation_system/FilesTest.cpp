#include "foundation/Error.h"
#include "foundation/StringLocalizer.h"
#include "tests/foundation/TextOf.h"
#include "tests/foundation_system/SmallDisk.h"

#include <gtest/gtest.h>

#include <chrono>

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

const std::string kNames[] = {"plain.txt",           "with blanks .txt", "umläute ÄÖÜß", "emoji \xF0\x9F\x8E\xAC.mp4",
                              "100%#?&;.x",          "back\\slash",      "co:lon",       "-option",
                              "latin1 \xE4\xF6\xFC", "new\nline"};

TEST(Files, ExistUnderAllKindsOfNames) {
  const CTestFolder folder;
  for (const std::string& name : kNames) {
    const P<IURI> file = folder.uriAt(name);
    EXPECT_FALSE(getSystem()->fileExists(file)) << name;
    writeFile(folder.at(name));
    EXPECT_TRUE(getSystem()->fileExists(file)) << name;
    EXPECT_FALSE(getSystem()->folderExists(file)) << name;
    getSystem()->copyFile(file, folder.uriAt(name + " copy"), true);
    EXPECT_EQ(readFile(folder.at(name + " copy")), "content");
    getSystem()->moveFile(file, folder.uriAt(name + " moved"));
    EXPECT_FALSE(exists(folder.at(name)));
    getSystem()->deleteFile(folder.uriAt(name + " moved"), false);
    EXPECT_FALSE(exists(folder.at(name + " moved")));
  }
}

TEST(Files, AreNotThereWithoutAPath) {
  EXPECT_FALSE(getSystem()->fileExists(nullptr));
  EXPECT_FALSE(getSystem()->fileExists(createURI("http://host/etc/passwd")));
  EXPECT_FALSE(getSystem()->fileExists(createURI("file://elsewhere/etc/passwd")));
  EXPECT_FALSE(getSystem()->folderExists(createURI("")));
  EXPECT_EQ(errorOf([] { getSystem()->deleteFile(nullptr, false); }),
            "Error deleting the file '' (No such file or directory).");
  EXPECT_EQ(errorOf([] { getSystem()->createFolder(createURI("http://host/a"), true); }),
            "Error creating the folder 'http://host/a' (No such file or directory).");
}

TEST(Files, ThatAreReadOnlyAreDeleted) {
  const CTestFolder folder;
  writeFile(folder.at("a"));
  chmod(folder.at("a").c_str(), 0400);
  const CUnprivileged user;
  getSystem()->deleteFile(folder.uriAt("a"), false);
  EXPECT_FALSE(exists(folder.at("a")));
}

TEST(Files, ThatCannotBeDeletedSayWhy) {
  const CTestFolder folder;
  EXPECT_EQ(errorOf([&] { getSystem()->deleteFile(folder.uriAt("ü \xF0\x9F\x8E\xAC"), false); }),
            "Error deleting the file '" + folder.at("ü \xF0\x9F\x8E\xAC") + "' (No such file or directory).");
  EXPECT_EQ(errorOf([&] { getSystem()->deleteFile(folder.uriAt(""), false); }),
            "Error deleting the file '" + folder.path + "/' (Is a directory).");
  std::filesystem::create_directory(folder.at("locked"));
  writeFile(folder.at("locked/a"));
  chmod(folder.at("locked").c_str(), 0555);
  {
    const CUnprivileged user;
    EXPECT_EQ(errorOf([&] { getSystem()->deleteFile(folder.uriAt("locked/a"), false); }),
              "Error deleting the file '" + folder.at("locked/a") + "' (Permission denied).");
  }
  chmod(folder.at("locked").c_str(), 0755);
}

TEST(Files, AreMovedOnlyToFreeNames) {
  const CTestFolder folder;
  writeFile(folder.at("a"), "first");
  writeFile(folder.at("b"), "second");
  const std::string message = "Error moving file '" + folder.at("a") + "' to '" + folder.at("b") + "'.";
  EXPECT_EQ(errorOf([&] { getSystem()->moveFile(folder.uriAt("a"), folder.uriAt("b")); }), message);
  EXPECT_EQ(readFile(folder.at("b")), "second");
  EXPECT_EQ(errorOf([&] { getSystem()->moveFile(folder.uriAt("x"), folder.uriAt("%DEST%/y")); }),
            "Error moving file '" + folder.at("x") + "' to '" + folder.at("%DEST%/y") + "'.");
  EXPECT_EQ(errorOf([&] { getSystem()->moveFile(folder.uriAt("%DEST%"), folder.uriAt("y")); }),
            "Error moving file '" + folder.at("%DEST%") + "' to '" + folder.at("y") + "'.");
}

TEST(Files, AreNamedInTheOrderOfATranslation) {
  const CTestFolder folder;
  const char* const key = "orlo.CSystem.MoveFileFailed";
  getStringLocalizer()->setText(key, "%DEST%, %SRC%, %DEST%");
  const std::string message = errorOf([&] { getSystem()->moveFile(folder.uriAt("%DEST%"), folder.uriAt("%SRC%")); });
  getStringLocalizer()->clear();
  EXPECT_EQ(message, folder.at("%SRC%") + ", " + folder.at("%DEST%") + ", " + folder.at("%SRC%"));
}

TEST(Files, AreMovedToOtherFileSystems) {
  const CTestFolder folder;
  std::filesystem::create_directory(folder.at("disk"));
  writeFile(folder.at("a"), std::string(100000, 'x'));
  chmod(folder.at("a").c_str(), 0640);
  CSmallDisk::run(folder.at("disk"), "1m", [&]() -> std::string {
    getSystem()->moveFile(folder.uriAt("a"), folder.uriAt("disk/b"));
    if (exists(folder.at("a"))) return "the file is still there";
    struct stat status {};
    stat(folder.at("disk/b").c_str(), &status);
    if (status.st_size != 100000 || (status.st_mode & 0777) != 0640) return "the file is another";
    writeFile(folder.at("c"));
    try {
      getSystem()->moveFile(folder.uriAt("c"), folder.uriAt("disk/b"));
      return "moved onto a file that exists";
    } catch (const CError&) {
    }
    return exists(folder.at("c")) ? "" : "the file is gone";
  });
}

TEST(Files, AreCopiedWithModeAndTime) {
  const CTestFolder folder;
  std::string content;
  for (int i = 0; i < 300000; ++i) content += static_cast<char>(i * 7);
  writeFile(folder.at("a"), content);
  chmod(folder.at("a").c_str(), 0550);
  const timespec times[2] = {{1000000000, 0}, {1100000000, 0}};
  utimensat(AT_FDCWD, folder.at("a").c_str(), times, 0);
  getSystem()->copyFile(folder.uriAt("a"), folder.uriAt("b"), true);
  EXPECT_EQ(readFile(folder.at("b")), content);
  struct stat status {};
  stat(folder.at("b").c_str(), &status);
  EXPECT_EQ(status.st_mode & 0777, 0550u);
  EXPECT_EQ(status.st_mtim.tv_sec, 1100000000);
}

TEST(Files, AreCopiedWithoutTheRightToActAsTheirOwner) {
  const CTestFolder folder;
  writeFile(folder.at("a"));
  ASSERT_EQ(chmod(folder.at("a").c_str(), 06755), 0);
  getSystem()->copyFile(folder.uriAt("a"), folder.uriAt("b"), true);
  struct stat status {};
  stat(folder.at("b").c_str(), &status);
  EXPECT_EQ(status.st_mode & 07777, 0755u);
}

TEST(Files, AreCopiedOverOthersIfThatIsAskedFor) {
  const CTestFolder folder;
  writeFile(folder.at("a"), "new");
  writeFile(folder.at("b"), "old and longer");
  const std::string start = "Error copying file '" + folder.at("a") + "' to '" + folder.at("b");
  EXPECT_EQ(errorOf([&] { getSystem()->copyFile(folder.uriAt("a"), folder.uriAt("b"), true); }),
            start + "' (File exists).");
  EXPECT_EQ(readFile(folder.at("b")), "old and longer");
  getSystem()->copyFile(folder.uriAt("a"), folder.uriAt("b"), false);
  EXPECT_EQ(readFile(folder.at("b")), "new");
}

TEST(Files, AreNotCopiedOntoThemselves) {
  const CTestFolder folder;
  writeFile(folder.at("a"));
  std::filesystem::create_symlink("a", folder.at("link"));
  for (const char* name : {"a", "link"})
    EXPECT_NE(errorOf([&] { getSystem()->copyFile(folder.uriAt("a"), folder.uriAt(name), false); }), "(none)");
  EXPECT_EQ(readFile(folder.at("a")), "content");
}

TEST(Files, ThatAreNoFilesAreNotCopied) {
  const CTestFolder folder;
  mkfifo(folder.at("pipe").c_str(), 0666);
  writeFile(folder.at("a"));
  const auto copy = [&](const char* source, const char* destination) {
    return errorOf([&] { getSystem()->copyFile(folder.uriAt(source), folder.uriAt(destination), false); });
  };
  EXPECT_NE(copy("pipe", "b"), "(none)");
  EXPECT_NE(copy("a", "pipe"), "(none)");
  EXPECT_NE(copy("", "b"), "(none)");
  EXPECT_NE(copy("missing", "b"), "(none)");
  EXPECT_NE(copy("a", "missing/b"), "(none)");
  EXPECT_FALSE(exists(folder.at("b")));
}

TEST(Files, OfTheKernelAreCopiedThoughTheyHaveNoSize) {
  const CTestFolder folder;
  getSystem()->copyFile(createURI("file:///proc/self/status"), folder.uriAt("status"), true);
  EXPECT_NE(readFile(folder.at("status")).find("Name:"), std::string::npos);
}

TEST(Files, ThatFindNoRoomLeaveNoPartBehind) {
  const CTestFolder folder;
  std::filesystem::create_directory(folder.at("disk"));
  writeFile(folder.at("large"), std::string(1 << 20, 'x'));
  writeFile(folder.at("old"), "old");
  CSmallDisk::run(folder.at("disk"), "256k", [&]() -> std::string {
    const std::string expected =
        "Error copying file '" + folder.at("large") + "' to '" + folder.at("disk/a") + "' (No space left on device).";
    const std::string message =
        errorOf([&] { getSystem()->copyFile(folder.uriAt("large"), folder.uriAt("disk/a"), true); });
    if (message != expected) return "message: " + message;
    if (exists(folder.at("disk/a"))) return "a part is left behind";
    writeFile(folder.at("disk/old"), "old");
    if (errorOf([&] { getSystem()->copyFile(folder.uriAt("large"), folder.uriAt("disk/old"), false); }) == "(none)")
      return "copied over another";
    if (readFile(folder.at("disk/old")) != "") return "a part is left in the file that was there";
    try {
      getSystem()->moveFile(folder.uriAt("large"), folder.uriAt("disk/a"));
      return "moved";
    } catch (const CError&) {
    }
    return exists(folder.at("large")) && !exists(folder.at("disk/a")) ? "" : "the file is lost";
  });
}

TEST(Files, TellTheirTimesAndSizes) {
  const CTestFolder folder;
  writeFile(folder.at("a"), "12345");
  const timespec times[2] = {{1000000000, 5000000}, {1100000000, 7000000}};
  utimensat(AT_FDCWD, folder.at("a").c_str(), times, 0);
  EXPECT_EQ(getSystem()->getFileSize(folder.uriAt("a")), 5);
  const CFileTimes found = getSystem()->getFileTimes(folder.uriAt("a"));
  EXPECT_EQ(found.accessed, 1000000000005);
  EXPECT_EQ(found.modified, 1100000000007);
  EXPECT_GE(found.created, found.modified);
  EXPECT_THROW(getSystem()->getFileSize(folder.uriAt("")), CError);
}

TEST(Files, OfMoreThanFourGigabytesTellTheirSize) {
  const CTestFolder folder;
  writeFile(folder.at("a"));
  if (truncate(folder.at("a").c_str(), 5000000000) != 0) GTEST_SKIP() << "no large files here";
  EXPECT_EQ(getSystem()->getFileSize(folder.uriAt("a")), 5000000000);
}

TEST(Files, ThatAreMissingHaveNoTimesAndSizes) {
  const CTestFolder folder;
  EXPECT_THROW(getSystem()->getFileSize(folder.uriAt("a b")), CFileNotFoundError);
  EXPECT_EQ(errorOf([&] { getSystem()->getFileTimes(folder.uriAt("a b")); }),
            "The file 'file://" + folder.path + "/a%20b' was not found.");
  std::filesystem::create_symlink("loop", folder.at("loop"));
  EXPECT_EQ(errorOf([&] { getSystem()->getFileSize(folder.uriAt("loop")); }), "Too many levels of symbolic links");
}

}  // namespace
}  // namespace orlo
