#include "graphics/model/ZipEntry.h"

#include "graphics/model/ByteReader.h"
#include "graphics/model/Picture.h"

#include <wx/stream.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <zlib.h>

namespace graphics {

namespace {

using CBytes = std::vector<unsigned char>;

constexpr std::size_t kChunk = std::size_t{64} * 1024;

std::optional<std::uint64_t> FindPackedBytes(wxInputStream& archive, const CZipEntry& entry) {
  constexpr std::size_t kHeaderSize = 30;
  constexpr std::uint32_t kSignature = 0x04034B50;
  const CBytes bytes = ReadBytesAt(archive, entry.offset, kHeaderSize);
  CByteReader header(bytes);
  if (header.Take<std::uint32_t>() != kSignature) return {};
  // What else it says stands in the directory too.
  header.TakeBytes(22);
  const auto nameSize = header.Take<std::uint16_t>();
  const auto extraSize = header.Take<std::uint16_t>();
  const std::uint64_t start = entry.offset + kHeaderSize + nameSize + extraSize;
  if (!header.IsOk() || start > entry.end || entry.packedSize > entry.end - start) return {};
  return start;
}

/// The packed bytes of an entry, one chunk after the other.
class CPackedBytes {
public:
  CPackedBytes(wxInputStream& archive, std::uint64_t start, std::uint64_t size)
      : archive_(archive), place_(start), left_(size) {}

  /// Empty at the end, and where the archive cannot be read.
  const CBytes& Next() {
    chunk_ = ReadBytesAt(archive_, place_, static_cast<std::size_t>(std::min<std::uint64_t>(left_, kChunk)));
    place_ += chunk_.size();
    left_ -= chunk_.size();
    return chunk_;
  }

private:
  wxInputStream& archive_;
  std::uint64_t place_;
  std::uint64_t left_;
  CBytes chunk_;
};

CBytes TakeStored(CPackedBytes& packed) {
  CBytes bytes;
  for (const CBytes* chunk = &packed.Next(); !chunk->empty(); chunk = &packed.Next())
    bytes.insert(bytes.end(), chunk->begin(), chunk->end());
  return bytes;
}

/// Unpacks as many bytes as are asked for, and tells at one more that there are too many.
class CInflater {
public:
  explicit CInflater(std::size_t most) : most_(most) { isOk_ = inflateInit2(&stream_, -MAX_WBITS) == Z_OK; }
  ~CInflater() { inflateEnd(&stream_); }
  CInflater(const CInflater&) = delete;
  CInflater& operator=(const CInflater&) = delete;

  /// False once there is nothing more to do: at the end of the stream and at damage.
  bool Add(CBytes& chunk) {
    stream_.next_in = chunk.data();
    stream_.avail_in = static_cast<uInt>(chunk.size());
    int result = isOk_ ? Z_OK : Z_MEM_ERROR;
    // What didn't fit may still lie in the stream after the last byte of the chunk was taken.
    while (result == Z_OK && (stream_.avail_in > 0 || stream_.avail_out == 0)) {
      if (stream_.avail_out == 0 && !Grow()) return false;
      result = inflate(&stream_, Z_NO_FLUSH);
    }
    isWhole_ = result == Z_STREAM_END;
    return result == Z_OK || result == Z_BUF_ERROR;
  }

  /// Nothing if the stream has not come to its end.
  CBytes Take() {
    if (!isWhole_) return {};
    bytes_.resize(bytes_.size() - stream_.avail_out);
    return std::move(bytes_);
  }

private:
  bool Grow() {
    const std::size_t before = bytes_.size();
    if (before > most_) return false;
    bytes_.resize(std::min(most_ + 1, std::max(kChunk, 2 * before)));
    stream_.next_out = bytes_.data() + before;
    stream_.avail_out = static_cast<uInt>(bytes_.size() - before);
    return true;
  }

  std::size_t most_;
  CBytes bytes_;
  z_stream stream_{};
  bool isOk_;
  bool isWhole_ = false;
};

CBytes TakeDeflated(CPackedBytes& packed, std::size_t size) {
  CInflater inflater(size);
  for (;;) {
    CBytes chunk = packed.Next();
    if (chunk.empty() || !inflater.Add(chunk)) return inflater.Take();
  }
}

std::uint32_t CheckSumOf(const CBytes& bytes) {
  return static_cast<std::uint32_t>(crc32_z(crc32_z(0, nullptr, 0), bytes.data(), bytes.size()));
}

}  // namespace

std::vector<unsigned char> ReadBytesAt(wxInputStream& stream, std::uint64_t place, std::size_t size) {
  CBytes bytes(size);
  if (size == 0 || stream.SeekI(static_cast<wxFileOffset>(place)) == wxInvalidOffset) return {};
  bytes.resize(stream.Read(bytes.data(), size).LastRead());
  return bytes;
}

std::vector<unsigned char> UnpackZipEntry(wxInputStream& archive, const CZipEntry& entry) {
  constexpr std::uint16_t kEncrypted = 1;
  constexpr std::uint16_t kStored = 0;
  constexpr std::uint16_t kDeflated = 8;
  if (entry.flags & kEncrypted || std::max(entry.size, entry.packedSize) > kMaxResourceBytes) return {};
  const auto start = FindPackedBytes(archive, entry);
  if (!start) return {};
  CPackedBytes packed(archive, *start, entry.packedSize);
  CBytes bytes;
  if (entry.method == kStored && entry.packedSize == entry.size) bytes = TakeStored(packed);
  if (entry.method == kDeflated) bytes = TakeDeflated(packed, static_cast<std::size_t>(entry.size));
  if (bytes.size() != entry.size || CheckSumOf(bytes) != entry.crc) bytes.clear();
  return bytes;
}

}  // namespace graphics
