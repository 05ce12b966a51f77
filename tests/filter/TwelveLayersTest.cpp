#include "tests/filter/AnimatedPage.h"
#include "tests/filter/PlainPainter.h"

#include <cstring>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace authfilter {
namespace {

constexpr int kFrames = 500;

/// A picture with an edge, a slope of colour and, if wanted, a slope of transparency.
wxImage picture(int width, int height, int number, bool transparent) {
  const graphics::CToolkitLock lock;
  wxImage image(width, height);
  if (transparent) image.InitAlpha();
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const bool edge = x == 0 || y == 0 || x == width - 1 || y == height - 1;
      const auto colour = [&](int value) { return static_cast<unsigned char>(edge ? 255 : value % 256); };
      image.SetRGB(x, y, colour(40 * number + 5 * x), colour(90 * number + 7 * y), colour(200 - 30 * number));
      if (transparent) image.SetAlpha(x, y, static_cast<unsigned char>(edge ? 200 : (x * 255) / width));
    }
  return image;
}

struct CCase {
  const char* name;
  int width, height;
  bool noAlpha, input;
};

void PrintTo(const CCase& what, std::ostream* out) {
  *out << what.name;
}

/// A page of 320 by 180 units.
class TwelveLayers : public CAnimatedPage, public testing::WithParamInterface<CCase> {
protected:
  static std::string FrameList(int count, int delay, bool loop, bool transparent) {
    std::ostringstream xml;
    xml << R"(<animation type="animation" count=")" << count << R"(" delay=")" << delay << R"(" loop=")"
        << (loop ? "true" : "false") << "\">";
    for (int frame = 0; frame < count; ++frame)
      xml << Bitmap("frame" + std::to_string(frame), picture(24, 16, frame, transparent));
    xml << "</animation>";
    return xml.str();
  }
  static std::string Gif(const std::vector<int>& delays) {
    std::ostringstream xml;
    xml << R"(<animation type="gif" loop="true" count=")" << delays.size() << R"("><size x="24" y="16"/>)";
    for (std::size_t frame = 0; frame < delays.size(); ++frame)
      xml << "<frame" << frame << " delay=\"" << delays[frame] << "\">"
          << Bitmap("frame", picture(24, 16, static_cast<int>(frame), false)) << "</frame" << frame << ">";
    xml << "</animation>";
    return xml.str();
  }
  static std::string Label(int x, int y, const std::string& text) {
    return "<label text=\"" + text + "\">" + Frame(x, y, 90, 20) +
           R"(<font name="DejaVu Sans" pointsize="14" style="90" weight="92" underlined="false"/>)"
           R"(<color red="255" green="250" blue="200" alpha="255"/></label>)";
  }
  static std::string Shape(int x, int y, int width, int height, int rotation, int alpha) {
    std::ostringstream xml;
    xml << R"(<shape shape="rounded-rectangle" corner-radius="6" rotation=")" << rotation << "\">"
        << Frame(x, y, width, height) << R"(<brush style="100"><color red="60" green="110" blue="220" alpha=")" << alpha
        << R"("/></brush><pen style="100" width="2"><color red="0" green="0" blue="0" alpha="255"/></pen></shape>)";
    return xml.str();
  }
  static std::string MirrorOf(int x, int y, int width, int height, const std::string& document) {
    return "<mirror>" + Frame(x, y, width, height) + "<graphic-document>" + document + "</graphic-document></mirror>";
  }

  std::string Page() const {
    return Rectangle(0, 0, 320, 110, kBlue) + Shape(30, 20, 120, 70, 15, 255) + Label(40, 40, "Below all") +
           Image(20, 20, 48, 32, Gif({40, 120, 10, 90}), R"(type-name="animation-image" unique="3")") +
           Shape(50, 30, 70, 60, 0, 120) + Label(60, 42, "Between") +
           Image(60, 15, 90, 60, FrameList(5, 100, true, true), R"(rotation="30")") +
           Image(110, 30, 70, 50, FrameList(3, 77, true, true), R"(mirror-x="true")") +
           MirrorOf(10, 52, 150, 60,
                    Shape(30, 20, 100, 32, 10, 200) + R"(<animation type="animation-image" unique="3"/>)" +
                        Image(80, 15, 60, 35, Gif({0}))) +
           Label(90, 60, "Above the mirror") + Shape(150, 10, 60, 130, 40, 90) +
           Image(150, 60, 73, 59, FrameList(4, 45, false, true), R"(rotation="200" mirror-y="true")") +
           Shape(170, 70, 90, 70, 70, 130) + MirrorOf(140, 100, 130, 70, Label(150, 60, "Mirrored")) +
           Image(270, 120, 80, 90, FrameList(6, 160, true, true), R"(rotation="45" mirror-x="true" mirror-y="true")") +
           Shape(200, 100, 110, 60, 5, 100) + Label(210, 130, "On top");
  }

  static void Prepare(CInfoStore& instance) {
    const CCase& what = GetParam();
    instance.width = what.width;
    instance.height = what.height;
    instance.frameRateNum = 25;
    instance.frameRateDen = 1;
    instance.noAlpha = what.noAlpha;
  }
  static graphics::CPixels Read(CInfoStore& instance) {
    const graphics::CPixels pixels = instance.BeginReadFrame();
    instance.EndReadFrame();
    return pixels;
  }
};

TEST_P(TwelveLayers, LookLikeAFullRepaintInEveryFrame) {
  const CCase& what = GetParam();
  SetPage(Page(), Box(320, 180));
  Prepare(store);
  store.Open();
  CInfoStore full;
  Prepare(full);
  full.pluginData = std::make_unique<wxXmlDocument>(*store.pluginData);
  full.Open();
  ASSERT_EQ(store.layers.size(), 12u);
  CPlainPainter plain(full);

  std::vector<std::uint8_t> input(static_cast<std::size_t>(what.width * what.height) * 4);
  std::mt19937 random(1);
  for (int frame = 0; frame < kFrames; ++frame) {
    store.NextFrame();
    full.NextFrame();
    if (what.input) {
      // The memory is the same in each frame, what is in it isn't.
      const auto grey = static_cast<std::uint8_t>(random());
      for (std::size_t pixel = 0; pixel < input.size(); pixel += 4) {
        const auto colour = static_cast<std::uint8_t>(grey + pixel / 64);
        std::memset(input.data() + pixel, colour, 3);
        input[pixel + 3] = 255;
      }
      for (CInfoStore* instance : {&store, &full}) instance->SetInputImage(input.data(), what.width * 4);
    }
    full.paintedOnBlack = false;
    const graphics::CPixels seen = Read(store);
    ASSERT_EQ(DifferenceOf(seen, Read(full)), "") << "frame " << frame << ", painted in full";
    ASSERT_EQ(DifferenceOf(seen, plain.Paint()), "") << "frame " << frame << ", painted plainly";
  }
}

INSTANTIATE_TEST_SUITE_P(
    , TwelveLayers,
    testing::Values(CCase{"OnBlack", 320, 180, true, false}, CCase{"OnBlackSmaller", 150, 84, true, false},
                    CCase{"OnBlackLarger", 427, 239, true, false}, CCase{"OnBlackWithInput", 200, 113, true, true},
                    CCase{"OverInput", 150, 84, false, true}, CCase{"OverItself", 150, 84, false, false}),
    [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace authfilter
