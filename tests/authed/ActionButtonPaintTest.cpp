#include "authed/data/GraphicActionButton.h"
#include "foundation/Error.h"
#include "graphics/animation/Animation.h"
#include "graphics/animation/GraphicAnimationImage.h"
#include "graphics/elements/GraphicImage.h"
#include "graphics/elements/GraphicMirror.h"
#include "graphics/skin/AnimationLayer.h"
#include "graphics/skin/ButtonSkin.h"
#include "graphics/skin/ShapeSkin.h"
#include "graphics/skin/TextLayer.h"
#include "tests/skin/Sources.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace authed::data {

namespace {

using namespace graphics;
using namespace graphics::test;
using skin::CCustomLayer;
using skin::Filled;

/// Remembers the contexts that it was painted with, and fills its frame in red.
class CProbe : public CTestElement {
public:
  void Paint(CPaintContext& context) override {
    contexts.push_back(context);
    if (repaint != 0) context.nextRepaint = repaint;
    CTestElement::Paint(context);
  }
  CDoubleRect BoxAt(std::size_t index) const {
    return contexts[index].matrix.MapRect(CDoubleRect::FromCenter(GetCenter(), GetSize()));
  }

  std::vector<CPaintContext> contexts;
  std::int32_t repaint = 0;
};

/// 25.4 page units are 300 pixels of the bitmap that a skin is drawn into.
constexpr double kInch = 25.4;

class ActionButtonPaint : public testing::Test {
protected:
  ActionButtonPaint() : page_(60, 40) {
    StartForTests();
    button_->SetElement(probe_);
    Place(*button_, {5, 5, kInch, kInch});
  }

  static orlo::P<CCustomLayer> AddLayer(skin::CSkin& skin, const char* state = "normal") {
    const auto layer = orlo::makeObject<CCustomLayer>();
    skin.FindState(state)->AddLayer(layer);
    return layer;
  }
  static void AddPicture(skin::CSkin& skin, const char* state, CPixel colour) {
    const auto picture = orlo::makeObject<skin::CAnimationLayer>();
    picture->SetAttachmentBitmap(Filled(64, 64, colour));
    skin.FindState(state)->AddLayer(picture);
  }
  static std::string ErrorOfPainting(CGraphicElement& element, CPaintContext& context) {
    try {
      element.Paint(context);
    } catch (const orlo::CException& error) {
      return orlo::toStdString(error.getMessage());
    }
    return "no error";
  }
  /// A surface that has failed takes nothing any more.
  bool StillTakesPaint() {
    const auto rectangle = MakeElement({0, 0, 60, 40});
    CPaintContext context(&page_.dc, 0);
    context.matrix = CMatrix::Identity();
    rectangle->Paint(context);
    return page_.At(59, 39) == kRed;
  }

  CPage page_;
  const orlo::P<skin::CButtonSkin> skin_ = orlo::makeObject<skin::CButtonSkin>("frame");
  const orlo::P<CGraphicActionButton> button_ = orlo::makeObject<CGraphicActionButton>(skin_);
  const orlo::P<CProbe> probe_ = orlo::makeObject<CProbe>();
};

TEST_F(ActionButtonPaint, ShowsTheElementWithinWhereItsSkinHasACustomLayer) {
  AddLayer(*skin_)->contentMargins.left = 150;
  button_->Paint(page_.context);
  ASSERT_EQ(probe_->contexts.size(), 1U);
  const CDoubleRect box = probe_->BoxAt(0);
  EXPECT_TRUE(box.IsNear({150, 0, 150, 300}, 1e-9)) << box.left << ' ' << box.width << ' ' << box.height;
  EXPECT_EQ(page_.At(10, 20), kClear);
  EXPECT_EQ(page_.At(25, 20), kRed);
}

TEST_F(ActionButtonPaint, ShowsNoElementWithoutACustomLayer) {
  button_->GetAction()->SetType(EActionType::play);
  AddPicture(*skin_, "normal", kBlue);
  AddLayer(*skin_, "hover");
  button_->Paint(page_.context);
  EXPECT_TRUE(probe_->contexts.empty());
  EXPECT_EQ(page_.At(20, 20), kBlue);
}

TEST_F(ActionButtonPaint, ShowsNothingInACustomLayerWithoutAnElement) {
  AddLayer(*skin_);
  button_->SetElement(nullptr);
  button_->Paint(page_.context);
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(ActionButtonPaint, IsPlainWithoutAState) {
  button_->SetFixedState("nonsense");
  button_->Paint(page_.context);
  EXPECT_EQ(page_.At(20, 10), (CPixel{200, 200, 200, 255}));
  EXPECT_TRUE(probe_->contexts.empty());
}

TEST_F(ActionButtonPaint, ShowsItsFixedState) {
  AddPicture(*skin_, "normal", kBlue);
  AddPicture(*skin_, "selected", kRed);
  button_->SetFixedState("selected");
  button_->Paint(page_.context);
  EXPECT_EQ(page_.At(20, 20), kRed);
}

TEST_F(ActionButtonPaint, FeedsItsSkinWithItsLabelAndItsBitmap) {
  AddPicture(*skin_, "hover", kClear);
  const auto text = orlo::makeObject<skin::CTextLayer>();
  text->color = *wxBLACK;
  skin_->FindState("normal")->AddLayer(orlo::makeObject<skin::CAnimationLayer>());
  skin_->FindState("normal")->AddLayer(text);
  button_->SetAttachmentBitmap(Filled(3, 2, kBlue));
  button_->SetLabel("");
  button_->Paint(page_.context);
  EXPECT_EQ(page_.At(20, 20), kBlue);
  CPage labelled(60, 40);
  button_->SetLabel("IIIIII");
  button_->Paint(labelled.context);
  int differences = 0;
  for (int y = 5; y < 30; ++y)
    for (int x = 5; x < 30; ++x) differences += labelled.At(x, y) != page_.At(x, y);
  EXPECT_GT(differences, 10);
}

TEST_F(ActionButtonPaint, MovesWhereverTheElementWithinStandsIntoTheBox) {
  AddLayer(*skin_);
  Place(*probe_, {-1000, 333, 10, 500});
  button_->Paint(page_.context);
  ASSERT_EQ(probe_->contexts.size(), 1U);
  EXPECT_TRUE(probe_->BoxAt(0).IsNear({0, 0, 300, 300}, 1e-6));
  EXPECT_EQ(page_.At(6, 6), kRed);
  EXPECT_EQ(page_.At(28, 28), kRed);
}

TEST_F(ActionButtonPaint, IsUprightWhateverItsRotation) {
  AddLayer(*skin_)->contentMargins.left = 150;
  button_->SetRotation(90);
  button_->SetMirror(0, true);
  button_->Paint(page_.context);
  EXPECT_EQ(page_.At(10, 20), kClear);
  EXPECT_EQ(page_.At(25, 20), kRed);
}

TEST_F(ActionButtonPaint, GivesTheElementWithinACloneOfItsContext) {
  const auto layer = AddLayer(*skin_);
  page_.context.viewMode = 5;
  page_.context.highQuality = true;
  page_.context.clip = {1, 2, 3, 4};
  page_.context.outputScale = 3;
  page_.context.cacheKey = 77;
  page_.context.nextRepaint = 50;
  button_->Paint(page_.context);
  ASSERT_EQ(probe_->contexts.size(), 1U);
  const CPaintContext& clone = probe_->contexts[0];
  EXPECT_NE(clone.dc, page_.context.dc);
  EXPECT_EQ(clone.viewMode, 5);
  EXPECT_TRUE(clone.highQuality);
  EXPECT_EQ(clone.clip, (CDoubleRect{1, 2, 3, 4}));
  EXPECT_EQ(clone.outputScale, 3);
  EXPECT_EQ(clone.nextRepaint, 50);
  EXPECT_FALSE(clone.effectContext);
  EXPECT_NE(clone.cacheKey, 77);

  const auto other = orlo::makeObject<CGraphicActionButton>(skin_);
  other->Assign(*button_);
  other->Paint(page_.context);
  button_->Paint(page_.context);
  ASSERT_EQ(probe_->contexts.size(), 3U);
  EXPECT_NE(probe_->contexts[1].cacheKey, probe_->contexts[0].cacheKey);
  EXPECT_EQ(probe_->contexts[2].cacheKey, probe_->contexts[0].cacheKey);
  EXPECT_EQ(page_.context.matrix, CMatrix::Identity());
}

TEST_F(ActionButtonPaint, HandsOnWhenTheElementWithinWantsToBePaintedAgain) {
  const auto layer = AddLayer(*skin_);
  probe_->repaint = 40;
  button_->Paint(page_.context);
  EXPECT_EQ(page_.context.nextRepaint, 40);

  CSmoothEffectDC dc(page_.dc);
  const auto target = dc.CreateEffectContext();
  page_.context.nextRepaint = 90;
  probe_->repaint = 0;
  button_->PaintCustom(*layer, page_.context, *target, {0, 0, 10, 10}, nullptr, nullptr);
  EXPECT_EQ(page_.context.nextRepaint, 90);
  probe_->repaint = 30;
  button_->PaintCustom(*layer, page_.context, *target, {0, 0, 10, 10}, nullptr, nullptr);
  EXPECT_EQ(page_.context.nextRepaint, 30);
}

TEST_F(ActionButtonPaint, DrawsOnTheTargetOfItsLayer) {
  const auto layer = orlo::makeObject<CCustomLayer>();
  layer->contentMargins.top = 4;
  CSmoothEffectDC dc(page_.dc);
  const auto target = dc.CreateEffectContext();
  page_.context.matrix = CMatrix::Scale(100, 100);
  page_.context.effectContext = target.get();
  button_->PaintCustom(*layer, page_.context, *target, {20, 10, 30, 20}, nullptr, nullptr);
  dc.Flush();
  EXPECT_EQ(page_.Ink().bounds, wxRect(20, 14, 30, 16));
  ASSERT_EQ(probe_->contexts.size(), 1U);
  EXPECT_EQ(probe_->contexts[0].dc, target->dc);
  EXPECT_FALSE(probe_->contexts[0].effectContext);
}

TEST_F(ActionButtonPaint, IsCutToTheShapeOfItsLayer) {
  const auto shape = orlo::makeObject<skin::CShapeSkin>("right half");
  const auto half = orlo::makeObject<skin::CAnimationLayer>();
  half->SetAttachmentBitmap(Filled(2, 2, kBlack));
  half->contentMargins.leftFactor = 0.5;
  shape->FindState("normal")->AddLayer(half);
  AddLayer(*skin_)->SetShape(shape);
  probe_->repaint = 25;
  button_->Paint(page_.context);
  EXPECT_EQ(page_.At(10, 20), kClear);
  EXPECT_EQ(page_.At(25, 20), kRed);
  EXPECT_EQ(page_.context.nextRepaint, 25);
}

TEST_F(ActionButtonPaint, ShowsALargeButtonAsItShowsASmallOne) {
  const auto layer = AddLayer(*skin_);
  layer->contentMargins.leftFactor = 0.5;
  const auto image = orlo::makeObject<CGraphicImage>();
  image->SetBitmap(Filled(4, 4, kBlue));
  // Larger than what a skin is drawn into by itself.
  for (const auto& element : {orlo::P<CGraphicElement>(probe_), orlo::P<CGraphicElement>(image)}) {
    CPage page(60, 40);
    page.context.matrix = CMatrix::Scale(0.1, 0.1);
    button_->SetElement(element);
    Place(*button_, {100, 50, 400, 300});
    button_->Paint(page.context);
    const CPixel colour = element == probe_ ? kRed : kBlue;
    EXPECT_EQ(page.At(15, 20), kClear);
    EXPECT_EQ(page.At(32, 7), colour);
    EXPECT_EQ(page.At(48, 33), colour);
    EXPECT_EQ(page.At(52, 20), kClear);
  }
}

TEST_F(ActionButtonPaint, EndsAtItsFrameWhateverReachesOutOfIt) {
  AddLayer(*skin_)->contentMargins.leftFactor = -0.5;
  for (const double scale : {1.0, 0.1}) {
    CPage page(60, 40);
    page.context.matrix = CMatrix::Scale(scale, scale);
    Place(*button_, {20 / scale, 10 / scale, 20 / scale, 20 / scale});
    button_->Paint(page.context);
    EXPECT_TRUE(wxRect(20, 10, 21, 21).Contains(page.Ink().bounds)) << scale;
    EXPECT_EQ(page.At(22, 20), kRed) << scale;
  }
}

TEST_F(ActionButtonPaint, KeepsTheOrderOfItsLayersInOutputMode1) {
  AddPicture(*skin_, "normal", kBlue);
  AddLayer(*skin_)->contentMargins.left = 10;
  page_.context.outputMode = 1;
  button_->Paint(page_.context);
  EXPECT_EQ(page_.At(10, 20), kBlue);
  EXPECT_EQ(page_.At(25, 20), kRed);
}

TEST_F(ActionButtonPaint, ShowsAnAuthorTheHighlightOfAMarkedButton) {
  AddPicture(*skin_, "normal", kBlue);
  AddLayer(*skin_, "hover")->contentMargins.left = 150;
  const auto isHighlighted = [&](int viewMode) {
    CPage page(60, 40);
    page.context.viewMode = viewMode;
    button_->Paint(page.context);
    EXPECT_EQ(page.At(10, 20), kBlue);
    return page.At(25, 27) != kBlue;
  };
  for (const int viewMode : {0, 1, 2, 5, 6}) EXPECT_FALSE(isHighlighted(viewMode)) << viewMode;
  button_->SetFlag1(true);
  for (const int viewMode : {1, 2}) EXPECT_TRUE(isHighlighted(viewMode)) << viewMode;
  for (const int viewMode : {0, 5, 6}) EXPECT_FALSE(isHighlighted(viewMode)) << viewMode;
  EXPECT_EQ(probe_->contexts.size(), 2U);
  button_->SetFixedState("normal");
  EXPECT_TRUE(isHighlighted(1));

  const auto shape = orlo::makeObject<skin::CShapeSkin>("");
  AddPicture(*shape, "normal", kBlue);
  button_->SetSkin(shape);
  EXPECT_FALSE(isHighlighted(1));
}

TEST_F(ActionButtonPaint, HighlightsNoPlainButton) {
  AddPicture(*skin_, "hover", kRed);
  button_->SetFlag1(true);
  button_->SetFixedState("nonsense");
  page_.context.viewMode = 1;
  button_->Paint(page_.context);
  EXPECT_EQ(page_.At(20, 10), (CPixel{200, 200, 200, 255}));
}

TEST_F(ActionButtonPaint, PlaysTheAnimationWithin) {
  AddLayer(*skin_);
  const auto image = orlo::makeObject<animation::CGraphicAnimationImage>();
  const auto animation = orlo::makeObject<animation::CAnimation>(60'000);
  for (const CPixel colour : {kBlue, kRed}) animation->Append(Filled(3, 3, colour));
  image->SetAnimation(orlo::P<animation::IAnimation>(animation));
  button_->SetElement(image);
  button_->StartAnimation();
  button_->Paint(page_.context);
  EXPECT_EQ(page_.At(20, 20), kBlue);
  EXPECT_GT(page_.context.nextRepaint, 0);
  animation->Next();
  button_->Paint(page_.context);
  EXPECT_EQ(page_.At(20, 20), kRed);
}

TEST_F(ActionButtonPaint, PaintsNothingWithinWithoutAnExtent) {
  const auto layer = AddLayer(*skin_);
  // The skin wants a size even if the button has none.
  layer->contentMargins.left = 20;
  AddPicture(*skin_, "normal", kBlue);
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  CSmoothEffectDC dc(page_.dc);
  const auto target = dc.CreateEffectContext();
  for (const double size : {0.0, infinity, -infinity, nan}) {
    probe_->SetSize({size, 10});
    button_->PaintCustom(*layer, page_.context, *target, {20, 10, 30, 20}, nullptr, nullptr);
    probe_->SetSize({10, size});
    button_->PaintCustom(*layer, page_.context, *target, {20, 10, 30, 20}, nullptr, nullptr);
  }
  probe_->SetSize({10, 10});
  for (const CDoubleRect& rect : {CDoubleRect{0, 0, 20, 20}, CDoubleRect{0, 0, 30, 0}, CDoubleRect{0, 0, 30, -5},
                                  CDoubleRect{0, 0, nan, 30}, CDoubleRect{nan, 0, 30, 30}})
    button_->PaintCustom(*layer, page_.context, *target, rect, nullptr, nullptr);
  EXPECT_TRUE(probe_->contexts.empty());
}

TEST_F(ActionButtonPaint, BearsEverySizeAndPlace) {
  AddLayer(*skin_);
  const auto image = orlo::makeObject<CGraphicImage>();
  image->SetBitmap(Filled(64, 64, kBlue));
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const auto& element : {orlo::P<CGraphicElement>(probe_), orlo::P<CGraphicElement>(image)}) {
    button_->SetElement(element);
    for (const double value : {0.0, 1e-300, 1e-9, -20.0, 1e5, 1e9, 1e300, infinity, -infinity, nan}) {
      Place(*button_, {5, 5, value, value});
      button_->Paint(page_.context);
      Place(*button_, {value, value, 20, 20});
      button_->Paint(page_.context);
      Place(*button_, {5, 5, 20, 20});
      element->SetSize({value, value});
      button_->Paint(page_.context);
      element->SetCenter({value, value});
      button_->Paint(page_.context);
      CPaintContext context = page_.context;
      context.matrix = CMatrix::Scale(value, value);
      button_->Paint(context);
    }
  }
  EXPECT_TRUE(StillTakesPaint());
}

TEST_F(ActionButtonPaint, ShowsButtonsWithinButtons) {
  AddLayer(*skin_)->contentMargins.leftFactor = 0.5;
  const auto outer = orlo::makeObject<CGraphicActionButton>(skin_);
  outer->SetElement(button_);
  Place(*outer, {4, 4, 40, 30});
  outer->Paint(page_.context);
  EXPECT_EQ(page_.At(20, 20), kClear);
  EXPECT_EQ(page_.At(32, 20), kClear);
  EXPECT_EQ(page_.At(36, 20), kRed);
  EXPECT_EQ(page_.At(42, 32), kRed);
}

/// Its document shows the element.
orlo::P<CGraphicMirror> MirrorOf(const orlo::P<CGraphicElement>& element) {
  const auto mirror = orlo::makeObject<CGraphicMirror>();
  const auto document = orlo::makeObject<CGraphicDocument>();
  document->Add(element);
  mirror->SetDocument(document);
  return mirror;
}

TEST_F(ActionButtonPaint, ShowsAMirrorWithin) {
  AddLayer(*skin_);
  Place(*probe_, {5, 5, kInch, kInch / 2});
  button_->SetElement(MirrorOf(probe_));
  Place(*button_, {5, 5 + kInch / 2, kInch, kInch / 2});
  button_->Paint(page_.context);
  EXPECT_GT(page_.At(15, 20).alpha, 60);
  EXPECT_LT(page_.At(15, 28).alpha, 40);
}

TEST_F(ActionButtonPaint, IsBoundedInItsDepthWhateverLiesBetween) {
  AddLayer(*skin_);
  const auto nested = [&](int depth) {
    orlo::P<CGraphicActionButton> button = button_;
    for (int level = 1; level < depth; ++level) {
      const auto outer = orlo::makeObject<CGraphicActionButton>(skin_);
      Place(*button, {5, 5, 20, 10});
      outer->SetElement(MirrorOf(button));
      Place(*outer, {5, 5, 20, 10});
      outer->GetElement()->SetCenter({15, 20});
      button = outer;
    }
    return button;
  };
  EXPECT_EQ(ErrorOfPainting(*nested(kMaxActionButtonDepth), page_.context), "no error");
  EXPECT_EQ(ErrorOfPainting(*nested(kMaxActionButtonDepth + 1), page_.context),
            "Action buttons may lie within action buttons at most 4 deep");
  EXPECT_EQ(ErrorOfPainting(*nested(kMaxActionButtonDepth), page_.context), "no error");
}

TEST_F(ActionButtonPaint, IsBoundedInWhatItPaintsWithin) {
  for (int layer = 0; layer < 31; ++layer) AddLayer(*skin_);
  const auto outer = orlo::makeObject<CGraphicActionButton>(skin_);
  outer->SetElement(button_);
  Place(*outer, {5, 5, 1, 1});
  EXPECT_EQ(ErrorOfPainting(*outer, page_.context), "no error");
  EXPECT_EQ(probe_->contexts.size(), 31U * 31U);
  AddLayer(*skin_);
  EXPECT_EQ(ErrorOfPainting(*outer, page_.context),
            "What lies within an action button may be painted at most 1000 times");
  const auto other = orlo::makeObject<skin::CButtonSkin>("");
  AddLayer(*other);
  button_->SetSkin(other);
  EXPECT_EQ(ErrorOfPainting(*outer, page_.context), "no error");
}

}  // namespace

}  // namespace authed::data
