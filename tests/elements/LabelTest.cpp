#include "graphics/elements/GraphicLabel.h"
#include "graphics/elements/GraphicStateButton.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace graphics::test {

namespace {

const wxFont& SmallFont() {
  static const wxFont font(wxFontInfo(8).FaceName("DejaVu Sans"));
  return font;
}

/// The smallest rectangle of pixels near to the colour.
wxRect BoundsOf(const CPage& page, CPixel wanted) {
  const auto near = [](int a, int b) { return std::abs(a - b) < 60; };
  wxRect bounds;
  const CBitmapSurface surface(page.bitmap);
  for (int y = 0; y < surface.Pixels().height; ++y) {
    for (int x = 0; x < surface.Pixels().width; ++x) {
      const CPixel pixel = page.At(x, y);
      if (near(pixel.red, wanted.red) && near(pixel.green, wanted.green) && near(pixel.blue, wanted.blue) &&
          near(pixel.alpha, wanted.alpha))
        bounds.Union(wxRect(x, y, 1, 1));
    }
  }
  return bounds;
}

constexpr CPixel kGreyFace{200, 200, 200, 255};

}  // namespace

TEST(Label, IsWrittenFromTheTopLeftCornerOfItsFrame) {
  CPage page(100, 60);
  CGraphicLabel label;
  Place(label, {20, 10, 70, 40});
  label.SetLabel("Label");
  label.SetFont(SmallFont());
  label.SetColour(*wxRED);
  label.Paint(page.context);
  const wxRect ink = page.Ink().bounds;
  EXPECT_TRUE(wxRect(wxPoint(20, 10), page.dc.GetTextExtent("Label")).Contains(ink));
  EXPECT_LE(ink.x, 22);
  EXPECT_FALSE(BoundsOf(page, kRed).IsEmpty());
}

TEST(Label, LinesFollowOneAnother) {
  CPage page(100, 60);
  CGraphicLabel label;
  Place(label, {5, 5, 70, 40});
  label.SetFont(SmallFont());
  label.SetLabel("M");
  label.Paint(page.context);
  const wxRect single = page.Ink().bounds;
  CPage lines(100, 60);
  label.SetLabel("M\n\nM");
  label.Paint(lines.context);
  EXPECT_EQ(lines.Ink().bounds.height, single.height + 2 * page.dc.GetTextExtent("M").y);
  EXPECT_EQ(lines.Ink().bounds.width, single.width);
}

TEST(Label, WithoutAFontIsWrittenInTheNormalOne) {
  CPage page;
  CGraphicLabel label;
  Place(label, {5, 5, 50, 20});
  label.SetLabel("M");
  label.Paint(page.context);
  EXPECT_FALSE(BoundsOf(page, kBlack).IsEmpty());
}

TEST(Label, ItsContentIsItsText) {
  const CToolkitLock lock;
  CGraphicLabel label;
  EXPECT_TRUE(label.IsContentEmpty());
  label.SetLabel("text");
  EXPECT_FALSE(label.IsContentEmpty());
  label.ClearContent();
  EXPECT_TRUE(label.IsContentEmpty());
}

TEST(Label, KeepsTextFontAndColourInFilesAndClones) {
  const CToolkitLock lock;
  CGraphicLabel label;
  label.SetLabel(wxString::FromUTF8("Größe"));
  label.SetFont(wxFont(wxFontInfo(13).FaceName("DejaVu Serif").Bold()));
  label.SetColour(wxColour(1, 2, 3));
  const auto isSame = [](const CGraphicLabel& copy) {
    EXPECT_EQ(copy.GetLabel(), wxString::FromUTF8("Größe"));
    EXPECT_EQ(copy.GetFont().GetPointSize(), 13);
    EXPECT_EQ(copy.GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
    EXPECT_EQ(copy.GetColour(), wxColour(1, 2, 3));
  };
  isSame(*Reloaded(label));
  const auto clone = label.Clone();
  isSame(*orlo::cast<CGraphicLabel>(clone));
}

TEST(Label, LinesBelowThePictureCostNothing) {
  CPage page;
  CGraphicLabel label;
  label.SetLabel(wxString('\n', 5'000'000) + "end");
  label.Paint(page.context);
  EXPECT_EQ(page.Ink().count, 0);
}

class StateButton : public testing::Test {
protected:
  StateButton() : page_(120, 60) { Place(button_, {10, 10, 100, 40}); }

  void PaintWith(std::uint32_t flags, std::int32_t viewMode = 0) {
    button_.SetFlags(flags);
    page_.context.viewMode = viewMode;
    button_.Paint(page_.context);
  }

  CPixel Face() const { return page_.At(60, 14); }
  CPixel Edge() const { return page_.At(60, 10); }

  static constexpr std::uint32_t kBit2 = 1U << 2;
  static constexpr std::uint32_t kBit8 = 1U << 8;

  CPage page_;
  CGraphicStateButton button_;
};

TEST_F(StateButton, ANewOneShowsItsKindInBlackOnGrey) {
  EXPECT_EQ(button_.GetLabel(), "StateButton");
  EXPECT_EQ(button_.GetHint(), "");
  EXPECT_EQ(button_.GetCursorHint(), 6);
  PaintWith(1);
  EXPECT_EQ(Face(), kGreyFace);
  EXPECT_EQ(Edge(), kBlack);
  EXPECT_EQ(page_.Ink().bounds, wxRect(10, 10, 101, 41));
  const wxRect text = BoundsOf(page_, kBlack).Intersect(wxRect(15, 15, 90, 30));
  EXPECT_FALSE(text.IsEmpty());
}

TEST_F(StateButton, TheLabelStandsInTheMiddle) {
  button_.SetLabel("HHHH");
  button_.SetFlags(kBit2);
  PaintWith(kBit2);
  wxRect text;
  for (int y = 13; y < 48; ++y)
    for (int x = 15; x < 105; ++x)
      if (page_.At(x, y).green > 128) text.Union(wxRect(x, y, 1, 1));
  ASSERT_FALSE(text.IsEmpty());
  EXPECT_NEAR(text.x + text.width / 2.0, 60.5, 1.5);
  EXPECT_NEAR(text.y + text.height / 2.0, 30.5, 2.0);
}

TEST_F(StateButton, ColoursFollowTheStateBits) {
  PaintWith(kBit2);
  EXPECT_EQ(Face(), kRed);
  EXPECT_EQ(Edge(), kWhite);
  PaintWith(kBit8);
  EXPECT_EQ(Face(), (CPixel{0, 255, 0, 255}));
  EXPECT_EQ(Edge(), kWhite);
  PaintWith(kBit2 | kBit8);
  EXPECT_EQ(Face(), kBlue);
  EXPECT_EQ(Edge(), kWhite);
  PaintWith(0);
  EXPECT_EQ(Face(), kGreyFace);
  EXPECT_EQ(Edge(), kBlack);
}

TEST_F(StateButton, AnAuthorSeesItGreyWhateverItsState) {
  for (const std::int32_t viewMode : {1, 2}) {
    PaintWith(kBit2 | kBit8, viewMode);
    EXPECT_EQ(Face(), kGreyFace);
    EXPECT_EQ(Edge(), kBlack);
  }
  PaintWith(kBit2, 5);
  EXPECT_EQ(Face(), kRed);
}

TEST_F(StateButton, AnEmptyLabelDrawsOnlyTheFrame) {
  button_.SetLabel("");
  PaintWith(0);
  for (int y = 12; y < 49; ++y)
    for (int x = 16; x < 104; ++x) ASSERT_EQ(page_.At(x, y), kGreyFace);
}

TEST_F(StateButton, CornersAreRound) {
  PaintWith(0);
  EXPECT_EQ(page_.At(10, 10), kClear);
  EXPECT_EQ(page_.At(110, 50), kClear);
}

TEST_F(StateButton, KeepsLabelAndHintInFilesAndClones) {
  button_.SetLabel("Play");
  button_.SetHint("Plays the movie");
  const auto read = Reloaded(button_);
  EXPECT_EQ(read->GetLabel(), "Play");
  EXPECT_EQ(read->GetHint(), "Plays the movie");
  const auto clone = button_.Clone();
  EXPECT_EQ(orlo::cast<CGraphicStateButton>(clone)->GetLabel(), "Play");
  EXPECT_EQ(orlo::cast<CGraphicStateButton>(clone)->GetHint(), "Plays the movie");
}

}  // namespace graphics::test
