#include "graphics/model/ZipDirectory.h"
#include "tests/support/ZipArchive.h"

#include <gtest/gtest.h>
#include <wx/mstream.h>

#include <ctime>

namespace graphics {
namespace {

using test::deflated;
using test::number;
using test::stored;
using test::ZipArchive;
using test::ZipFile;

/// Each file's name and content, "!" for one that cannot be had.
std::string Describe(const std::string& archive) {
  wxMemoryInputStream stream(archive.data(), archive.size());
  std::string text;
  for (const CZipEntry& entry : ReadZipDirectory(stream)) {
    const auto bytes = UnpackZipEntry(stream, entry);
    text += entry.name.utf8_string() + "=" + (bytes.empty() ? "!" : std::string(bytes.begin(), bytes.end())) + " ";
  }
  return text;
}

const ZipArchive kTwo{stored("a", "first"), deflated("b/c", "second second second")};
const std::string kTwoFiles = "a=first b/c=second second second ";

TEST(ZipDirectory, ListsStoredAndDeflatedFiles) {
  EXPECT_EQ(Describe(kTwo.bytes()), kTwoFiles);
}

TEST(ZipDirectory, OfAnEmptyArchiveIsEmpty) {
  EXPECT_EQ(Describe(ZipArchive().bytes()), "");
  EXPECT_EQ(Describe(ZipArchive().bytes64()), "");
  EXPECT_EQ(Describe(""), "");
}

TEST(ZipDirectory, StandsBeforeAComment) {
  ZipArchive archive = kTwo;
  for (const std::size_t length : {1, 21, 22, 23, 1000, 65'535}) {
    archive.comment = std::string(length, 'c');
    EXPECT_EQ(Describe(archive.bytes()), kTwoFiles) << length;
    EXPECT_EQ(Describe(archive.bytes64()), kTwoFiles) << length;
  }
}

TEST(ZipDirectory, IsNotLookedForInTheComment) {
  ZipArchive archive = kTwo;
  archive.comment = "before" + ZipArchive().bytes() + "after";
  EXPECT_EQ(Describe(archive.bytes()), kTwoFiles);
  archive.comment = std::string("PK\x05\x06") + "garbage";
  EXPECT_EQ(Describe(archive.bytes()), kTwoFiles);
}

TEST(ZipDirectory, IsFoundBehindOtherBytes) {
  for (const std::string& before :
       {std::string("x"), std::string(100'000, 'x'), ZipArchive{stored("z", "other")}.bytes()}) {
    EXPECT_EQ(Describe(before + kTwo.bytes()), kTwoFiles) << before.size();
    EXPECT_EQ(Describe(before + kTwo.bytes64()), kTwoFiles) << before.size();
  }
}

TEST(ZipDirectory, IsFoundBeforeOtherBytes) {
  EXPECT_EQ(Describe(kTwo.bytes() + std::string(1000, 'x')), kTwoFiles);
}

TEST(ZipDirectory, TakesSizesAndPlacesOf64Bits) {
  ZipFile file = stored("a", "first");
  file.size = file.packedSize = 0xFFFFFFFF;
  file.extra = number(0x5455, 2) + number(1, 2) + "x" + number(1, 2) + number(24, 2) + number(5, 8) + number(5, 8) +
               number(0, 8);
  ZipArchive archive;
  archive.add(file);
  EXPECT_EQ(Describe(archive.bytes64()), "a=first ");
  ZipArchive placed;
  placed.add(stored("other", "other"));
  const std::size_t place = placed.size();
  file.extra = number(1, 2) + number(24, 2) + number(5, 8) + number(5, 8) + number(place, 8);
  // The header alone, as the directory tells its place in 64 bits.
  ZipArchive one;
  one.add(stored("a", "first"));
  const std::string local = one.bytes().substr(0, one.size());
  ZipArchive directory;
  directory.list(file, 0xFFFFFFFF);
  const std::string list = directory.bytes().substr(0, directory.bytes().size() - 22);
  const std::string content = placed.bytes().substr(0, place) + local;
  EXPECT_EQ(Describe(content + list + number(0x06054B50, 4) + number(0, 8) + number(list.size(), 4) +
                     number(content.size(), 4) + number(0, 2)),
            "a=first ");
}

TEST(ZipDirectory, PrefersTheUnicodeNameOfAFile) {
  const auto path = [](const std::string& name, const std::string& unicode) {
    return number(0x7075, 2) + number(5 + unicode.size(), 2) + number(1, 1) + number(test::crcOf(name), 4) + unicode;
  };
  ZipFile file = stored("B_r", "bear");
  file.extra = path("B_r", "B\xC3\xA4r");
  EXPECT_EQ(Describe(ZipArchive{file}.bytes()), "B\xC3\xA4r=bear ");
  // Of another name: the file was renamed by a tool that doesn't know the field.
  file.extra = path("old", "B\xC3\xA4r");
  EXPECT_EQ(Describe(ZipArchive{file}.bytes()), "B_r=bear ");
}

TEST(ZipDirectory, OfUnicodeNamesThatBelongToOtherNamesIsReadInOneGo) {
  std::string fields;
  while (fields.size() + 9 < 0x10000) fields += number(0x7075, 2) + number(5, 2) + number(1, 1) + number(0, 4);
  ZipArchive archive{stored("a", "x")};
  ZipFile file = stored(std::string(0xFFFF, 'n'), "x");
  file.extra = fields;
  for (int i = 0; i < 200; ++i) archive.list(file, 0);
  const std::string bytes = archive.bytes();
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  const std::clock_t start = std::clock();
  EXPECT_EQ(ReadZipDirectory(stream).size(), 201u);
  // Some 50 ms of work, and 95 GB of check sums if each field asked anew for that of the name.
  EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC);
}

TEST(ZipDirectory, LeavesFoldersOut) {
  EXPECT_EQ(
      Describe(ZipArchive{stored("a/", ""), stored("a/b", "x"), stored("c\\", ""), stored("", "nameless")}.bytes()),
      "a/b=x ");
}

TEST(ZipDirectory, EndsWhereItIsDamaged) {
  std::string bytes = kTwo.bytes();
  bytes[bytes.rfind("PK\x01\x02")] = 'X';
  EXPECT_EQ(Describe(bytes), "a=first ");
}

TEST(ZipDirectory, OfACutArchiveIsEmpty) {
  const std::string bytes = kTwo.bytes();
  for (std::size_t size = 0; size < bytes.size(); ++size) EXPECT_EQ(Describe(bytes.substr(0, size)), "") << size;
}

TEST(ZipDirectory, SurvivesEveryChangedByte) {
  for (const std::string& whole : {kTwo.bytes(), kTwo.bytes64()})
    for (std::size_t at = 0; at < whole.size(); ++at)
      for (const int change : {0x01, 0x80, 0xFF}) {
        std::string bytes = whole;
        bytes[at] = static_cast<char>(bytes[at] ^ change);
        Describe(bytes);
      }
}

TEST(ZipDirectory, HasALimitOfFilesAndOfBytes) {
  ZipArchive many;
  for (std::size_t i = 0; i <= kMaxZipEntries; ++i) many.list(stored("a", "x"), 0);
  many.add(stored("last", "x"));
  const auto filesOf = [](const std::string& bytes) {
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    return ReadZipDirectory(stream).size();
  };
  EXPECT_EQ(filesOf("local" + many.bytes()), kMaxZipEntries);

  ZipArchive longNames;
  for (int i = 0; i < 1000; ++i) longNames.list(stored(std::string(65'535, 'n'), ""), 0);
  EXPECT_EQ(filesOf("local" + longNames.bytes()), 0u);
  longNames.add(stored("a", "x"));
  EXPECT_EQ(filesOf(longNames.bytes()), kMaxZipDirectoryBytes / (46 + 65'535));
}

TEST(ZipEntry, IsMissingWhereItIsNotWhatItClaims) {
  const std::string zeros(5000, '\0');
  const ZipFile whole = deflated("a", zeros);
  EXPECT_EQ(Describe(ZipArchive{whole}.bytes()), "a=" + zeros + " ");
  const auto with = [&](auto change) {
    ZipFile file = whole;
    change(file);
    return Describe(ZipArchive{file}.bytes());
  };
  EXPECT_EQ(with([](ZipFile& file) { ++file.crc; }), "a=! ");
  EXPECT_EQ(with([](ZipFile& file) { file.size = 4999; }), "a=! ");
  EXPECT_EQ(with([](ZipFile& file) { file.size = 5001; }), "a=! ");
  EXPECT_EQ(with([](ZipFile& file) { file.size = 0; }), "a=! ");
  EXPECT_EQ(with([](ZipFile& file) { file.size = 0xFFFFFFFF; }), "a=! ");
  EXPECT_EQ(with([](ZipFile& file) { --file.packedSize; }), "a=! ");
  EXPECT_EQ(with([](ZipFile& file) { ++file.packedSize; }), "a=! ");
  EXPECT_EQ(with([](ZipFile& file) { file.flags = 1; }), "a=! ");
  EXPECT_EQ(with([](ZipFile& file) { file.method = 12; }), "a=! ");
  EXPECT_EQ(with([](ZipFile& file) { file.method = 0; }), "a=! ");
  EXPECT_EQ(with([](ZipFile& file) { file.packed[0] = '\xFF'; }), "a=! ");
  EXPECT_EQ(with([](ZipFile& file) { file.packed.pop_back(); }), "a=! ");
}

TEST(ZipEntry, MayHaveFieldsInItsHeaderThatTheDirectoryLacks) {
  ZipFile file = deflated("a", "content");
  file.localExtra = number(0xCAFE, 2) + number(3, 2) + "xyz";
  EXPECT_EQ(Describe(ZipArchive{file}.bytes()), "a=content ");
}

TEST(ZipEntry, MayNotShareBytesWithAnother) {
  const ZipFile inner = stored("inner", "kernel");
  ZipArchive archive;
  // The header of the second one is content of the first.
  ZipFile outer = stored("outer", ZipArchive{inner}.bytes().substr(0, 41));
  archive.add(outer);
  archive.list(inner, archive.size() - outer.packed.size());
  EXPECT_EQ(Describe(archive.bytes()), "outer=! inner=kernel ");
  ZipArchive twice;
  twice.add(inner);
  twice.list(inner, 0);
  EXPECT_EQ(Describe(twice.bytes()), "inner=! inner=kernel ");
}

TEST(ZipEntry, MayNotReachIntoTheDirectory) {
  ZipFile file = stored("a", "first");
  file.size = file.packedSize = 6;
  EXPECT_EQ(Describe(ZipArchive{file}.bytes()), "a=! ");
  file.packedSize = 0xFFFFFFFE;
  EXPECT_EQ(Describe(ZipArchive{file}.bytes()), "a=! ");
}

TEST(ZipEntry, MayBeOfNothingButEmptyBlocks) {
  std::string blocks;
  for (int i = 0; i < 100'000; ++i) blocks += std::string("\0\0\0\xFF\xFF", 5);
  ZipFile file = stored("a", "");
  file.method = 8;
  file.packed = blocks;
  file.packedSize = blocks.size();
  EXPECT_EQ(Describe(ZipArchive{file}.bytes()), "a=! ");
}

}  // namespace
}  // namespace graphics
