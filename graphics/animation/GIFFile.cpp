#include "graphics/animation/GIFFile.h"

#include "foundation/Error.h"
#include "graphics/animation/FrameList.h"

#include <algorithm>
#include <string_view>

namespace graphics::animation {

namespace {

using CBytes = std::span<const unsigned char>;

/// Takes bytes from the front. What the file no longer has is an empty span or 0.
class CReader {
public:
  explicit CReader(CBytes bytes) : rest_(bytes) {}

  bool IsAtEnd() const { return rest_.empty(); }
  CBytes Rest() const { return rest_; }

  CBytes Take(std::size_t count) {
    if (count > rest_.size()) {
      rest_ = {};
      return {};
    }
    const CBytes taken = rest_.first(count);
    rest_ = rest_.subspan(count);
    return taken;
  }
  unsigned TakeByte() {
    const CBytes byte = Take(1);
    return byte.empty() ? 0 : byte[0];
  }
  /// The first of the blocks that follow; the others are passed over.
  CBytes TakeBlocks() {
    const CBytes first = Take(TakeByte());
    if (first.empty()) return first;
    while (const unsigned length = TakeByte()) Take(length);
    return first;
  }

private:
  CBytes rest_;
};

int LittleEndian(CBytes bytes, std::size_t at) {
  return bytes[at] | bytes[at + 1] << 8;
}

bool HasPalette(unsigned flags) {
  return (flags & 0x80) != 0;
}

std::size_t PaletteBytes(unsigned flags) {
  return std::size_t{3} * (std::size_t{2} << (flags & 7));
}

class CScanner {
public:
  explicit CScanner(CBytes bytes) : reader_(bytes) {}

  CGIFFile Scan() {
    ReadScreen();
    bool more = true;
    while (more && !reader_.IsAtEnd()) more = ReadBlock();
    if (file_.frames.empty()) throw orlo::CError("The GIF file has no frame");
    return std::move(file_);
  }

private:
  void ReadScreen() {
    constexpr std::string_view kSignature = "GIF";
    constexpr std::string_view kAnimated = "89a";
    const CBytes header = reader_.Take(6);
    if (header.empty() || !std::equal(kSignature.begin(), kSignature.end(), header.begin()))
      throw orlo::CError("The file is no GIF file");
    animated_ = !std::lexicographical_compare(header.begin() + 3, header.end(), kAnimated.begin(), kAnimated.end());
    const CBytes screen = reader_.Take(7);
    if (screen.empty()) return;
    file_.width = LittleEndian(screen, 0);
    file_.height = LittleEndian(screen, 2);
    if (!HasPalette(screen[4])) return;
    palette_ = reader_.Take(PaletteBytes(screen[4]));
    const std::size_t background = std::size_t{3} * screen[5];
    if (background + 3 <= palette_.size())
      file_.background = {palette_[background], palette_[background + 1], palette_[background + 2]};
  }

  /// False at the end.
  bool ReadBlock() {
    constexpr unsigned kPadding = 0x00, kExtension = 0x21, kImage = 0x2C;
    const unsigned type = reader_.TakeByte();
    if (type == kPadding) return true;
    if (type == kExtension) return ReadExtension();
    return type == kImage && ReadImage();
  }

  bool ReadExtension() {
    constexpr unsigned kGraphicControl = 0xF9;
    const unsigned label = reader_.TakeByte();
    const CBytes block = reader_.TakeBlocks();
    if (label != kGraphicControl || block.size() < 4) return true;
    const unsigned flags = block[0];
    // The toolkit's numbers are one less than the file's.
    next_.disposal = static_cast<CGIFFrame::EDisposal>(static_cast<int>(flags >> 2 & 7) - 1);
    next_.transparent = (flags & 1) != 0 ? block[3] : -1;
    next_.delay = 10 * LittleEndian(block, 1);
    return true;
  }

  bool ReadImage() {
    const CBytes descriptor = reader_.Take(9);
    if (descriptor.empty()) return false;
    CGIFFrame frame = next_;
    next_ = {};
    frame.left = LittleEndian(descriptor, 0);
    frame.top = LittleEndian(descriptor, 2);
    frame.width = LittleEndian(descriptor, 4);
    frame.height = LittleEndian(descriptor, 6);
    const unsigned flags = descriptor[8];
    frame.interlaced = (flags & 0x40) != 0;
    frame.palette = HasPalette(flags) ? reader_.Take(PaletteBytes(flags)) : palette_;
    frame.codeSize = reader_.TakeByte();
    if (reader_.IsAtEnd()) return false;
    frame.data = reader_.Rest();
    reader_.TakeBlocks();
    Add(frame);
    return animated_;
  }

  void Add(const CGIFFrame& frame) {
    if (file_.width == 0 || file_.height == 0) {
      file_.width = frame.left + frame.width;
      file_.height = frame.top + frame.height;
      if (file_.width == 0 || file_.height == 0) throw orlo::CError("The GIF file has no size");
    }
    constexpr std::uint64_t kBytesPerPixel = 4;
    const auto area = [](int width, int height) {
      return static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
    };
    // A frame that is larger than the screen costs the time to decode it.
    bytes_ += kBytesPerPixel * std::max(area(file_.width, file_.height), area(frame.width, frame.height));
    CheckFrameBytes(bytes_);
    CheckFrameCount(file_.frames.size() + 1);
    file_.frames.push_back(frame);
  }

  CReader reader_;
  CGIFFile file_;
  CBytes palette_;
  bool animated_ = false;
  CGIFFrame next_;
  std::uint64_t bytes_ = 0;
};

}  // namespace

CGIFFile ScanGIF(std::span<const unsigned char> bytes) {
  return CScanner(bytes).Scan();
}

}  // namespace graphics::animation
