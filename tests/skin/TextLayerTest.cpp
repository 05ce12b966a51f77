#include "graphics/skin/TextLayer.h"
#include "tests/skin/Sources.h"

#include <gtest/gtest.h>

namespace graphics::skin {

namespace {

class TextLayer : public testing::Test {
protected:
  TextLayer() { layer_->font = wxFont(wxFontInfo(10).FaceName("DejaVu Sans")); }

  void Paint(CDoubleRect rect, const wxString& text) {
    const auto texts = orlo::makeObject<CTexts>(text);
    layer_->Paint(page_.context, *page_.target, rect, texts.get(), nullptr, nullptr);
  }
  wxRect Ink() const { return page_.Ink().bounds; }
  wxSize SizeOf(const wxString& text) const { return TEffectGraphicsContext::MeasureLine(text, layer_->font); }
  bool Shows(CPixel colour) const {
    for (int y = 0; y < page_.bitmap.GetHeight(); ++y)
      for (int x = 0; x < page_.bitmap.GetWidth(); ++x)
        if (page_.At(x, y) == colour) return true;
    return false;
  }

  CLayerPage page_{200, 120};
  const orlo::P<CTextLayer> layer_ = orlo::makeObject<CTextLayer>();
};

TEST_F(TextLayer, IsTextOnOneLineInTheNormalFont) {
  const auto layer = orlo::makeObject<CTextLayer>();
  EXPECT_EQ(layer->GetLayerTypeName(), "text");
  EXPECT_EQ(layer->GetKindMask(), 2U);
  EXPECT_TRUE(layer->IsDeviceScaled());
  EXPECT_EQ(layer->font.GetNativeFontInfoDesc(), wxNORMAL_FONT->GetNativeFontInfoDesc());
  EXPECT_FALSE(layer->color.IsOk());
  EXPECT_FALSE(layer->haloEnabled);
  EXPECT_FALSE(layer->multilineEnabled);
}

TEST_F(TextLayer, DrawsTheTextThatTheSourceHasUnderItsKey) {
  const auto texts = orlo::makeObject<CTexts>("Hg");
  layer_->prop = "title";
  layer_->Paint(page_.context, *page_.target, {10, 10, 100, 50}, texts.get(), nullptr, nullptr);
  EXPECT_EQ(texts->keys, std::vector<wxString>{"title"});
  EXPECT_TRUE(wxRect(wxPoint(10, 10), SizeOf("Hg")).Contains(Ink()));
  EXPECT_TRUE(Shows(kBlack));
}

TEST_F(TextLayer, DrawsNothingWithoutASource) {
  layer_->Paint(page_.context, *page_.target, {10, 10, 100, 50}, nullptr, nullptr, nullptr);
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(TextLayer, LiesWhereItIsAlignedInItsBox) {
  layer_->contentMargins = {10, 20, 30, 40};
  layer_->horzAlign = 1.0;
  layer_->vertAlign = 1.0;
  Paint({0, 0, 200, 120}, "Hg");
  EXPECT_TRUE(wxRect(wxPoint(170, 80) - SizeOf("Hg"), SizeOf("Hg")).Contains(Ink())) << Ink().x;
  EXPECT_GT(Ink().GetRight(), 165);
}

TEST_F(TextLayer, IsOpaqueWhateverTheAlphaOfItsColour) {
  layer_->color = wxColour(255, 0, 0, 0);
  layer_->font.SetPointSize(40);
  Paint({0, 0, 200, 120}, "I");
  EXPECT_TRUE(Shows(kRed));
}

TEST_F(TextLayer, IsGreyAsItsAlphaInAnAlphaMask) {
  page_.target->alphaMask = true;
  layer_->color = wxColour(255, 0, 0, 100);
  layer_->font.SetPointSize(40);
  Paint({0, 0, 200, 120}, "I");
  EXPECT_TRUE(Shows({100, 100, 100, 255}));
  EXPECT_FALSE(Shows(kRed));
}

TEST_F(TextLayer, IsCutOffAtItsBox) {
  Paint({10, 10, 15, 8}, "HHHHHHHHHH");
  EXPECT_TRUE(wxRect(10, 10, 15, 8).Contains(Ink()));
  EXPECT_GT(page_.Ink().count, 0);
}

TEST_F(TextLayer, ShowsNothingInABoxWithoutExtent) {
  layer_->contentMargins.right = 50;
  Paint({60, 10, 40, 40}, "HHHHHHHHHH");
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(TextLayer, LeavesTheClipOfOthersAlone) {
  page_.target->PushState();
  page_.target->Clip(0, 0, 30, 120);
  Paint({10, 10, 100, 50}, "HHHHHHHHHH");
  page_.target->DrawBitmap(Filled(10, 10, kRed), 100, 50, 10, 10);
  page_.target->PopState();
  EXPECT_LE(Ink().GetRight(), 29);
}

TEST_F(TextLayer, HasAHaloOnAllSides) {
  layer_->color = *wxBLACK;
  layer_->haloColor = *wxRED;
  Paint({10, 10, 100, 50}, "I");
  const wxRect bare = Ink();
  CLayerPage page(200, 120);
  layer_->haloEnabled = true;
  const auto texts = orlo::makeObject<CTexts>("I");
  layer_->Paint(page.context, *page.target, {10, 10, 100, 50}, texts.get(), nullptr, nullptr);
  EXPECT_EQ(page.Ink().bounds, wxRect(bare).Inflate(1));
}

TEST_F(TextLayer, HasAShadowToTheRightOrBelow) {
  layer_->shadowColor = *wxRED;
  for (const CDoublePoint place : {CDoublePoint{-1, 1}, CDoublePoint{2, 0}, CDoublePoint{3, -2}}) {
    CLayerPage page(200, 120);
    const auto texts = orlo::makeObject<CTexts>("I");
    layer_->shadowRelPosition = {0, 0};
    layer_->Paint(page.context, *page.target, {10, 10, 100, 50}, texts.get(), nullptr, nullptr);
    const wxRect bare = page.Ink().bounds;
    layer_->shadowRelPosition = place;
    layer_->Paint(page.context, *page.target, {10, 10, 100, 50}, texts.get(), nullptr, nullptr);
    wxRect shadow = bare;
    shadow.Offset(place.ToPoint());
    EXPECT_EQ(page.Ink().bounds, wxRect(bare).Union(shadow));
  }
}

TEST_F(TextLayer, HasNoShadowToTheLeftAndAbove) {
  layer_->shadowColor = *wxRED;
  for (const CDoublePoint place : {CDoublePoint{-1, -1}, CDoublePoint{0, 0}, CDoublePoint{-3, 0}}) {
    layer_->shadowRelPosition = place;
    Paint({10, 10, 100, 50}, "I");
  }
  EXPECT_FALSE(Shows(kRed));
}

TEST_F(TextLayer, StandsOnOneLineWithoutLineFeeds) {
  Paint({10, 10, 150, 100}, "H\nH");
  EXPECT_LT(Ink().height, SizeOf("H").y);
  EXPECT_EQ(layer_->GetPreferredSize(*page_.target, orlo::makeObject<CTexts>("H\nH").get(), nullptr).height,
            SizeOf("H").y);
}

TEST_F(TextLayer, IsBrokenAtTheWidthOfItsBox) {
  layer_->multilineEnabled = true;
  const int width = SizeOf("three words ").x + 1;
  Paint({10, 10, static_cast<double>(width), 100}, "three words here");
  EXPECT_LE(Ink().width, width);
  EXPECT_GT(Ink().height, SizeOf("three").y);
}

TEST_F(TextLayer, GivesNoRoomToEmptyLines) {
  layer_->multilineEnabled = true;
  // A word that is too wide is put on a line of its own, behind an empty one.
  Paint({10, 10, 5, 100}, "III");
  EXPECT_LT(Ink().GetBottom(), 10 + SizeOf("III").y);
  EXPECT_GT(page_.Ink().count, 0);
}

TEST_F(TextLayer, IsMeasuredAsItIsDrawn) {
  layer_->multilineEnabled = true;
  const wxString text = "The quick brown fox jumps over the lazy dog";
  const auto texts = orlo::makeObject<CTexts>(text);
  const CDoubleSize size = layer_->GetPreferredSizeForWidth(*page_.target, texts.get(), nullptr, 120);
  layer_->horzAlign = layer_->vertAlign = 1.0;
  Paint({0, 0, 120, 110}, text);
  EXPECT_LE(size.width, 120);
  EXPECT_GE(Ink().x, 120 - size.width - 1);
  EXPECT_GE(Ink().y, 110 - size.height);
  EXPECT_GT(Ink().GetBottom(), 110 - SizeOf("g").y);
}

TEST_F(TextLayer, WantsTheTextUnderTheEmptyKeyAndItsMargins) {
  const auto texts = orlo::makeObject<CTexts>("Play");
  layer_->prop = "title";
  layer_->contentMargins = {1, 2.25, 3.5, 4};
  const wxSize text = SizeOf("Play");
  EXPECT_EQ(layer_->GetPreferredSize(*page_.target, texts.get(), nullptr), (CDoubleSize{text.x + 6.0, text.y + 5.0}));
  EXPECT_EQ(texts->keys, std::vector<wxString>{""});
  EXPECT_EQ(layer_->GetPreferredSize(*page_.target, nullptr, nullptr), (CDoubleSize{6, 5}));
}

TEST_F(TextLayer, WantsForAWidthTheTextUnderItsKey) {
  const auto texts = orlo::makeObject<CTexts>("Play film");
  layer_->prop = "title";
  const wxSize line = SizeOf("Play film");
  const auto wanted = [&](int width) {
    return layer_->GetPreferredSizeForWidth(*page_.target, texts.get(), nullptr, width);
  };
  EXPECT_EQ(wanted(10), (CDoubleSize{static_cast<double>(line.x), static_cast<double>(line.y)}));
  EXPECT_EQ(texts->keys, std::vector<wxString>{"title"});
  layer_->multilineEnabled = true;
  EXPECT_EQ(wanted(1000).height, line.y);
  EXPECT_EQ(wanted(line.x - 1).height, 2 * line.y);
  EXPECT_LT(wanted(line.x - 1).width, line.x);
}

TEST_F(TextLayer, SurvivesLettersOfAnySize) {
  layer_->font = wxFont(wxFontInfo(2000).FaceName("DejaVu Sans"));
  const wxGraphicsMatrix upright = page_.target->GetTransform();
  for (const double scale : {0.01, 10.0, 1000.0}) {
    page_.target->SetTransform(page_.target->CreateMatrix(scale, 0, 0, scale, 0, 0));
    Paint({0, 0, 1e9, 1e9}, "H");
    Paint({-1e300, -1e300, 1e300, 1e300}, "H");
  }
  page_.target->SetTransform(upright);
  layer_->font = wxFont(wxFontInfo(10).FaceName("DejaVu Sans"));
  layer_->color = *wxRED;
  Paint({0, 0, 200, 120}, wxString('H', 100'000));
  EXPECT_TRUE(Shows(kRed));
}

}  // namespace

}  // namespace graphics::skin
