#include "graphics/paint/EffectDC.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "graphics/skin/ButtonSkin.h"
#include "graphics/skin/ShapeSkin.h"
#include "graphics/skin/Skin.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace graphics::skin {

namespace {

std::vector<std::string> NamesOf(const CSkin& skin) {
  std::vector<std::string> names;
  for (const auto& state : skin.GetStates()) names.push_back(state->GetName().utf8_string());
  return names;
}

TEST(Skin, OfAButtonHasSixStates) {
  const CButtonSkin skin("round");
  EXPECT_EQ(skin.GetSkinTypeName(), "buttonskin");
  EXPECT_EQ(skin.GetId(), "round");
  EXPECT_EQ(NamesOf(skin), (std::vector<std::string>{"hover", "hover_low", "down", "disabled", "normal", "selected"}));
}

TEST(Skin, OfAShapeHasOneState) {
  const CShapeSkin skin("oval");
  EXPECT_EQ(skin.GetSkinTypeName(), "shapeskin");
  EXPECT_EQ(skin.GetId(), "oval");
  EXPECT_EQ(NamesOf(skin), std::vector<std::string>{"normal"});
}

TEST(Skin, FindsItsStatesWithoutRegardToCase) {
  const CButtonSkin skin("");
  EXPECT_EQ(skin.FindState("NORMAL"), skin.GetStates()[4]);
  EXPECT_EQ(skin.FindState("hover_Low"), skin.GetStates()[1]);
  EXPECT_FALSE(skin.FindState("pressed"));
  EXPECT_FALSE(skin.FindState(""));
}

TEST(Skin, FindsTheFirstOfTwoStatesOfAName) {
  CShapeSkin skin("");
  const orlo::P<CState> first = skin.GetStates()[0];
  skin.AddState(orlo::makeObject<CState>("Normal"));
  EXPECT_EQ(skin.FindState("normal"), first);
}

TEST(Skin, IsMadeFromItsTypeWord) {
  const orlo::P<CSkin> button = CreateSkin("buttonskin");
  ASSERT_TRUE(button);
  EXPECT_EQ(button->GetSkinTypeName(), "buttonskin");
  EXPECT_EQ(button->GetId(), "");
  const orlo::P<CSkin> shape = CreateSkin("shapeskin");
  ASSERT_TRUE(shape);
  EXPECT_EQ(shape->GetSkinTypeName(), "shapeskin");
  EXPECT_EQ(shape->GetId(), "");
}

TEST(Skin, IsNotMadeFromAnyOtherWord) {
  for (const char* const word : {"", "ButtonSkin", "SHAPESKIN", "buttonskin ", "skin"}) EXPECT_FALSE(CreateSkin(word));
}

TEST(Skin, HasAnIdentityOfItsOwn) {
  std::set<std::int64_t> identities;
  std::int64_t largest = 0;
  for (int i = 0; i < 200; ++i) {
    const CShapeSkin skin("");
    EXPECT_GE(skin.GetUniqueId(), 0);
    EXPECT_LT(skin.GetUniqueId(), 9'999'999'999);
    largest = std::max(largest, skin.GetUniqueId());
    identities.insert(skin.GetUniqueId());
  }
  EXPECT_GT(identities.size(), 190U);
  // The whole range is drawn from, not what fits into 32 bits.
  EXPECT_GT(largest, std::int64_t{1} << 32);
}

/// A state that says how large it wants to be.
class CSizedState : public CState {
public:
  CSizedState(CDoubleSize size, CDoubleSize sizeForWidth) : CState("sized"), size_(size), sizeForWidth_(sizeForWidth) {}

  CDoubleSize GetPreferredSize(TEffectGraphicsContext& /*context*/, ITextSource* /*texts*/,
                               IAnimationSource* /*animations*/) const override {
    return size_;
  }
  CDoubleSize GetPreferredSizeForWidth(TEffectGraphicsContext& /*context*/, ITextSource* /*texts*/,
                                       IAnimationSource* /*animations*/, std::int32_t width) const override {
    return {sizeForWidth_.width + width, sizeForWidth_.height};
  }

private:
  CDoubleSize size_, sizeForWidth_;
};

class CBareSkin : public CSkin {
public:
  CBareSkin() : CSkin("") {}
  wxString GetSkinTypeName() const override { return "bare"; }
};

class SkinSize : public testing::Test {
private:
  CToolkitLock lock_;
  wxBitmap bitmap_ = MakeAlphaBitmap(10, 10);
  TEffectDC<wxGCDC, wxBitmap&> dc_{bitmap_};

protected:
  CDoubleSize Preferred(const CSkin& skin) { return skin.GetPreferredSize(*context_, nullptr, nullptr); }
  CDoubleSize PreferredForWidth(const CSkin& skin, int width) {
    return skin.GetPreferredSizeForWidth(*context_, nullptr, nullptr, width);
  }
  static orlo::P<CState> Sized(CDoubleSize size, CDoubleSize sizeForWidth = {}) {
    return orlo::makeObject<CSizedState>(size, sizeForWidth);
  }

  orlo::P<TEffectGraphicsContext> context_ = dc_.CreateEffectContext();
};

TEST_F(SkinSize, IsOnePixelWithoutLayersAndNoneForAWidth) {
  const CShapeSkin skin("");
  EXPECT_EQ(Preferred(skin), (CDoubleSize{1, 1}));
  EXPECT_EQ(PreferredForWidth(skin, 100), (CDoubleSize{0, 0}));
}

TEST_F(SkinSize, IsOnePixelWithoutStatesAndNoneForAWidth) {
  EXPECT_EQ(Preferred(CBareSkin()), (CDoubleSize{1, 1}));
  EXPECT_EQ(PreferredForWidth(CBareSkin(), 100), (CDoubleSize{0, 0}));
}

TEST_F(SkinSize, IsTheLargestOfTheStatesOnEachAxisAndOneMore) {
  CBareSkin skin;
  skin.AddState(Sized({30, 5}));
  skin.AddState(Sized({10, 20}));
  skin.AddState(Sized({29, 19}));
  EXPECT_EQ(Preferred(skin), (CDoubleSize{31, 21}));
}

TEST_F(SkinSize, ForAWidthIsTheLargestOfTheStatesAndNoMore) {
  CBareSkin skin;
  skin.AddState(Sized({}, {1, 7}));
  skin.AddState(Sized({}, {3, 2}));
  EXPECT_EQ(PreferredForWidth(skin, 50), (CDoubleSize{53, 7}));
}

TEST_F(SkinSize, TakesTheFirstStateAsItStands) {
  CBareSkin skin;
  skin.AddState(Sized({-5, -4}));
  EXPECT_EQ(Preferred(skin), (CDoubleSize{-4, -3}));
  skin.AddState(Sized({-6, -2}));
  EXPECT_EQ(Preferred(skin), (CDoubleSize{-4, -1}));
}

TEST_F(SkinSize, IsTheSameWithoutAWindow) {
  CBareSkin skin;
  skin.AddState(Sized({30, 5}, {3, 2}));
  wxWindow* const none = nullptr;
  EXPECT_EQ(skin.GetPreferredSize(none, nullptr, nullptr), Preferred(skin));
  EXPECT_EQ(skin.GetPreferredSizeForWidth(none, nullptr, nullptr, 50), PreferredForWidth(skin, 50));
}

}  // namespace

}  // namespace graphics::skin
