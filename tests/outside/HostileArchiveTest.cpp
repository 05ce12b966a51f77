#include "tests/outside/AttachedPage.h"
#include "tests/support/ZipArchive.h"

#include <gtest/gtest.h>

#include <ctime>
#include <sys/resource.h>
#include <sys/stat.h>

// Archives that nobody packs in good faith. What is wrong with them is missing, and costs neither much time nor memory.
namespace {

using test::ArchiveFolder;
using test::deflated;
using test::Module;
using test::shown;
using test::stored;
using test::ZipArchive;
using test::ZipFile;

long mostResidentMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

class HostileArchive : public testing::Test {
protected:
  // The colours of these pictures; at most that much time and memory is taken for it.
  std::string shownOf(const std::string& archive, const std::vector<std::string>& names) {
    const std::string path = folder.write("a.zip", archive);
    const long before = mostResidentMegabytes();
    const std::clock_t start = std::clock();
    const std::string colours = shown(module, path, names);
    // Of the processor, with sanitizers.
    EXPECT_LT(std::clock() - start, 60 * CLOCKS_PER_SEC);
    EXPECT_LT(mostResidentMegabytes() - before, 1500);
    return colours;
  }

  const ZipFile red = stored("red.bmp", test::bmp(0, 0, 255));
  ArchiveFolder folder;
  Module module;
};

// The packed bytes of zeros by the gigabyte, from those of a megabyte.
std::string packedZeros(int megabytes) {
  z_stream stream{};
  deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
  std::string zeros(1 << 20, '\0');
  std::string packed(1 << 16, '\0');
  const auto take = [&](int flush) {
    stream.next_in = reinterpret_cast<Bytef*>(zeros.data());
    stream.avail_in = flush == Z_FINISH ? 0 : static_cast<uInt>(zeros.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, flush);
    return packed.substr(0, packed.size() - stream.avail_out);
  };
  const std::string megabyte = take(Z_FULL_FLUSH);
  std::string all;
  for (int i = 0; i < megabytes; ++i) all += megabyte;
  all += take(Z_FINISH);
  deflateEnd(&stream);
  return all;
}

TEST_F(HostileArchive, OfFourGigabytesOfZeros) {
  ZipFile bomb{"bomb.png", packedZeros(4095), 8, 0, 0, 4095U << 20, 0, {}, {}};
  bomb.packedSize = bomb.packed.size();
  EXPECT_EQ(shownOf(ZipArchive{bomb, red}.bytes(), {"bomb.png", "red.bmp"}), ".R");
  // It claims to be small, and to be as large as is just allowed.
  for (const std::uint64_t size : {std::uint64_t{100}, std::uint64_t{256} << 20}) {
    bomb.size = size;
    EXPECT_EQ(shownOf(ZipArchive{bomb, red}.bytes(), {"bomb.png", "red.bmp"}), ".R");
  }
}

TEST_F(HostileArchive, WithALargeFileThatAPageShowsAThousandTimes) {
  ZipFile large{"large.png", packedZeros(200), 8, 0, 0, 200U << 20, 0, {}, {}};
  large.packedSize = large.packed.size();
  std::vector<std::string> names(1000, "large.png");
  names.front() = "red.bmp";
  // Only the first few are within the frame.
  EXPECT_EQ(shownOf(ZipArchive{large, red}.bytes(), names).substr(0, 3), "R..");
}

TEST_F(HostileArchive, WithADamagedPictureThatAPageShowsAThousandTimes) {
  // 8000 x 8000 pixels by its header, and not one there.
  std::string picture = test::bmp(0, 0, 255);
  picture.replace(18, 8, test::number(8000, 4) + test::number(8000, 4));
  std::vector<std::string> names(1000, "damaged.bmp");
  names.front() = "red.bmp";
  EXPECT_EQ(shownOf(ZipArchive{stored("damaged.bmp", picture), red}.bytes(), names).substr(0, 3), "R..");
}

TEST_F(HostileArchive, WithEntriesThatLieInOneAnother) {
  const std::string kernel = packedZeros(10);
  ZipFile file{"0.png", kernel, 8, 0, 0, 10U << 20, kernel.size(), {}, {}};
  ZipArchive archive;
  archive.add(red);
  const std::size_t place = archive.size();
  archive.add(file);
  std::vector<std::string> names{"red.bmp"};
  for (int i = 1; i < 10'000; ++i) {
    file.name = std::to_string(i) + ".png";
    archive.list(file, place);
    if (i < 1000) names.push_back(file.name);
  }
  EXPECT_EQ(shownOf(archive.bytes(), names).substr(0, 3), "R..");
}

TEST_F(HostileArchive, OfAMillionEntries) {
  ZipArchive archive;
  archive.add(red);
  const ZipFile other = stored("x", "");
  for (int i = 0; i < 1'000'000; ++i) archive.list(other, 0);
  // An entry may not be where others are, and the one behind them is not reached.
  archive.add(stored("last.bmp", test::bmp(0, 255, 0)));
  EXPECT_EQ(shownOf(archive.bytes(), {"red.bmp", "x", "last.bmp"}), "...");
}

TEST_F(HostileArchive, WithNamesOf64Kilobytes) {
  ZipArchive archive;
  archive.add(red);
  const std::string longest = std::string(65'531, 'n') + ".bmp";
  archive.add(stored(longest, test::bmp(0, 255, 0)));
  for (const char letter : {'/', '.', 'n', '\\', '\xFF'})
    for (int i = 0; i < 40; ++i) archive.add(stored(std::string(65'535, letter), "x"));
  std::string slashes(1'000'000, '/');
  EXPECT_EQ(shownOf(archive.bytes(), {"red.bmp", longest, slashes, slashes + "red.bmp"}), "RG.R");
}

TEST_F(HostileArchive, WithNamesThatLeadOutOfIt) {
  const std::string outside = folder.write("outside.bmp", test::bmp(0, 255, 0));
  const ZipArchive archive{red, stored("../up.bmp", test::bmp(255, 0, 0)),
                           stored("/etc/a.bmp", test::bmp(0, 255, 255))};
  EXPECT_EQ(shownOf(archive.bytes(), {"../up.bmp", "etc/a.bmp", "/etc/a.bmp", outside, "../outside.bmp", "up.bmp"}),
            "BYY...");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
}

TEST_F(HostileArchive, CutAtAnyByte) {
  const std::string whole = ZipArchive{red, deflated("green.bmp", test::bmp(0, 255, 0))}.bytes();
  for (std::size_t size = 0; size < whole.size(); size += 3)
    EXPECT_EQ(shownOf(whole.substr(0, size), {"red.bmp", "green.bmp"}), "..") << size;
}

TEST_F(HostileArchive, WhoseEntriesAreNotWhatTheyClaim) {
  const ZipFile whole = deflated("green.bmp", test::bmp(0, 255, 0));
  const auto with = [&](auto change) {
    ZipFile file = whole;
    change(file);
    return shownOf(ZipArchive{file, red}.bytes(), {"green.bmp", "red.bmp"});
  };
  EXPECT_EQ(with([](ZipFile&) {}), "GR");
  EXPECT_EQ(with([](ZipFile& file) { ++file.crc; }), ".R");
  EXPECT_EQ(with([](ZipFile& file) { --file.size; }), ".R");
  EXPECT_EQ(with([](ZipFile& file) { ++file.size; }), ".R");
  EXPECT_EQ(with([](ZipFile& file) { --file.packedSize; }), ".R");
  EXPECT_EQ(with([](ZipFile& file) { file.flags = 1; }), ".R");
  EXPECT_EQ(with([](ZipFile& file) { file.method = 9; }), ".R");
  EXPECT_EQ(with([](ZipFile& file) { file.method = 93; }), ".R");
}

TEST_F(HostileArchive, ThatIsADeviceOrAPipe) {
  EXPECT_EQ(shown(module, "/dev/zero", {"red.bmp"}), ".");
  const std::string pipe = folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(shown(module, pipe, {"red.bmp"}), ".");
}

}  // namespace
