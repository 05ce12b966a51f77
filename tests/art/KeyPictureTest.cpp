#include "foundation/StringLocalizer.h"
#include "graphics/art/SkinManager.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>
#include <wx/font.h>
#include <wx/image.h>

namespace graphics::test {

namespace {

class KeyPicture : public testing::Test {
protected:
  wxSize CaptionOf(const wxString& text) {
    canvas_.dc.SetFont(*wxNORMAL_FONT);
    return canvas_.dc.GetTextExtent(text);
  }

  CCanvas canvas_;
  CSkinManager manager_;
};

TEST_F(KeyPicture, StandsReadyForTheFourKeys) {
  const wxSize border(4, 4);
  EXPECT_EQ(manager_.MakeKeyBitmap(0, "other", "KEY_ALT")->GetSize(), CaptionOf("Alt") + border);
  EXPECT_EQ(manager_.MakeKeyBitmap(0, "other", "KEY_ESC")->GetSize(), CaptionOf("Esc") + border);
  EXPECT_EQ(manager_.MakeKeyBitmap(0, "other", "KEY_CONTROL")->GetSize(), CaptionOf("Ctrl") + border);
  EXPECT_EQ(manager_.MakeKeyBitmap(0, "other", "KEY_SHIFT")->GetSize(), CaptionOf("Shift") + border);
}

TEST_F(KeyPicture, IsMadeOncePerName) {
  wxBitmap* const key = manager_.MakeKeyBitmap(WXK_F1, "F1", "KEY_F1");
  EXPECT_EQ(manager_.MakeKeyBitmap(WXK_F2, "F2 and more", "KEY_F1"), key);
  EXPECT_NE(manager_.MakeKeyBitmap(WXK_F1, "F1", "KEY_F2"), key);
}

TEST_F(KeyPicture, ShowsTheCaptionOfTheLanguage) {
  const auto& localizer = orlo::getStringLocalizer();
  localizer->setText("graphics.Keyname.Shift", "Umschalttaste");
  CSkinManager localized;
  localizer->clear();
  EXPECT_EQ(localized.MakeKeyBitmap(0, "", "KEY_SHIFT")->GetWidth(), CaptionOf("Umschalttaste").x + 4);
}

TEST_F(KeyPicture, IsWhiteWithABlackBorderAndMaskedOutsideOfItsCorners) {
  const wxBitmap& key = *manager_.MakeKeyBitmap(0, "", "KEY_CONTROL");
  ASSERT_TRUE(key.GetMask());
  const wxImage image = key.ConvertToImage();
  ASSERT_TRUE(image.HasMask());
  const int right = image.GetWidth() - 1, bottom = image.GetHeight() - 1;
  for (const wxPoint corner : {wxPoint(0, 0), wxPoint(right, 0), wxPoint(0, bottom), wxPoint(right, bottom)})
    EXPECT_TRUE(image.IsTransparent(corner.x, corner.y)) << corner.x << ',' << corner.y;
  for (const wxPoint edge :
       {wxPoint(right / 2, 0), wxPoint(right / 2, bottom), wxPoint(0, bottom / 2), wxPoint(right, bottom / 2)}) {
    EXPECT_FALSE(image.IsTransparent(edge.x, edge.y));
    EXPECT_EQ(image.GetRed(edge.x, edge.y), 0) << edge.x << ',' << edge.y;
  }
  EXPECT_EQ(image.GetRed(2, 2), 255);
}

TEST_F(KeyPicture, ShowsNothingOfTheMasksColour) {
  for (const char* const name : {"KEY_ALT", "KEY_ESC", "KEY_CONTROL", "KEY_SHIFT"}) {
    const wxImage image = manager_.MakeKeyBitmap(0, "", name)->ConvertToImage();
    int masked = 0, dark = 0;
    for (int y = 0; y < image.GetHeight(); ++y) {
      for (int x = 0; x < image.GetWidth(); ++x) {
        if (image.IsTransparent(x, y)) {
          ++masked;
          continue;
        }
        EXPECT_EQ(image.GetRed(x, y), image.GetGreen(x, y)) << name << ' ' << x << ',' << y;
        EXPECT_EQ(image.GetRed(x, y), image.GetBlue(x, y)) << name << ' ' << x << ',' << y;
        const bool inside = x > 1 && y > 1 && x + 2 < image.GetWidth() && y + 2 < image.GetHeight();
        if (inside && image.GetRed(x, y) < 100) ++dark;
      }
    }
    EXPECT_GE(masked, 4) << name;
    EXPECT_LE(masked, 20) << name;
    EXPECT_GT(dark, 10) << name;
  }
}

}  // namespace

}  // namespace graphics::test
