#include "foundation/TextReaders.h"

#include <array>

namespace orlo::text {

namespace {

/// The hash behind one character more is step(hash) ^ character. Hashes have 31 bits.
constexpr std::uint32_t step(std::uint32_t hash) {
  return (hash & 0x0FFFFFFF) << 3 ^ hash >> 2;
}

// A step is linear: step(a ^ b) is step(a) ^ step(b). So what eight steps make of a hash is what they make of its
// bytes, put together, and each of the characters among them counts by itself. That replaces a long chain of
// operations, each of which waits for the one before, by table look-ups that wait for nothing.
constexpr int kBlock = 8;
using CByteTable = std::array<std::uint32_t, 256>;

constexpr CByteTable afterSteps(int steps, int shift) {
  CByteTable table{};
  for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
    // The top bit of a hash is never set.
    std::uint32_t value = (byte << shift) & 0x7FFFFFFF;
    for (int i = 0; i < steps; ++i) value = step(value);
    table[byte] = value;
  }
  return table;
}

/// What a byte of the hash is behind a block.
constexpr std::array<CByteTable, 4> kHashBytes = {afterSteps(kBlock, 0), afterSteps(kBlock, 8), afterSteps(kBlock, 16),
                                                  afterSteps(kBlock, 24)};
/// What a character of a block is at its end, by the number of characters behind it.
constexpr std::array<CByteTable, kBlock> kCharacters = {afterSteps(0, 0), afterSteps(1, 0), afterSteps(2, 0),
                                                        afterSteps(3, 0), afterSteps(4, 0), afterSteps(5, 0),
                                                        afterSteps(6, 0), afterSteps(7, 0)};

std::uint32_t hashBlock(std::uint32_t hash, const unsigned char* bytes) {
  const std::uint32_t characters =
      (kCharacters[7][bytes[0]] ^ kCharacters[6][bytes[1]]) ^ (kCharacters[5][bytes[2]] ^ kCharacters[4][bytes[3]]) ^
      (kCharacters[3][bytes[4]] ^ kCharacters[2][bytes[5]]) ^ (kCharacters[1][bytes[6]] ^ kCharacters[0][bytes[7]]);
  const std::uint32_t before = (kHashBytes[0][hash & 0xFF] ^ kHashBytes[1][hash >> 8 & 0xFF]) ^
                               (kHashBytes[2][hash >> 16 & 0xFF] ^ kHashBytes[3][hash >> 24]);
  return before ^ characters;
}

std::uint32_t hashBytes(std::string_view text) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
  const auto* const end = bytes + text.size();
  std::uint32_t hash = 0;
  for (; end - bytes >= kBlock; bytes += kBlock) hash = hashBlock(hash, bytes);
  for (; bytes != end; ++bytes) hash = step(hash) ^ *bytes;
  return hash;
}

}  // namespace

std::int32_t hash(const CTextView& text) {
  if (const auto bytes = asBytes(text)) return static_cast<std::int32_t>(hashBytes(*bytes));
  return withReaderOf(text, [](auto readerOf) {
    auto reader = readerOf();
    std::uint32_t hash = 0;
    for (char32_t c; reader.read(c);) hash = step(hash) ^ (c & 0x7FFFFFFF);
    return static_cast<std::int32_t>(hash);
  });
}

}  // namespace orlo::text
