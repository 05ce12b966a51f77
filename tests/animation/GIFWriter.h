#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace graphics::animation::test {

/// Writes GIF files for tests, good ones and odd ones. What is called first stands first in the file.
class CGIFWriter {
public:
  using CColour = std::array<int, 3>;

  struct CImage {
    int left = 0, top = 0, width = 1, height = 1;
    /// One index a pixel, row by row from the top.
    std::vector<int> pixels;
    bool interlaced = false;
    std::vector<CColour> palette;
    /// Otherwise the codes of a full alphabet are used to the end.
    bool clearsFullAlphabet = true;
  };

  explicit CGIFWriter(int width, int height, const std::vector<CColour>& palette = {}, int background = 0,
                      const std::string& version = "89a") {
    Text("GIF" + version);
    Word(width);
    Word(height);
    Byte(PaletteFlags(palette));
    Byte(background);
    Byte(0);
    Palette(palette);
  }

  /// Disposal as in the file: 0 unspecified, 1 keep, 2 to background, 3 to previous. Delay in hundredths of a second.
  CGIFWriter& Control(int disposal, int delay, int transparent = -1) {
    for (const int byte : {0x21, 0xF9, 4, disposal << 2 | (transparent >= 0 ? 1 : 0)}) Byte(byte);
    Word(delay);
    Byte(transparent >= 0 ? transparent : 0);
    Byte(0);
    return *this;
  }

  CGIFWriter& Image(const CImage& image) {
    Byte(0x2C);
    for (const int word : {image.left, image.top, image.width, image.height}) Word(word);
    Byte(PaletteFlags(image.palette) | (image.interlaced ? 0x40 : 0));
    Palette(image.palette);
    Compress(image.interlaced ? Interlaced(image) : image.pixels, image.clearsFullAlphabet);
    return *this;
  }

  /// A rectangle of one colour.
  CGIFWriter& Fill(int left, int top, int width, int height, int index) {
    return Image(
        {left, top, width, height, std::vector<int>(static_cast<std::size_t>(width * height), index), false, {}});
  }

  CGIFWriter& Extension(int label, const std::string& text) {
    Byte(0x21);
    Byte(label);
    Byte(static_cast<int>(text.size()));
    Text(text);
    Byte(0);
    return *this;
  }

  CGIFWriter& Byte(int byte) {
    bytes_.push_back(static_cast<unsigned char>(byte));
    return *this;
  }

  std::vector<unsigned char> End() {
    Byte(0x3B);
    return bytes_;
  }
  const std::vector<unsigned char>& Bytes() const { return bytes_; }

private:
  void Word(int word) {
    Byte(word & 0xFF);
    Byte(word >> 8);
  }
  void Text(const std::string& text) { bytes_.insert(bytes_.end(), text.begin(), text.end()); }

  static int PaletteBits(const std::vector<CColour>& palette) {
    int bits = 1;
    while (1U << bits < palette.size()) ++bits;
    return bits;
  }
  static int PaletteFlags(const std::vector<CColour>& palette) {
    return palette.empty() ? 0 : 0x80 | (PaletteBits(palette) - 1);
  }
  void Palette(std::vector<CColour> palette) {
    if (palette.empty()) return;
    palette.resize(std::size_t{1} << PaletteBits(palette));
    for (const CColour& colour : palette)
      for (const int channel : colour) Byte(channel);
  }

  static std::vector<int> Interlaced(const CImage& image) {
    std::vector<int> rows;
    for (const auto& [first, step] : std::vector<std::pair<int, int>>{{0, 8}, {4, 8}, {2, 4}, {1, 2}})
      for (int y = first; y < image.height; y += step)
        rows.insert(rows.end(), image.pixels.begin() + y * image.width, image.pixels.begin() + (y + 1) * image.width);
    return rows;
  }

  void Compress(const std::vector<int>& pixels, bool clears) {
    constexpr int kCodeSize = 8, kClear = 256, kEnd = 257, kFull = 4096;
    std::map<std::vector<int>, int> table;
    std::vector<unsigned char> packed;
    unsigned buffer = 0;
    int bits = 0, width = kCodeSize + 1, next = kEnd + 1;
    const auto put = [&](int code) {
      buffer |= static_cast<unsigned>(code) << bits;
      for (bits += width; bits >= 8; bits -= 8, buffer >>= 8) packed.push_back(static_cast<unsigned char>(buffer));
    };
    const auto codeOf = [&](const std::vector<int>& string) {
      return string.size() == 1 ? string[0] : table.at(string);
    };
    put(kClear);
    std::vector<int> string;
    for (const int pixel : pixels) {
      std::vector<int> longer = string;
      longer.push_back(pixel);
      if (longer.size() == 1 || table.count(longer) != 0) {
        string = longer;
        continue;
      }
      put(codeOf(string));
      if (next < kFull) table[longer] = next++;
      // The reader knows each string one code later.
      if (next == kFull && clears) {
        put(kClear);
        table.clear();
        next = kEnd + 1;
        width = kCodeSize + 1;
      } else if (next > 1 << width && width < 12) {
        ++width;
      }
      string = {pixel};
    }
    if (!string.empty()) put(codeOf(string));
    put(kEnd);
    if (bits > 0) packed.push_back(static_cast<unsigned char>(buffer));
    Byte(kCodeSize);
    for (std::size_t at = 0; at < packed.size(); at += 255) {
      const std::size_t count = std::min<std::size_t>(255, packed.size() - at);
      Byte(static_cast<int>(count));
      bytes_.insert(bytes_.end(), packed.begin() + static_cast<std::ptrdiff_t>(at),
                    packed.begin() + static_cast<std::ptrdiff_t>(at + count));
    }
    Byte(0);
  }

  std::vector<unsigned char> bytes_;
};

}  // namespace graphics::animation::test
