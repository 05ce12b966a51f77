#include "backend/ffmpeg/HeaderGuard.h"

#include "backend/ffmpeg/Limits.h"

#include <algorithm>
#include <string_view>

namespace vantra::ffmpeg {

namespace {

/// A table's name, its version and flags, and two numbers.
constexpr std::size_t kTableBytes = 16;

using CBytes = std::span<const std::uint8_t>;

bool IsNamed(CBytes bytes, std::string_view name) {
  return std::equal(name.begin(), name.end(), bytes.begin(),
                    [](char letter, std::uint8_t byte) { return static_cast<std::uint8_t>(letter) == byte; });
}

std::uint32_t NumberAt(CBytes bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (const std::uint8_t byte : bytes.subspan(at, 4)) number = number << 8 | byte;
  return number;
}

/// How many samples a table has without a byte of its own for each; 0 for what is no such table.
std::uint32_t MereSamples(CBytes table) {
  constexpr std::uint32_t kPerSample = 0xF00;
  if (IsNamed(table, "stsz")) return NumberAt(table, 8) != 0 ? NumberAt(table, 12) : 0;
  if (IsNamed(table, "trun")) return (NumberAt(table, 4) & kPerSample) == 0 ? NumberAt(table, 8) : 0;
  return 0;
}

/// A header that is packed tells nothing until it is too late.
bool IsPacked(CBytes table) {
  return IsNamed(table, "cmov") && IsNamed(table.subspan(8), "dcom");
}

}  // namespace

bool CHeaderGuard::IsNeeded() const {
  // While FFmpeg finds out what the file is, nobody knows.
  return !format_.iformat || std::string_view(format_.iformat->name).starts_with("mov,");
}

bool CHeaderGuard::MayRead(CBytes bytes) {
  if (!IsNeeded()) return true;
  std::int64_t entries = 0;
  for (unsigned index = 0; index < format_.nb_streams; ++index)
    entries += avformat_index_get_entries_count(format_.streams[index]);
  if (entries > kMostIndexEntries) return false;
  seen_.insert(seen_.end(), bytes.begin(), bytes.end());
  const bool isGood = !(isHeader_ && HasBadTable()) && !HasBadFragments();
  // A table may begin in what has been seen, and end in what comes next.
  if (seen_.size() >= kTableBytes) seen_.erase(seen_.begin(), seen_.end() - (kTableBytes - 1));
  return isGood;
}

bool CHeaderGuard::HasBadTable() const {
  // Packed sound has several samples in a byte.
  constexpr std::int64_t kMostInAByte = 64;
  for (std::size_t at = 0; at + kTableBytes <= seen_.size(); ++at) {
    const CBytes table = CBytes(seen_).subspan(at, kTableBytes);
    if (IsPacked(table) || MereSamples(table) > fileBytes_ * kMostInAByte) return true;
  }
  return false;
}

/// All of them together, since each can belong to another stream.
bool CHeaderGuard::HasBadFragments() const {
  const std::string_view text(reinterpret_cast<const char*>(seen_.data()), seen_.size());
  std::int64_t samples = 0;
  for (std::size_t at = text.find("trun"); at != text.npos && at + kTableBytes <= text.size();
       at = text.find("trun", at + 1))
    samples += MereSamples(CBytes(seen_).subspan(at, kTableBytes));
  return samples > kMostIndexEntries;
}

}  // namespace vantra::ffmpeg
