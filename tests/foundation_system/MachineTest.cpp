#include "foundation/Error.h"
#include "foundation/posix/LibraryVersion.h"
#include "foundation/posix/MountTable.h"
#include "foundation/posix/SpecialFolders.h"
#include "tests/foundation/TextOf.h"
#include "tests/foundation_system/TestFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sys/wait.h>
#include <thread>

namespace orlo {
namespace {

std::string pathOf(const P<IURI>& uri) {
  return toStdString(uri->getLocalPath());
}

TEST(System, IsOne) {
  EXPECT_TRUE(getSystem() == getSystem());
}

TEST(System, SaysThatASubSystemIsMissing) {
  try {
    getSystem()->getSubSystem("x");
    FAIL();
  } catch (const CNoSuchObjectError& error) {
    EXPECT_EQ(messageOf(error), "No sub system of type x was found.");
  }
}

TEST(System, KeepsSubSystems) {
  const P<IBase> first = createURI("first");
  const P<IBase> second = createURI("second");
  getSystem()->addSubSystem("test.type", first);
  EXPECT_TRUE(getSystem()->getSubSystem("test.type") == first);
  getSystem()->addSubSystem("test.type", second);
  EXPECT_TRUE(getSystem()->getSubSystem("test.type") == second);
  EXPECT_THROW(getSystem()->getSubSystem("test.other"), CNoSuchObjectError);
}

/// A sub system that looks for the one in its place when it ends.
class CEndingSubSystem : public CObject {
public:
  explicit CEndingSubSystem(bool& found) : found_(found) {}
  ~CEndingSubSystem() override { found_ = static_cast<bool>(getSystem()->getSubSystem("test.ending")); }

private:
  bool& found_;
};

TEST(System, HasTheNewSubSystemWhenTheOldOneEnds) {
  bool found = false;
  getSystem()->addSubSystem("test.ending", makeObject<CEndingSubSystem>(found));
  getSystem()->addSubSystem("test.ending", createURI("new"));
  EXPECT_TRUE(found);
}

TEST(System, KnowsTheFoldersOfTheProcess) {
  EXPECT_EQ(pathOf(getSystem()->getCurrentFolder()), std::filesystem::current_path().string() + "/");
  EXPECT_TRUE(getSystem()->folderExists(getSystem()->getTempFolder()));
  EXPECT_TRUE(getSystem()->folderExists(getSystem()->getWindowsFolder()));
  EXPECT_EQ(pathOf(getSystem()->getModuleFile()), std::filesystem::read_symlink("/proc/self/exe").string());
  const CVariable temp("TMPDIR", "/var/tmp//");
  EXPECT_EQ(pathOf(getSystem()->getTempFolder()), "/var/tmp/");
}

TEST(System, HasNoCurrentFolderOnceThatIsDeleted) {
  const CTestFolder folder;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::create_directory(folder.at("gone"));
  std::filesystem::current_path(folder.at("gone"));
  std::filesystem::remove(folder.at("gone"));
  EXPECT_THROW(getSystem()->getCurrentFolder(), CFileNotFoundError);
  std::filesystem::current_path(before);
}

TEST(System, KnowsTheMachine) {
  EXPECT_GT(getSystem()->getPhysicalMemory(), 16 << 20);
  EXPECT_GE(getSystem()->getProcessorCount(), 1);
  EXPECT_FALSE(getSystem()->getUserName().isEmpty());
  EXPECT_FALSE(getSystem()->getOSName().isEmpty());
  EXPECT_TRUE(getSystem()->getOSVersion().startsWith(getSystem()->getOSName()));
  EXPECT_GT(getSystem()->getOSVersion().length(), getSystem()->getOSName().length());
  EXPECT_GE(getSystem()->getScreenMetrics().width, 0);
  EXPECT_EQ(textOf(getSystem()->getLineBreak()), "\r\n");
}

TEST(System, HasADriveAtTheRoot) {
  bool root = false;
  for (const CDrive& drive : getSystem()->getDrives()) {
    root |= pathOf(drive.root) == "/";
    EXPECT_FALSE(pathOf(drive.root).starts_with("/proc")) << pathOf(drive.root);
  }
  EXPECT_TRUE(root);
}

TEST(MountTable, TellsDrivesFromTheSystemsOwnFileSystems) {
  const CTestFolder folder;
  writeFile(folder.at("mounts"),
            "/dev/sda2 / ext4 rw 0 0\nproc /proc proc rw 0 0\ntmpfs /run tmpfs rw 0 0\n"
            "server:/films /media/my\\040films nfs4 rw 0 0\n/dev/sr0 /media/disc udf ro 0 0\n"
            "tmpfs /tmp tmpfs rw 0 0\n/dev/loop1 /snap/x squashfs ro 0 0\n/dev/sdb1 /run/media/me/STICK vfat rw 0 0\n"
            "cgroup2 /sys/fs/cgroup cgroup2 rw 0 0\ngvfsd-fuse /home/me/.gvfs fuse.gvfsd-fuse rw 0 0\n");
  std::string drives;
  for (const posix::CMount& mount : posix::readMountTable(folder.at("mounts").c_str()))
    if (posix::isDrive(mount))
      drives += mount.folder + "=" + std::to_string(static_cast<int>(posix::driveTypeOf(mount))) + " ";
  EXPECT_EQ(drives, "/=0 /media/my films=2 /media/disc=3 /tmp=4 /run/media/me/STICK=0 ");
  EXPECT_TRUE(posix::readMountTable(folder.at("missing").c_str()).empty());
}

TEST(SpecialFolders, AreThoseThatTheUserHasSet) {
  const CTestFolder folder;
  const CVariable home("HOME", folder.at("home"));
  const CVariable settings("XDG_CONFIG_HOME", folder.at("settings"));
  const CVariable data("XDG_DATA_HOME", "relative/is/nothing");
  std::filesystem::create_directory(folder.at("settings"));
  writeFile(folder.at("settings/user-dirs.dirs"),
            "# a comment\nXDG_DESKTOP_DIR=\"$HOME/Schreib tisch\"\n  XDG_MUSIC_DIR=\"/music\\\"s\"\n"
            "XDG_VIDEOS_DIR=\"$HOME\"\nXDG_DOCUMENTS_DIR=\"not absolute\"\nXDG_DESKTOP_DIRECTORY=\"/x\"\n");
  EXPECT_EQ(pathOf(getSystem()->getDesktopFolder()), folder.at("home/Schreib tisch/"));
  EXPECT_EQ(pathOf(getSystem()->getSpecialFolder(ESpecialFolder::music)), "/music\"s/");
  EXPECT_EQ(pathOf(getSystem()->getSpecialFolder(ESpecialFolder::videos)), folder.at("home/"));
  EXPECT_EQ(pathOf(getSystem()->getDocumentsFolder()), folder.at("home/Documents/"));
  EXPECT_EQ(pathOf(getSystem()->getAppDataFolder()), folder.at("settings/"));
  EXPECT_EQ(pathOf(getSystem()->getLocalAppDataFolder()), folder.at("home/.local/share/"));
  EXPECT_EQ(pathOf(getSystem()->getSpecialFolder(ESpecialFolder::home)), folder.at("home/"));
}

TEST(SpecialFolders, ReadValuesAsTheShellDoes) {
  const CTestFolder folder;
  writeFile(folder.at("f"), "A=1\nB='two words'\nC=\"a\\\\b\"\nB='again'\nD=\nAB=3\n");
  EXPECT_EQ(posix::readShellValue(folder.at("f"), "A"), "1");
  EXPECT_EQ(posix::readShellValue(folder.at("f"), "B"), "again");
  EXPECT_EQ(posix::readShellValue(folder.at("f"), "C"), "a\\b");
  EXPECT_EQ(posix::readShellValue(folder.at("f"), "D"), "");
  EXPECT_EQ(posix::readShellValue(folder.at("missing"), "A"), "");
}

TEST(SpecialFolders, ReadNothingThatIsNoFileOrTooLarge) {
  const CTestFolder folder;
  mkfifo(folder.at("pipe").c_str(), 0600);
  EXPECT_EQ(posix::readShellValue(folder.at("pipe"), "A"), "");
  EXPECT_EQ(posix::readShellValue(folder.path, "A"), "");
  EXPECT_EQ(posix::readShellValue("/dev/zero", "A"), "");
  writeFile(folder.at("large"), "A=1\n" + std::string(1 << 20, '#'));
  EXPECT_EQ(posix::readShellValue(folder.at("large"), "A"), "");
}

TEST(LibraryVersion, StandsInTheNameOfTheFile) {
  EXPECT_EQ(posix::versionInName("/usr/lib/libz.so.1.2.13"), 0x10002);
  EXPECT_EQ(posix::versionInName("libx.so.6"), 0x60000);
  EXPECT_EQ(posix::versionInName("libx.so"), 0);
  EXPECT_EQ(posix::versionInName("libx.so.y"), 0);
  EXPECT_EQ(posix::versionInName("libx.so.999999999.1"), 0x7FFF0001);
  EXPECT_EQ(getSystem()->getDllVersion("libstdc++.so.6") >> 16, 6);
  EXPECT_EQ(getSystem()->getDllVersion("no such library"), 0);
  EXPECT_EQ(getSystem()->getDllVersion(""), 0);
}

TEST(OpenWithShell, IsFalseWithoutAnOpenerOrAFile) {
  const CTestFolder folder;
  writeFile(folder.at("a"));
  const CVariable path("PATH", folder.path);
  EXPECT_FALSE(getSystem()->openWithShell(folder.uriAt("a")));
  EXPECT_FALSE(getSystem()->openWithShell(folder.uriAt("missing")));
  EXPECT_FALSE(getSystem()->openWithShell(nullptr));
}

TEST(OpenWithShell, IsFalseIfTheOpenerCannotRun) {
  const CTestFolder folder;
  writeFile(folder.at("xdg-open"), "no program");
  chmod(folder.at("xdg-open").c_str(), 0755);
  const CVariable path("PATH", folder.path);
  EXPECT_FALSE(getSystem()->openWithShell(folder.uriAt("xdg-open")));
}

TEST(OpenWithShell, GivesTheLocationToTheOpenerAsItIs) {
  const CTestFolder folder;
  writeFile(folder.at("xdg-open"),
            "#!/bin/sh\nprintf '%s|%s' \"$#\" \"$1\" > \"$OPENED.part\"\n/bin/mv \"$OPENED.part\" \"$OPENED\"\n");
  chmod(folder.at("xdg-open").c_str(), 0755);
  const CVariable path("PATH", folder.path);
  const CVariable opened("OPENED", folder.at("opened"));
  const auto open = [&](const P<IURI>& uri) {
    EXPECT_TRUE(getSystem()->openWithShell(uri));
    for (int i = 0; i < 500 && !exists(folder.at("opened")); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const std::string found = readFile(folder.at("opened"));
    std::filesystem::remove(folder.at("opened"));
    return found;
  };
  const std::string name = "a b;$(touch x)'\"`ü.txt";
  writeFile(folder.at(name));
  EXPECT_EQ(open(folder.uriAt(name)), "1|" + folder.at(name));
  EXPECT_EQ(open(createURI("http://host/a%20b?c=d&e")), "1|http://host/a%20b?c=d&e");
  EXPECT_FALSE(getSystem()->openWithShell(createURI("--manual:")));
  // No process is left behind, neither running nor dead.
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

}  // namespace
}  // namespace orlo
