#include "tests/outside/AttachedPage.h"
#include "tests/support/ZipArchive.h"

#include <gtest/gtest.h>

#include <ctime>
#include <thread>

// Pages whose pictures lie in archives, which real tools have made.
namespace {

using test::ArchiveFolder;
using test::Instance;
using test::Module;
using test::pictures;
using test::shown;
using test::stored;
using test::ZipArchive;

void makeArchives(const ArchiveFolder& folder, const std::string& more = "") {
  const std::string command = MAKE_ARCHIVES " '" + folder.path().string() + "' " + more;
  ASSERT_EQ(std::system(command.c_str()), 0);
}

class Attachments : public testing::Test {
protected:
  // Red, and yellow as the picture that stands for missing ones.
  std::string archive(const std::string& name = "a.zip") {
    return folder.write(name, ZipArchive{stored("red.bmp", test::bmp(0, 0, 255))}.bytes());
  }
  void makeSubstitute() {
    // It is taken for what it is, whatever its name says.
    folder.write("filenotfound.png", test::bmp(0, 255, 255));
  }

  ArchiveFolder folder;
  Module module;
};

TEST_F(Attachments, ComeFromEveryKindOfArchive) {
  makeArchives(folder);
  int archives = 0;
  for (const auto& file : std::filesystem::directory_iterator(folder.path())) {
    if (file.path().extension() != ".zip") continue;
    ++archives;
    EXPECT_EQ(shown(module, file.path(), {"Bär größer.png", "red.png", "folder/green.png", "red.png", "none.png"}),
              "BRGR.")
        << file.path();
  }
  EXPECT_EQ(archives, 20);
}

TEST_F(Attachments, AreFoundByURIAndByPath) {
  const std::string plain = archive();
  EXPECT_EQ(shown(module, plain, {"red.bmp"}), "R");
  EXPECT_EQ(shown(module, "file://" + plain, {"red.bmp"}), "R");
  EXPECT_EQ(shown(module, "file://" + (folder / "%61.zip"), {"red.bmp"}), "R");
  archive("B\xC3\xA4r mit Eis.zip");
  EXPECT_EQ(shown(module, folder / "B\xC3\xA4r mit Eis.zip", {"red.bmp"}), "R");
  EXPECT_EQ(shown(module, "file://" + (folder / "B%C3%A4r%20mit%20Eis.zip"), {"red.bmp"}), "R");
  archive("100%#?.zip");
  EXPECT_EQ(shown(module, "file://" + (folder / "100%25%23%3F.zip"), {"red.bmp"}), "R");
}

TEST_F(Attachments, AreLookedUpByTheirNameWithCase) {
  const std::string path = archive();
  EXPECT_EQ(shown(module, path, {"red.bmp", "Red.bmp", "./red.bmp", "/red.bmp", "red", "red.png"}), "R.RR..");
}

TEST_F(Attachments, OfAMissingFileAreTheSubstitute) {
  makeSubstitute();
  for (const std::string& path : {folder / "none.zip", folder.path().string(), std::string("http://nowhere/a.zip"),
                                  std::string("abc://h:x/"), std::string("\xFF\xFE"), std::string()}) {
    Instance instance(module, pictures({"red.bmp", "green.bmp"}));
    instance.set("unknown", "");
    const std::string before = instance.lastError();
    EXPECT_TRUE(instance.set("attachments", path)) << path;
    EXPECT_EQ(instance.lastError(), before);
    instance.set("skinpath", folder.path().string());
    EXPECT_EQ(shown(instance, 2), "YY") << path;
  }
}

TEST_F(Attachments, ThatAreMissingAreTheSubstituteAndOthersAreNot) {
  makeSubstitute();
  Instance instance(module, pictures({"red.bmp", "none.bmp", "red.bmp", "red.gif", ""}));
  instance.set("attachments", archive());
  instance.set("skinpath", folder.path().string());
  EXPECT_EQ(shown(instance, 5), "RYRYY");
}

TEST_F(Attachments, WithoutASubstituteAreNotShown) {
  EXPECT_EQ(shown(module, folder / "none.zip", {"red.bmp"}), ".");
}

TEST_F(Attachments, SetTwiceAreThoseOfTheSecondArchive) {
  const std::string first = archive();
  const std::string second = folder.write("b.zip", ZipArchive{stored("green.bmp", test::bmp(0, 255, 0))}.bytes());
  Instance instance(module, pictures({"red.bmp", "green.bmp"}));
  instance.set("attachments", first);
  instance.set("attachments", second);
  EXPECT_EQ(shown(instance, 2), ".G");
}

long openFiles() {
  long count = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) count += entry.exists() ? 1 : 0;
  return count;
}

TEST_F(Attachments, KeepNoFileOpenThatIsReplacedOrReleased) {
  const std::string path = archive();
  const long before = openFiles();
  {
    Instance instance(module, pictures({"red.bmp"}));
    for (int i = 0; i < 50; ++i) instance.set("attachments", path);
    EXPECT_LE(openFiles(), before + 1);
    EXPECT_EQ(shown(instance, 1), "R");
  }
  EXPECT_EQ(openFiles(), before);
}

TEST_F(Attachments, TakeThePlaceOfPicturesInThePage) {
  const std::string inside = test::page(
      "<image><center x=\"5\" y=\"5\"/><size width=\"10\" height=\"10\"/><attachment-bitmap extension=\"bmp\">" +
      test::toBase64(test::bmp(0, 255, 0)) + "</attachment-bitmap></image>");
  Instance without(module, inside);
  EXPECT_EQ(shown(without, 1), "G");
  Instance with(module, inside);
  with.set("attachments", archive());
  EXPECT_EQ(shown(with, 1), ".");
}

TEST_F(Attachments, SetAfterOpenChangeNothing) {
  Instance instance(module, pictures({"red.bmp"}));
  instance.set("attachments", archive());
  EXPECT_EQ(shown(instance, 1), "R");
  EXPECT_TRUE(instance.set("attachments", folder / "none.zip"));
  EXPECT_EQ(shown(instance, 1), "R");
}

TEST_F(Attachments, MayLieBesideTenThousandOthers) {
  makeArchives(folder, "many");
  const std::clock_t before = std::clock();
  EXPECT_EQ(shown(module, folder / "ten-thousand.zip", {"red.png"}), "R");
  // Some 50 ms of work.
  EXPECT_LT(std::clock() - before, 2 * CLOCKS_PER_SEC);
}

TEST_F(Attachments, AreDrawnOnFourThreadsAtOnce) {
  makeArchives(folder);
  const std::string path = folder / "python-deflated.zip";
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([&] {
      for (int k = 0; k < 20; ++k)
        EXPECT_EQ(shown(module, path, {"Bär größer.png", "red.png", "folder/green.png"}), "BRG");
    });
  for (std::thread& thread : threads) thread.join();
}

long residentKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != "VmRSS:") continue;
    long kilobytes = 0;
    status >> kilobytes;
    return kilobytes;
  }
  return -1;
}

TEST_F(Attachments, LeaveNoMemoryBehind) {
  // A quarter of a megabyte in memory, so that one that stays shows after some rounds.
  std::string large = test::bmp(0, 0, 255);
  large.replace(18, 8, test::number(256, 4) + test::number(256, 4));
  large.resize(54);
  for (int i = 0; i < 256 * 256; ++i) large += std::string("\0\0\xFF", 3);
  const std::string path = folder.write("large.zip", ZipArchive{test::deflated("large.bmp", large)}.bytes());
  const auto rounds = [&](int count) {
    while (count-- > 0) ASSERT_EQ(shown(module, path, {"large.bmp", "none.bmp"}), "R.");
  };
  rounds(20);
  const long before = residentKilobytes();
  rounds(200);
  EXPECT_LT(residentKilobytes() - before, 16 * 1024);
}

}  // namespace
