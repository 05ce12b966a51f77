#include "graphics/model/ZipDirectory.h"

#include "graphics/model/ByteReader.h"
#include "graphics/model/ZipName.h"

#include <wx/stream.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <zlib.h>

namespace graphics {

namespace {

using CBytes = std::span<const unsigned char>;

constexpr std::uint32_t kFileSignature = 0x02014B50;
constexpr std::uint32_t kEndSignature = 0x06054B50;
constexpr std::size_t kEndSize = 22;
constexpr std::uint32_t kLocatorSignature = 0x07064B50;
constexpr std::size_t kLocatorSize = 20;
constexpr std::uint32_t kEnd64Signature = 0x06064B50;
constexpr std::size_t kEnd64Size = 56;
/// In a 32-bit field: the number stands in a 64-bit one.
constexpr std::uint32_t kElsewhere = 0xFFFFFFFF;

struct CDirectoryPlace {
  std::uint64_t start;
  std::uint64_t size;
  /// The bytes before the archive: all places in it count from there.
  std::uint64_t shift;
};

std::uint32_t SignatureAt(wxInputStream& archive, std::uint64_t place) {
  const auto bytes = ReadBytesAt(archive, place, 4);
  return CByteReader(bytes).Take<std::uint32_t>();
}

/// The directory lies right before the record that tells its size, wherever that record says that it lies: only so it
/// is found behind other bytes.
std::optional<CDirectoryPlace> PlaceBefore(wxInputStream& archive, std::uint64_t end, std::uint64_t size,
                                           std::uint64_t offset) {
  if (size <= end && end - size >= offset && SignatureAt(archive, end - size) == kFileSignature)
    return CDirectoryPlace{end - size, size, end - size - offset};
  if (offset < end && SignatureAt(archive, offset) == kFileSignature)
    return CDirectoryPlace{offset, std::min(size, end - offset), 0};
  return {};
}

std::optional<CDirectoryPlace> FindDirectory64(wxInputStream& archive, std::uint64_t locator, std::uint64_t stated) {
  const auto readAt = [&](std::uint64_t place) -> std::optional<CDirectoryPlace> {
    if (place > locator) return {};
    const auto bytes = ReadBytesAt(archive, place, kEnd64Size);
    CByteReader record(bytes);
    if (record.Take<std::uint32_t>() != kEnd64Signature) return {};
    record.TakeBytes(36);
    const auto size = record.Take<std::uint64_t>();
    const auto offset = record.Take<std::uint64_t>();
    return record.IsOk() ? PlaceBefore(archive, place, size, offset) : std::nullopt;
  };
  const auto place = readAt(stated);
  return place || locator < kEnd64Size ? place : readAt(locator - kEnd64Size);
}

/// The directory that the end record at a place of the archive's tail tells of.
std::optional<CDirectoryPlace> ReadEnd(wxInputStream& archive, CBytes tail, std::size_t at, std::uint64_t tailStart) {
  CByteReader record(tail.subspan(at));
  if (record.Take<std::uint32_t>() != kEndSignature) return {};
  record.TakeBytes(8);
  const auto size = record.Take<std::uint32_t>();
  const auto offset = record.Take<std::uint32_t>();
  record.TakeBytes(record.Take<std::uint16_t>());
  if (!record.IsOk()) return {};
  if (at >= kLocatorSize) {
    CByteReader locator(tail.subspan(at - kLocatorSize, kLocatorSize));
    const bool isLocator = locator.Take<std::uint32_t>() == kLocatorSignature;
    locator.TakeBytes(4);
    if (isLocator) return FindDirectory64(archive, tailStart + at - kLocatorSize, locator.Take<std::uint64_t>());
  }
  return PlaceBefore(archive, tailStart + at, size, offset);
}

std::optional<CDirectoryPlace> FindDirectory(wxInputStream& archive, std::uint64_t length) {
  constexpr std::size_t kLongestComment = std::numeric_limits<std::uint16_t>::max();
  const std::uint64_t tailSize = std::min<std::uint64_t>(length, kLocatorSize + kEndSize + kLongestComment);
  const auto tail = ReadBytesAt(archive, length - tailSize, static_cast<std::size_t>(tailSize));
  // The comment may hold what looks like a record.
  for (std::size_t at = tail.size(); at-- > 0;)
    if (const auto place = ReadEnd(archive, tail, at, length - tailSize)) return place;
  return {};
}

/// What an entry's further fields say: sizes and places beyond 32 bits, and a name in UTF-8 beside one of a code page.
void ReadExtra(CBytes bytes, CBytes name, CZipEntry& entry) {
  constexpr std::uint16_t kLarge = 0x0001;
  constexpr std::uint16_t kUnicodePath = 0x7075;
  // Thousands of fields may ask for it.
  std::optional<std::uint32_t> nameCrc;
  CByteReader extra(bytes);
  while (!extra.IsAtEnd() && extra.IsOk()) {
    const auto id = extra.Take<std::uint16_t>();
    const CBytes content = extra.TakeBytes(extra.Take<std::uint16_t>());
    CByteReader field(content);
    if (id == kLarge) {
      for (std::uint64_t* number : {&entry.size, &entry.packedSize, &entry.offset})
        if (*number == kElsewhere) *number = field.Take<std::uint64_t>();
    } else if (id == kUnicodePath) {
      const auto version = field.Take<std::uint8_t>();
      const auto crc = field.Take<std::uint32_t>();
      if (!nameCrc) nameCrc = static_cast<std::uint32_t>(crc32_z(0, name.data(), name.size()));
      if (version == 1 && crc == nameCrc)
        entry.name = DecodeZipName(content.subspan(std::min<std::size_t>(5, content.size())));
    }
  }
}

/// An entry whose places count from the archive's first byte; nothing at the end of the directory and at damage.
std::optional<CZipEntry> ReadFile(CByteReader& directory) {
  if (directory.Take<std::uint32_t>() != kFileSignature) return {};
  CZipEntry entry;
  directory.TakeBytes(4);
  entry.flags = directory.Take<std::uint16_t>();
  entry.method = directory.Take<std::uint16_t>();
  directory.TakeBytes(4);
  entry.crc = directory.Take<std::uint32_t>();
  entry.packedSize = directory.Take<std::uint32_t>();
  entry.size = directory.Take<std::uint32_t>();
  const auto nameSize = directory.Take<std::uint16_t>();
  const auto extraSize = directory.Take<std::uint16_t>();
  const auto commentSize = directory.Take<std::uint16_t>();
  directory.TakeBytes(8);
  entry.offset = directory.Take<std::uint32_t>();
  const CBytes name = directory.TakeBytes(nameSize);
  const CBytes extra = directory.TakeBytes(extraSize);
  directory.TakeBytes(commentSize);
  if (!directory.IsOk()) return {};
  entry.name = DecodeZipName(name);
  ReadExtra(extra, name, entry);
  return entry;
}

bool IsFolder(const wxString& name) {
  return name.empty() || name.Last() == '/' || name.Last() == '\\';
}

/// Lets each entry end where the next one begins: several that share their packed bytes could unpack to any size.
void SetEnds(std::vector<CZipEntry>& entries, std::uint64_t directory) {
  std::vector<CZipEntry*> byOffset;
  byOffset.reserve(entries.size());
  for (CZipEntry& entry : entries) byOffset.push_back(&entry);
  std::stable_sort(byOffset.begin(), byOffset.end(),
                   [](const CZipEntry* a, const CZipEntry* b) { return a->offset < b->offset; });
  for (std::size_t i = 0; i < byOffset.size(); ++i)
    byOffset[i]->end = i + 1 < byOffset.size() ? byOffset[i + 1]->offset : directory;
}

}  // namespace

std::vector<CZipEntry> ReadZipDirectory(wxInputStream& archive) {
  std::vector<CZipEntry> entries;
  const wxFileOffset length = archive.IsOk() ? archive.GetLength() : wxInvalidOffset;
  if (length <= 0) return entries;
  const auto place = FindDirectory(archive, static_cast<std::uint64_t>(length));
  if (!place) return entries;

  const std::uint64_t size = std::min<std::uint64_t>(place->size, kMaxZipDirectoryBytes);
  const auto bytes = ReadBytesAt(archive, place->start, static_cast<std::size_t>(size));
  CByteReader directory(bytes);
  while (entries.size() < kMaxZipEntries) {
    auto entry = ReadFile(directory);
    if (!entry) break;
    if (IsFolder(entry->name) || entry->offset >= place->start - place->shift) continue;
    entry->offset += place->shift;
    entries.push_back(std::move(*entry));
  }
  SetEnds(entries, place->start);
  return entries;
}

}  // namespace graphics
