#include "host/Archive.h"

#include "host/Errors.h"
#include "host/FileName.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iconv.h>
#include <memory>
#include <optional>
#include <string_view>

namespace host {

namespace {

constexpr std::uint64_t mostDirectoryBytes = std::uint64_t{32} << 20;

std::uint64_t numberAt(std::string_view bytes, std::size_t at, std::size_t count) {
  std::uint64_t value = 0;
  while (count-- > 0)
    value = value << 8 | (at + count < bytes.size() ? static_cast<unsigned char>(bytes[at + count]) : 0);
  return value;
}

std::string convert(std::string bytes, const char* encoding) {
  const iconv_t converter = iconv_open("UTF-8", encoding);
  if (converter == iconv_t(-1)) return {};
  const std::unique_ptr<void, int (*)(iconv_t)> closing(converter, iconv_close);
  std::string text(bytes.size() * 4, '\0');
  char* from = bytes.data();
  char* to = text.data();
  std::size_t left = bytes.size();
  std::size_t room = text.size();
  if (iconv(converter, &from, &left, &to, &room) == static_cast<std::size_t>(-1)) return {};
  text.resize(text.size() - room);
  return text;
}

// As the module takes names: UTF-8, and what is none is of the old code page 437.
std::string decode(std::string_view name) {
  const std::string text = convert(std::string(name), "UTF-8");
  return text.empty() ? convert(std::string(name), "CP437") : text;
}

// The name that a further field gives in UTF-8, if it is still that of the file.
std::string unicodeNameOf(std::string_view extra) {
  constexpr std::uint64_t unicodePath = 0x7075;
  while (extra.size() >= 4) {
    const std::string_view content = extra.substr(4, numberAt(extra, 2, 2));
    if (numberAt(extra, 0, 2) == unicodePath && content.size() > 5) return decode(content.substr(5));
    extra.remove_prefix(4 + content.size());
  }
  return {};
}

class ArchiveReader {
public:
  explicit ArchiveReader(const std::string& path) : file_(path, std::ios::binary | std::ios::ate) {
    if (file_) size_ = static_cast<std::uint64_t>(file_.tellg());
  }

  // Nothing if there is no directory.
  std::optional<std::string> directory() {
    const std::string tail = at(size_ - std::min<std::uint64_t>(size_, 65'535 + 22 + 20), size_);
    const std::uint64_t start = size_ - tail.size();
    for (std::size_t end = tail.rfind("PK\5\6"); end != std::string::npos;
         end = end == 0 ? end : tail.rfind("PK\5\6", end - 1)) {
      if (end + 22 + numberAt(tail, end + 20, 2) <= tail.size()) {
        const bool isLarge = end >= 20 && numberAt(tail, end - 20, 4) == 0x07064B50;
        auto found = isLarge ? largeDirectory(start + end - 20, numberAt(tail, end - 12, 8))
                             : before(start + end, numberAt(tail, end + 12, 4), numberAt(tail, end + 16, 4));
        if (found) return found;
      }
      if (end == 0) break;
    }
    return {};
  }

private:
  std::string at(std::uint64_t start, std::uint64_t end) {
    if (start >= end || end > size_) return {};
    std::string bytes(std::min(end - start, mostDirectoryBytes), '\0');
    file_.clear();
    file_.seekg(static_cast<std::streamoff>(start));
    file_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file_.gcount()));
    return bytes;
  }
  std::optional<std::string> largeDirectory(std::uint64_t locator, std::uint64_t stated) {
    for (const std::uint64_t place : {stated, locator - 56}) {
      if (place > locator || at(place, place + 4) != "PK\6\6") continue;
      const std::string record = at(place, place + 56);
      if (auto found = before(place, numberAt(record, 40, 8), numberAt(record, 48, 8))) return found;
    }
    return {};
  }
  std::optional<std::string> before(std::uint64_t end, std::uint64_t size, std::uint64_t offset) {
    if (size == 0) return "";
    for (const std::uint64_t start : {end - size, offset})
      if (start < end && at(start, start + 4) == "PK\1\2") return at(start, std::min(end, start + size));
    return {};
  }

  std::ifstream file_;
  std::uint64_t size_ = 0;
};

}  // namespace

std::set<std::string> readArchiveNames(const std::string& path) {
  const auto directory = ArchiveReader(path).directory();
  if (!directory) throw InputError(located(path, "no zip archive"));
  std::set<std::string> names;
  std::string_view rest = *directory;
  while (rest.starts_with("PK\1\2") && rest.size() >= 46) {
    const std::size_t nameSize = numberAt(rest, 28, 2);
    const std::size_t extraSize = numberAt(rest, 30, 2);
    const std::size_t commentSize = numberAt(rest, 32, 2);
    if (rest.size() < 46 + nameSize + extraSize + commentSize) break;
    const std::string unicode = unicodeNameOf(rest.substr(46 + nameSize, extraSize));
    names.insert(archiveName(unicode.empty() ? decode(rest.substr(46, nameSize)) : unicode));
    rest.remove_prefix(46 + nameSize + extraSize + commentSize);
  }
  return names;
}

std::string archiveName(std::string name) {
  const auto isSeparator = [](char letter) { return letter == '/' || letter == '\\'; };
  std::size_t start = 0;
  while (start < name.size() && isSeparator(name[start])) ++start;
  while (start + 1 < name.size() && name[start] == '.' && isSeparator(name[start + 1])) start += 2;
  return name.substr(start);
}

std::string archiveUri(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::exists(path, error)) throw InputError(located(path, std::strerror(ENOENT)));
  if (!std::filesystem::is_regular_file(path, error)) throw InputError(located(path, "not a file"));
  return fileUri(path);
}

}  // namespace host
