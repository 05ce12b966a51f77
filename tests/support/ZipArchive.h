#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <zlib.h>

namespace test {

/// A file of an archive. What its headers claim can be made to differ from what it is.
struct ZipFile {
  std::string name;
  std::string packed;
  std::uint16_t method = 0;
  std::uint16_t flags = 0;
  std::uint32_t crc = 0;
  std::uint64_t size = 0;
  std::uint64_t packedSize = 0;
  std::string extra;
  std::string localExtra;
};

inline std::string number(std::uint64_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i & 0xFF);
  return text;
}

inline std::uint32_t crcOf(const std::string& data) {
  return static_cast<std::uint32_t>(crc32_z(0, reinterpret_cast<const Bytef*>(data.data()), data.size()));
}

inline ZipFile stored(const std::string& name, const std::string& data) {
  return {name, data, 0, 0, crcOf(data), data.size(), data.size(), {}, {}};
}

inline ZipFile deflated(const std::string& name, const std::string& data) {
  z_stream stream{};
  deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&stream, data.size()), '\0');
  std::string copy = data;
  stream.next_in = reinterpret_cast<Bytef*>(copy.data());
  stream.avail_in = static_cast<uInt>(copy.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return {name, packed, 8, 0, crcOf(data), data.size(), packed.size(), {}, {}};
}

/// Puts archives together byte by byte.
class ZipArchive {
public:
  ZipArchive() = default;
  ZipArchive(std::initializer_list<ZipFile> files) {
    for (const ZipFile& file : files) add(file);
  }

  std::string comment;

  void add(const ZipFile& file) {
    const std::size_t at = content_.size();
    content_ += number(0x04034B50, 4) + number(20, 2) + fieldsOf(file) + number(file.localExtra.size(), 2) + file.name +
                file.localExtra + file.packed;
    list(file, at);
  }
  /// An entry of the directory alone, its header at a place of the archive.
  void list(const ZipFile& file, std::uint64_t at) {
    directory_ += number(0x02014B50, 4) + number(20, 2) + number(20, 2) + fieldsOf(file) +
                  number(file.extra.size(), 2) + std::string(10, '\0') + number(at, 4) + file.name + file.extra;
    ++count_;
  }

  std::size_t size() const { return content_.size(); }
  std::string bytes() const { return content_ + directory_ + end(count_, directory_.size(), content_.size()); }
  /// With the 64-bit record that stands before the end, and nothing but a reference to it in the end.
  std::string bytes64() const {
    const std::size_t place = content_.size() + directory_.size();
    const std::string record = number(0x06064B50, 4) + number(44, 8) + number(45, 2) + number(45, 2) + number(0, 8) +
                               number(count_, 8) + number(count_, 8) + number(directory_.size(), 8) +
                               number(content_.size(), 8);
    const std::string locator = number(0x07064B50, 4) + number(0, 4) + number(place, 8) + number(1, 4);
    return content_ + directory_ + record + locator + end(0xFFFF, 0xFFFFFFFF, 0xFFFFFFFF);
  }

private:
  static std::string fieldsOf(const ZipFile& file) {
    return number(file.flags, 2) + number(file.method, 2) + number(0, 2) + number(33, 2) + number(file.crc, 4) +
           number(file.packedSize, 4) + number(file.size, 4) + number(file.name.size(), 2);
  }
  std::string end(std::uint64_t count, std::uint64_t size, std::uint64_t offset) const {
    return number(0x06054B50, 4) + number(0, 4) + number(count, 2) + number(count, 2) + number(size, 4) +
           number(offset, 4) + number(comment.size(), 2) + comment;
  }

  std::string content_;
  std::string directory_;
  std::uint64_t count_ = 0;
};

}  // namespace test
