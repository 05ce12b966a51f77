#pragma once

#include "tests/outside/Instance.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace test {

// A folder for archives, removed afterwards.
class ArchiveFolder {
public:
  ArchiveFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "mfilter-archives-XXXXXX").string();
    if (!mkdtemp(name.data())) std::abort();
    path_ = name;
  }
  ~ArchiveFolder() { std::filesystem::remove_all(path_); }
  ArchiveFolder(const ArchiveFolder&) = delete;
  ArchiveFolder& operator=(const ArchiveFolder&) = delete;

  std::string operator/(const std::string& name) const { return (path_ / name).string(); }
  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path_ / name, std::ios::binary) << bytes;
    return *this / name;
  }
  const std::filesystem::path& path() const { return path_; }

private:
  std::filesystem::path path_;
};

// A picture of 2 x 2 pixels of one colour.
inline std::string bmp(int blue, int green, int red) {
  const auto number = [](int value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i & 0xFF);
    return text;
  };
  const std::string pixel = number(blue, 1) + number(green, 1) + number(red, 1);
  const std::string row = pixel + pixel + number(0, 2);
  return "BM" + number(54 + 16, 4) + number(0, 4) + number(54, 4) + number(40, 4) + number(2, 4) + number(2, 4) +
         number(1, 2) + number(24, 2) + number(0, 24) + row + row;
}

// A row of pictures, ten units wide each, that lie in an archive under these names.
inline std::string pictures(const std::vector<std::string>& names) {
  std::string elements;
  for (std::size_t i = 0; i < names.size(); ++i)
    elements += "<image><center x=\"" + std::to_string(5 + 10 * i) +
                "\" y=\"5\"/><size width=\"10\" height=\"10\"/><attachment-bitmap name=\"" + names[i] + "\"/></image>";
  return page(elements);
}

// The colours of such a page on black, as far as its row goes: a letter a picture, "." where nothing is shown.
inline std::string shown(Instance& instance, std::size_t count) {
  instance.set("noalpha", "1");
  instance.open();
  const Pixels frame = instance.frame();
  std::string colours;
  for (std::size_t i = 0; i < std::min<std::size_t>(count, 16); ++i) {
    const Pixels pixel = pixelAt(frame, static_cast<int>(5 + 10 * i), 5);
    if (pixel == Pixels{0, 0, 255, 255})
      colours += 'R';
    else if (pixel == Pixels{0, 255, 0, 255})
      colours += 'G';
    else if (pixel == Pixels{255, 0, 0, 255})
      colours += 'B';
    else if (pixel == Pixels{0, 255, 255, 255})
      colours += 'Y';
    else if (pixel == Pixels{0, 0, 0, 255})
      colours += '.';
    else
      colours += '?';
  }
  return colours;
}

inline std::string shown(const Module& module, const std::string& attachments, const std::vector<std::string>& names) {
  Instance instance(module, pictures(names));
  if (!instance.set("attachments", attachments)) return "refused";
  return shown(instance, names.size());
}

}  // namespace test
