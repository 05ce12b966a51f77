#include "tests/ffmpeg/Memory.h"
#include "tests/ffmpeg/Sequence.h"

#include <cstdint>
#include <string_view>

namespace {

constexpr std::size_t kNumberBytes = 4;
constexpr long kMostKilobytes = 300'000;

std::string BytesOfNumber(std::uint32_t number) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 255);
  return bytes;
}

/// Numbers of a table of MP4, which stand so many bytes behind the beginning of its name.
void SetNumber(std::string& movie, const char* table, std::size_t behind, std::uint32_t number) {
  movie.replace(movie.find(table) + behind, kNumberBytes, BytesOfNumber(number));
}

std::string Box(const std::string& name, const std::string& content) {
  return BytesOfNumber(static_cast<std::uint32_t>(content.size() + 8)) + name + content;
}

/// As zlib packs what it can't make smaller.
std::string Packed(const std::string& bytes) {
  const auto low = [](std::size_t number) { return static_cast<char>(number & 255); };
  std::uint32_t a = 1;
  std::uint32_t b = 0;
  for (const char byte : bytes) {
    a = (a + static_cast<unsigned char>(byte)) % 65521;
    b = (b + a) % 65521;
  }
  const std::size_t size = bytes.size();
  return std::string("\x78\x01\x01") + low(size) + low(size >> 8) + low(~size) + low(~size >> 8) + bytes +
         BytesOfNumber(b << 16 | a);
}

/// Its samples are all of one size, and its header stands at the end.
std::string RawMovie() {
  return Movie("raw.mov", "-f lavfi -i color=c=red:s=32x32 -frames:v 10 -c:v rawvideo -pix_fmt rgb24 -f mov");
}

}  // namespace

TEST(Memory, IsNotTakenForSamplesThatAFileCantHave) {
  const std::string movie = RawMovie();
  SKIP_WITHOUT(movie);
  const auto played = Play(InfileOf(movie));
  EXPECT_PRED3(IsNear, PixelAt(*played, 5, 5), (CColour{255, 0, 0, 255}), 4);
  std::string bytes = BytesOf(movie);
  constexpr std::uint32_t kMany = 50'000'000;
  SetNumber(bytes, "stsz", 8, 1);
  SetNumber(bytes, "stsz", 12, kMany);
  SetNumber(bytes, "stts", 12, kMany);
  SetNumber(bytes, "stsc", 16, kMany);
  EXPECT_FALSE(Open(InfileOf(Written("many-samples.mov", bytes))));
  EXPECT_LT(MostMemory(), kMostKilobytes);
}

TEST(Memory, IsNotTakenForFragmentsThatAFileCantHave) {
  const std::string movie = Movie("fragments.mov",
                                  "-f lavfi -i color=c=red:s=32x32 -frames:v 30 -c:v rawvideo -pix_fmt rgb24 -movflags "
                                  "+empty_moov+default_base_moof -frag_duration 400000 -f mov");
  SKIP_WITHOUT(movie);
  const std::string bytes = BytesOf(movie);
  const std::size_t first = bytes.find("trun");
  const std::size_t last = bytes.rfind("trun");
  ASSERT_NE(first, last);
  for (const std::size_t table : {first, last}) {
    // Large enough for as many samples in packed sound.
    std::string changed = bytes + std::string(2'000'000, '\0');
    // No sample says anything of its own.
    changed[table + 6] = 0;
    changed.replace(table + 8, kNumberBytes, BytesOfNumber(50'000'000));
    if (const auto extractor = Open(InfileOf(Written("many-fragments.mov", changed)))) {
      extractor->Start();
      for (int frame = 0; frame < 40; ++frame) extractor->Advance();
    }
    EXPECT_LT(MostMemory(), kMostKilobytes);
  }
}

TEST(Memory, IsNotTakenForAHeaderThatIsPacked) {
  const std::string movie = RawMovie();
  SKIP_WITHOUT(movie);
  const std::string bytes = BytesOf(movie);
  const std::size_t begin = bytes.find("moov") - kNumberBytes;
  const std::string header = bytes.substr(begin);
  const std::string packed =
      Box("cmov",
          Box("dcom", "zlib") + Box("cmvd", BytesOfNumber(static_cast<std::uint32_t>(header.size())) + Packed(header)));
  EXPECT_FALSE(Open(InfileOf(Written("packed.mov", bytes.substr(0, begin) + Box("moov", packed)))));
  EXPECT_EQ(LastCode(), 6);
}

TEST(Memory, IsNotTakenForPixelsBeyondTheLimit) {
  const std::string picture = Movie("one-colour.png", "-f lavfi -i color=s=16x16,format=rgba -frames:v 1");
  std::string bytes = BytesOf(picture);
  SetNumber(bytes, "IHDR", 4, 16'000);
  SetNumber(bytes, "IHDR", 8, 16'000);
  EXPECT_FALSE(Open(InfileOf(Written("large.png", bytes))));
  EXPECT_EQ(LastCode(), 6);
  EXPECT_LT(MostMemory(), kMostKilobytes);
}
