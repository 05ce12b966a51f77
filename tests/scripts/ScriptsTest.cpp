#include "graphics/paint/native/TextLayout.h"
#include "tests/elements/TextPage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace graphics::test {

namespace {

struct CScript {
  const char* name;
  const char* text;
};

const std::vector<CScript> kScripts{
    {"Arabic", "القائمة الرئيسية والفصول واللغات"},
    {"Hebrew", "תפריט ראשי, פרקים ושפות"},
    {"Devanagari", "मुख्य मेनू और अध्याय हिन्दी में"},
    {"Thai", "เมนูหลักและบทต่างๆ ของแผ่นดิสก์"},
    {"Combining",
     "e\u0301\u0323o\u0302\u0301a\u030A\u0304u\u0308\u030Ce\u0301\u0323o\u0302\u0301 "
     "a\u030A\u0304u\u0308\u030Ci\u0301\u0323o\u0302\u0301"},
    {"Chinese", "主菜单章节与语言设置以及附加内容"},
    {"Japanese", "メインメニューとチャプター、言語の選択"},
    {"Korean", "주 메뉴와 장면 그리고 언어 선택"},
};

bool AreFontsInstalled() {
  return std::filesystem::exists("/usr/share/fonts/truetype/noto/NotoSansArabic-Regular.ttf") &&
         std::filesystem::exists("/usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc");
}

bool IsMark(wxUniChar letter) {
  return g_unichar_ismark(letter.GetValue());
}

class Scripts : public testing::TestWithParam<CScript> {
protected:
  void SetUp() override {
    if (!AreFontsInstalled()) GTEST_SKIP() << "fonts-noto-core and fonts-noto-cjk are not installed";
  }

  const CToolkitLock lock_;
  const wxString text_ = wxString::FromUTF8(GetParam().text);
  const wxFont font_{wxFontInfo(12).FaceName("DejaVu Sans")};
};

std::string NameOf(const testing::TestParamInfo<CScript>& info) {
  return info.param.name;
}

}  // namespace

TEST_P(Scripts, HasALetterForEveryCharacter) {
  EXPECT_EQ(CTextLayout::Of(font_, text_)->CountUnknownLetters(), 0);
}

TEST_P(Scripts, IsDrawnWithinItsExtent) {
  const auto layout = CTextLayout::Of(font_, text_);
  CCanvas canvas(600, 60);
  canvas.dc.SetScalableText(true);
  canvas.dc.SetFont(font_);
  canvas.dc.DrawText(text_, 10, 10);
  const CTextExtent extent = layout->GetExtent();
  const wxRect ink = canvas.Ink().bounds;
  EXPECT_GT(ink.width, extent.width * 4 / 5);
  EXPECT_TRUE(wxRect(10, 10, extent.width, extent.GetHeight()).Inflate(2).Contains(ink));
}

TEST_P(Scripts, PartialExtentsGrowToTheWholeWidth) {
  const auto layout = CTextLayout::Of(font_, text_);
  const wxArrayInt extents = layout->GetPartialExtents();
  ASSERT_EQ(extents.size(), text_.length());
  EXPECT_TRUE(std::is_sorted(extents.begin(), extents.end()));
  EXPECT_EQ(extents.back(), layout->GetExtent().width);
  for (std::size_t i = 1; i < text_.length(); ++i)
    EXPECT_TRUE(extents[i] == extents[i - 1] || !g_unichar_iszerowidth(text_[i].GetValue())) << "character " << i;
}

TEST_P(Scripts, NoLineStartsWithAMark) {
  CTextPage page(300, 300);
  for (const double width : {20.0, 31.0, 44.0, 58.0, 71.0}) {
    CGraphicText element;
    element.SetBuffer(TextOf({text_}, 12).get());
    Place(element, {0, 0, width, 300});
    element.Paint(page.context);
    const std::vector<long> starts = LineStartsOf(*element.GetBuffer());
    EXPECT_GT(starts.size(), 1U) << "width " << width;
    for (const long start : starts)
      EXPECT_FALSE(IsMark(text_[static_cast<std::size_t>(start)])) << "width " << width << ", character " << start;
  }
}

INSTANTIATE_TEST_SUITE_P(OfTheWorld, Scripts, testing::ValuesIn(kScripts), NameOf);

TEST(RightToLeft, TheFirstWordStandsAtTheRight) {
  if (!AreFontsInstalled()) GTEST_SKIP() << "fonts-noto-core is not installed";
  CCanvas canvas(200, 60);
  canvas.dc.SetScalableText(true);
  canvas.dc.SetFont(wxFont(wxFontInfo(20).FaceName("DejaVu Sans")));
  const wxString text = wxString::FromUTF8("אאא ...");
  canvas.dc.DrawText(text, 0, 0);
  const int middle = canvas.dc.GetTextExtent(text).x / 2;
  // Letters are higher than dots.
  int left = 60, right = 60;
  for (int y = 59; y >= 0; --y) {
    for (int x = 0; x < 200; ++x) {
      if (canvas.At(x, y).alpha == 0) continue;
      (x < middle * 2 / 3 ? left : right) = y;
    }
  }
  EXPECT_GT(left, right);
}

}  // namespace graphics::test
