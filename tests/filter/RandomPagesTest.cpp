#include "tests/filter/AnimatedPage.h"
#include "tests/filter/PlainPainter.h"

#include <random>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace authfilter {
namespace {

/// Pages of a few elements in all kinds of places, whose host does what hosts may do, in any order.
class RandomPages : public CAnimatedPage {
protected:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  bool OneIn(int chances) { return Below(chances) == 0; }
  template <class T>
  T OneOf(std::initializer_list<T> choices) {
    return *(choices.begin() + Below(static_cast<int>(choices.size())));
  }
  unsigned char Byte() { return static_cast<unsigned char>(random_()); }
  double Tenths(int limit) { return Below(limit * 10) / 10.0; }

  std::string Place() {
    const double width = OneIn(4) ? OneOf({0.3, 1.0, 160.0, 400.0, 5000.0, -20.0, 0.0}) : 1 + Tenths(60);
    const double height = OneIn(4) ? OneOf({0.3, 1.0, 90.0, 300.0, 5000.0, -20.0, 0.0}) : 1 + Tenths(60);
    std::ostringstream xml;
    xml << "<center x=\"" << Tenths(200) - 20 << "\" y=\"" << Tenths(130) - 20 << "\"/><size width=\"" << width
        << "\" height=\"" << height << "\"/>";
    return xml.str();
  }
  std::string Properties() {
    std::string properties;
    if (OneIn(2))
      properties += " rotation=\"" +
                    OneOf<std::string>({"0", "45", "90", "180", "-30", "0.0009", "0.0011", "360", "89.999", "721",
                                        "nan", "inf", "1e300"}) +
                    '"';
    if (OneIn(3)) properties += " mirror-x=\"true\"";
    if (OneIn(3)) properties += " mirror-y=\"true\"";
    if (OneIn(12)) properties += " visible=\"false\"";
    return properties;
  }
  wxImage Picture() {
    const graphics::CToolkitLock lock;
    wxImage image(1 + Below(30), 1 + Below(30));
    const bool opaque = OneIn(2);
    if (!opaque) image.InitAlpha();
    for (int y = 0; y < image.GetHeight(); ++y)
      for (int x = 0; x < image.GetWidth(); ++x) {
        image.SetRGB(x, y, Byte(), Byte(), Byte());
        if (!opaque) image.SetAlpha(x, y, Byte());
      }
    return image;
  }
  /// Of up to four frames, some of them missing.
  std::string Animation() {
    const int count = Below(5);
    std::ostringstream xml;
    xml << R"(<animation type="animation" count=")" << count << R"(" delay=")" << OneOf({1, 40, 50, 100})
        << R"(" loop=")" << (OneIn(4) ? "false" : "true") << "\">";
    for (int frame = 0; frame < count; ++frame)
      if (!OneIn(8)) xml << Bitmap("frame" + std::to_string(frame), Picture());
    xml << "</animation>";
    return xml.str();
  }
  std::string MirrorOfOthers(int depth) {
    std::string shown;
    for (int count = Below(4); count > 0; --count) shown += Element(depth + 1);
    return "<mirror" + Properties() + ">" + Place() + "<graphic-document>" + shown + "</graphic-document></mirror>";
  }
  std::string Element(int depth) {
    const int kind = Below(5);
    if (kind == 0)
      return Rectangle(Below(160), Below(90), 1 + Below(60), 1 + Below(60), OneOf({kRed, kGreenHalf}), Properties());
    if (kind == 1 && depth < 3) return MirrorOfOthers(depth);
    if (kind == 2 && shared_ > 0)
      return R"(<animation type="animation-image" unique=")" + std::to_string(1 + Below(shared_)) + "\"/>";
    std::string properties = Properties();
    if (OneIn(2)) properties += " unique=\"" + std::to_string(++shared_) + "\"";
    return R"(<animation type="animation-image")" + properties + ">" + Place() + Animation() + "</animation>";
  }

  void OpenPage(CInfoStore& instance) {
    shared_ = 0;
    std::string elements;
    for (int count = 1 + Below(9); count > 0; --count) elements += Element(0);
    SetPage(elements, OneOf({Box(160, 90), Box(16, 9), Box(1600, 900), Box(161, 92), Box(-160, -90)}));
    std::swap(instance.pluginData, store.pluginData);
    instance.width = OneOf({160, 160, 161, 40, 7});
    instance.height = instance.width == 40 ? 23 : instance.width == 7 ? 4 : 90;
    instance.frameRateNum = 25;
    instance.frameRateDen = 1;
    instance.noAlpha = !OneIn(4);
    instance.Open();
    ASSERT_FALSE(instance.layers.empty());
  }

  /// The frames of the same page in an instance of its own.
  static std::vector<std::uint8_t> FramesOf(const CInfoStore& page) {
    CInfoStore instance;
    {
      const graphics::CToolkitLock lock;
      instance.pluginData = std::make_unique<wxXmlDocument>(*page.pluginData);
    }
    instance.width = page.width;
    instance.height = page.height;
    instance.frameRateNum = page.frameRateNum;
    instance.frameRateDen = page.frameRateDen;
    instance.noAlpha = true;
    instance.Open();
    std::vector<std::uint8_t> frames;
    for (int frame = 0; frame < 12; ++frame) {
      instance.NextFrame();
      const graphics::CPixels pixels = instance.BeginReadFrame();
      frames.insert(frames.end(), pixels.data, pixels.Row(pixels.height));
      instance.EndReadFrame();
    }
    return frames;
  }

  std::mt19937 random_;
  int shared_ = 0;
};

TEST_F(RandomPages, LookLikeAPlainAndFullPaintingInEveryFrame) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    random_.seed(seed);
    CInfoStore instance;
    ASSERT_NO_FATAL_FAILURE(OpenPage(instance));
    CPlainPainter plain(instance);
    graphics::CPixels expected;
    std::vector<std::uint8_t> input(static_cast<std::size_t>(instance.width * instance.height) * 4);
    for (int frame = 0; frame < 12; ++frame) {
      instance.NextFrame();
      if (OneIn(12)) instance.noAlpha = !instance.noAlpha;
      if (OneIn(20)) instance.Close();
      if (OneIn(8)) {
        for (std::uint8_t& byte : input) byte = Byte();
        instance.SetInputImage(OneIn(3) ? nullptr : input.data(), instance.width * 4);
      }
      if (OneIn(6)) continue;
      const bool repaints = instance.repaint;
      const graphics::CPixels seen = instance.BeginReadFrame();
      if (!OneIn(5)) instance.EndReadFrame();
      if (repaints) expected = plain.Paint();
      ASSERT_EQ(DifferenceOf(seen, expected), "") << "page " << seed << ", frame " << frame;
    }
  }
}

TEST_F(RandomPages, OfSeveralThreadsAtOnceLookAsOnOne) {
  for (unsigned seed = 1001; seed <= 1020; ++seed) {
    random_.seed(seed);
    CInfoStore page;
    ASSERT_NO_FATAL_FAILURE(OpenPage(page));
    const std::vector<std::uint8_t> expected = FramesOf(page);
    std::vector<std::thread> threads;
    for (int index = 0; index < 4; ++index)
      threads.emplace_back([&] { EXPECT_TRUE(FramesOf(page) == expected) << "page " << seed; });
    for (std::thread& thread : threads) thread.join();
  }
}

}  // namespace
}  // namespace authfilter
