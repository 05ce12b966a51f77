// The same texts on pages of every size: lines end at the same words, and ink keeps its place in the frame.

#include "tests/outside/Instance.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using test::Instance;
using test::Module;
using test::Pixels;
using test::toBase64;

constexpr double kPageWidth = 160;
constexpr double kTolerance = 0.02;

struct Frame {
  double left, top, width, height;
};

struct Text {
  const char* name;
  Frame frame;
  const char* runs;
};

const std::vector<Text> texts{
    {"seven points", {2, 1, 50, 43}, "<text fontpointsize=\"7\">WORDS</text>"},
    {"nine points", {54, 1, 50, 43}, "<text fontpointsize=\"9\">WORDS</text>"},
    {"nine points bold", {106, 1, 50, 43}, "<text fontpointsize=\"9\" fontweight=\"700\">WORDS</text>"},
    {"thirteen points", {2, 46, 50, 43}, "<text fontpointsize=\"13\">WORDS</text>"},
    {"mixed styles",
     {54, 46, 50, 43},
     "<text fontpointsize=\"8\">\"WORDS \"</text><text fontpointsize=\"8\" fontweight=\"700\">\"WORDS \"</text>"
     "<text fontpointsize=\"8\" fontstyle=\"93\" fontface=\"DejaVu Serif\">WORDS</text>"},
    {"fourteen points serif", {106, 46, 50, 43}, "<text fontpointsize=\"14\" fontface=\"DejaVu Serif\">WORDS</text>"},
};

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

std::string elementOf(const Text& text) {
  const std::string words = replaced(text.runs, "WORDS", "AVATAR and Wolf jumped over fifty lilies, illicitly");
  const std::string xml =
      "<richtext version=\"1.0.0.0\"><paragraphlayout><paragraph fontface=\"DejaVu Sans\" linespacing=\"14\" "
      "textcolor=\"#FFFFFF\">" +
      words + "</paragraph></paragraphlayout></richtext>";
  std::string base64 = toBase64(xml);
  while (base64.back() == '=') base64.pop_back();
  const Frame& frame = text.frame;
  const auto number = [](double value) { return '"' + std::to_string(value) + '"'; };
  return "<text><center x=" + number(frame.left + frame.width / 2) + " y=" + number(frame.top + frame.height / 2) +
         "/><size width=" + number(frame.width) + " height=" + number(frame.height) +
         "/><attachment-richtextbuffer><![CDATA[" + base64 + "]]></attachment-richtextbuffer></text>";
}

/// A line of a text, in shares of the frame.
struct Line {
  double left = 1, right = 0, top = 0, bottom = 0;
};

class TextScale : public testing::Test {
protected:
  /// The page is as high as the picture wants; the texts stand in its upper part.
  Pixels render(int width, int height) {
    Instance instance(module);
    instance.set("width", std::to_string(width));
    instance.set("height", std::to_string(height));
    std::string elements;
    for (const Text& text : texts) elements += elementOf(text);
    const std::string page = "<page><content-box x=\"0\" y=\"0\" width=\"160\" height=\"" +
                             std::to_string(kPageWidth * height / width) + "\"/>" + elements + "</page>";
    EXPECT_TRUE(instance.set("plugindata", toBase64(page)));
    instance.open();
    return instance.frame(width, height);
  }

  static std::vector<Line> linesOf(const Pixels& pixels, int width, const Frame& frame) {
    const double scale = width / kPageWidth;
    const auto inked = [&](int x, int y) {
      return pixels[(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 4 +
                    1] > 60;
    };
    const int left = static_cast<int>(frame.left * scale) - 1;
    const int right = static_cast<int>((frame.left + frame.width) * scale) + 1;
    std::vector<Line> lines;
    bool inLine = false;
    for (int y = static_cast<int>(frame.top * scale); y < static_cast<int>((frame.top + frame.height) * scale); ++y) {
      int first = right, last = left;
      for (int x = left; x < right; ++x) {
        if (!inked(x, y)) continue;
        first = std::min(first, x);
        last = x;
      }
      if (first <= last) {
        if (!inLine) lines.push_back({1, 0, (y / scale - frame.top) / frame.height, 0});
        Line& line = lines.back();
        line.left = std::min(line.left, (first / scale - frame.left) / frame.width);
        line.right = std::max(line.right, ((last + 1) / scale - frame.left) / frame.width);
        line.bottom = ((y + 1) / scale - frame.top) / frame.height;
      }
      inLine = first <= last;
    }
    return lines;
  }

  Module module;
};

TEST_F(TextScale, LinesEndAtTheSameWordsAndKeepTheirPlaceInTheFrame) {
  const Pixels largest = render(3840, 2160);
  for (const auto& [width, height] : {std::pair{360, 288}, {720, 576}, {1280, 720}, {1920, 1080}}) {
    const Pixels picture = render(width, height);
    for (const Text& text : texts) {
      SCOPED_TRACE(std::string(text.name) + " at " + std::to_string(width) + " pixels");
      const std::vector<Line> expected = linesOf(largest, 3840, text.frame);
      const std::vector<Line> lines = linesOf(picture, width, text.frame);
      ASSERT_GE(expected.size(), 2U);
      ASSERT_EQ(lines.size(), expected.size());
      for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_NEAR(lines[i].left, expected[i].left, kTolerance) << "line " << i;
        EXPECT_NEAR(lines[i].right, expected[i].right, kTolerance) << "line " << i;
        EXPECT_NEAR(lines[i].top, expected[i].top, kTolerance) << "line " << i;
        EXPECT_NEAR(lines[i].bottom, expected[i].bottom, kTolerance) << "line " << i;
      }
    }
  }
}

}  // namespace
