#include "foundation/Cast.h"
#include "graphics/animation/Animation.h"
#include "graphics/animation/AnimationTypes.h"
#include "graphics/animation/GraphicAnimationImage.h"
#include "graphics/animation/GraphicElementAnimationFactory.h"
#include "tests/animation/Pictures.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>

namespace graphics::animation::test {

namespace {

using graphics::test::CPage;
using graphics::test::Place;

/// With a clock that stands where the test puts it.
class CClockedImage : public CGraphicAnimationImage {
public:
  std::uint32_t now = 1000;
  int stills = 0;

  void PaintStill(TEffectGraphicsContext& context, const CDoubleRect& rect) override {
    ++stills;
    CGraphicAnimationImage::PaintStill(context, rect);
  }

protected:
  std::uint32_t GetTickCount() const override { return now; }
};

class AnimationImage : public testing::Test {
protected:
  AnimationImage() : animation_(orlo::makeObject<CAnimation>(100)) {
    for (int frame = 0; frame < 3; ++frame) animation_->Append(Picture(20, 10, Numbered(frame)));
    Place(image_, {10, 10, 20, 10});
    image_.SetAnimation(orlo::P<IAnimation>(animation_));
  }

  /// Paints at that time; the delay that it asks for.
  std::int32_t PaintAt(std::uint32_t now) {
    image_.now = now;
    page_.context.nextRepaint = 0;
    image_.Paint(page_.context);
    return page_.context.nextRepaint;
  }
  CPixel Shown() const { return page_.At(20, 15); }

  CPage page_;
  CClockedImage image_;
  orlo::P<CAnimation> animation_;
};

}  // namespace

TEST_F(AnimationImage, IsAnAnimationThatIsNamedInFiles) {
  EXPECT_EQ(image_.GetType(), GraphicType::kAnimation);
  EXPECT_EQ(image_.GetTypeName(), "animation-image");
  EXPECT_TRUE(image_.HasFlag(4));
  EXPECT_TRUE(image_.HasFlag(5));
  EXPECT_TRUE(image_.HasFlag(0));
}

TEST_F(AnimationImage, ComesFromItsFactoryByAnyCaseOfItsName) {
  CGraphicElementAnimationFactory factory;
  EXPECT_TRUE(orlo::tryCast<CGraphicAnimationImage>(factory.CreateElement("animation-image")));
  EXPECT_TRUE(orlo::tryCast<CGraphicAnimationImage>(factory.CreateElement("Animation-IMAGE")));
  EXPECT_FALSE(factory.CreateElement("animation"));
  EXPECT_FALSE(factory.CreateElement("animation-image "));
  EXPECT_FALSE(factory.CreateElement(""));
}

TEST_F(AnimationImage, IsActiveByBitTwo) {
  EXPECT_FALSE(image_.IsElementActive());
  image_.SetFlags(image_.GetFlags() | 4);
  EXPECT_TRUE(image_.IsElementActive());
}

TEST_F(AnimationImage, WithoutAnAnimationPaintsAndPlaysNothing) {
  image_.SetAnimation(nullptr);
  EXPECT_FALSE(image_.HasAnimation());
  EXPECT_TRUE(image_.IsContentEmpty());
  image_.StartAnimation();
  EXPECT_FALSE(image_.IsAnimationPlaying());
  EXPECT_EQ(PaintAt(1000), 0);
  EXPECT_EQ(page_.Ink().count, 0);
  EXPECT_EQ(image_.stills, 1);
  image_.StopAnimation();
  image_.ClearContent();
  EXPECT_FALSE(image_.HasAnimation());
}

TEST_F(AnimationImage, FillsItsFrameOnThePage) {
  page_.context.matrix = CMatrix::Scale(1, 2);
  PaintAt(1000);
  EXPECT_EQ(page_.Ink().bounds, wxRect(10, 20, 20, 20));
  EXPECT_EQ(Shown(), kClear);
  EXPECT_EQ(page_.At(20, 25), Numbered(0));
}

TEST_F(AnimationImage, IsTurnedAboutItsCentre) {
  image_.SetRotation(90);
  PaintAt(1000);
  EXPECT_EQ(page_.Ink().bounds, wxRect(15, 5, 10, 20));
}

TEST_F(AnimationImage, IsMirroredInItsFrame) {
  wxBitmap halves = Picture(20, 10, kRed);
  for (int y = 0; y < 10; ++y)
    for (int x = 0; x < 10; ++x) graphics::test::SetPixelOf(halves, x, y, kBlue);
  const auto animation = orlo::makeObject<CAnimation>(100);
  animation->Append(halves);
  image_.SetAnimation(orlo::P<IAnimation>(animation));
  PaintAt(1000);
  EXPECT_EQ(page_.At(12, 15), kBlue);
  image_.SetMirror(0, true);
  PaintAt(1000);
  EXPECT_EQ(page_.At(12, 15), kRed);
  EXPECT_EQ(page_.At(27, 15), kBlue);
}

TEST_F(AnimationImage, LeavesTheContextsOwnGraphicsAsTheyWere) {
  CSmoothEffectDC smooth(page_.dc);
  const auto shared = smooth.CreateEffectContext();
  shared->SetTransform(shared->CreateMatrix(1, 0, 0, 1, 0, 5));
  const wxGraphicsMatrix before = shared->GetTransform();
  page_.context.effectContext = shared.get();
  image_.SetRotation(90);
  PaintAt(1000);
  smooth.Flush();
  // It draws through the transform that stands there.
  EXPECT_EQ(page_.Ink().bounds, wxRect(15, 10, 10, 20));
  EXPECT_TRUE(shared->GetTransform().IsEqual(before));
}

TEST_F(AnimationImage, ThatIsNotPlayedShowsWhatSomebodyElseSteps) {
  animation_->Start();
  EXPECT_EQ(PaintAt(1000), 0);
  EXPECT_EQ(Shown(), Numbered(0));
  animation_->Next();
  PaintAt(99999);
  EXPECT_EQ(Shown(), Numbered(1));
  EXPECT_EQ(image_.stills, 2);
}

TEST_F(AnimationImage, TakesOneDelayAsPassedWhenItStarts) {
  image_.StartAnimation();
  EXPECT_TRUE(image_.IsAnimationPlaying());
  EXPECT_TRUE(animation_->IsStarted());
  // The time that has passed equals the delay, so that the frame stays and there is no time left.
  EXPECT_EQ(PaintAt(1000), 10);
  EXPECT_EQ(Shown(), Numbered(0));
  EXPECT_EQ(PaintAt(1010), 90);
  EXPECT_EQ(PaintAt(1100), 10);
  EXPECT_EQ(Shown(), Numbered(0));
  EXPECT_EQ(PaintAt(1101), 99);
  EXPECT_EQ(Shown(), Numbered(1));
  EXPECT_EQ(image_.stills, 0);
}

TEST_F(AnimationImage, StepsOneFrameHoweverMuchTimeHasPassed) {
  image_.StartAnimation();
  PaintAt(1000);
  EXPECT_EQ(PaintAt(1950), 50);
  EXPECT_EQ(Shown(), Numbered(1));
  // The next frame is counted from here, not from where it was due.
  EXPECT_EQ(PaintAt(2000), 50);
  EXPECT_EQ(Shown(), Numbered(1));
}

TEST_F(AnimationImage, StopsForGoodAtTheEnd) {
  image_.StartAnimation();
  PaintAt(1000);
  PaintAt(1101);
  PaintAt(1202);
  EXPECT_EQ(Shown(), Numbered(2));
  EXPECT_EQ(PaintAt(1303), 0);
  EXPECT_FALSE(image_.IsAnimationPlaying());
  EXPECT_FALSE(animation_->IsStarted());
  EXPECT_EQ(Shown(), Numbered(0));
  EXPECT_EQ(PaintAt(5000), 0);
  EXPECT_EQ(Shown(), Numbered(0));
}

TEST_F(AnimationImage, InALoopBeginsAgain) {
  animation_->SetLoop(true);
  image_.StartAnimation();
  std::uint32_t now = 1000;
  for (const int frame : {0, 1, 2, 0, 1, 2, 0}) {
    PaintAt(now);
    EXPECT_EQ(Shown(), Numbered(frame)) << now;
    now += 101;
  }
  EXPECT_TRUE(image_.IsAnimationPlaying());
}

TEST_F(AnimationImage, StartedAgainBeginsAtTheFirstFrame) {
  image_.StartAnimation();
  PaintAt(1000);
  PaintAt(1101);
  image_.StopAnimation();
  EXPECT_FALSE(image_.IsAnimationPlaying());
  image_.StartAnimation();
  PaintAt(1150);
  EXPECT_EQ(Shown(), Numbered(0));
}

TEST_F(AnimationImage, OutlivesTheWrapOfTheClock) {
  image_.StartAnimation();
  PaintAt(0xFFFFFFF0U);
  EXPECT_EQ(PaintAt(0x00000010U), 100 - 0x20);
  EXPECT_EQ(Shown(), Numbered(0));
  PaintAt(0x00000060U);
  EXPECT_EQ(Shown(), Numbered(1));
}

TEST_F(AnimationImage, WithoutADelayNeverAsksForARepaintInThePast) {
  const auto many = orlo::makeObject<CAnimation>(CAnimation::kAutomaticDelay);
  const wxBitmap picture = Picture(1, 1, kRed);
  for (int frame = 0; frame < 1500; ++frame) many->Append(picture);
  image_.SetAnimation(orlo::P<IAnimation>(many));
  image_.StartAnimation();
  EXPECT_EQ(PaintAt(1000), 10);
  EXPECT_EQ(PaintAt(1070), 10);
}

TEST_F(AnimationImage, ThatPlaysWithNothingToShowLooksAgainInAHundredMilliseconds) {
  animation_->Clear();
  image_.StartAnimation();
  EXPECT_EQ(PaintAt(1000), 100);
  EXPECT_EQ(image_.stills, 1);
  page_.context.nextRepaint = 500;
  image_.Paint(page_.context);
  EXPECT_EQ(page_.context.nextRepaint, 100);
  page_.context.nextRepaint = 40;
  image_.Paint(page_.context);
  EXPECT_EQ(page_.context.nextRepaint, 40);
  animation_->Append(Picture(20, 10, kRed));
  animation_->Stop();
  EXPECT_EQ(PaintAt(1100), 100);
}

TEST_F(AnimationImage, AsksNoLaterThanOthersDo) {
  image_.StartAnimation();
  PaintAt(1000);
  page_.context.nextRepaint = 30;
  image_.now = 1040;
  image_.Paint(page_.context);
  EXPECT_EQ(page_.context.nextRepaint, 30);
  page_.context.nextRepaint = 70;
  image_.Paint(page_.context);
  EXPECT_EQ(page_.context.nextRepaint, 60);
}

TEST_F(AnimationImage, SharesItsFramesAndPositionWithWhatIsAssignedFromIt) {
  image_.SetFlags(image_.GetFlags() | 4);
  const auto clone = image_.Clone();
  auto* const copy = orlo::cast<CGraphicAnimationImage>(clone);
  EXPECT_EQ(copy->GetAnimation(), image_.GetAnimation());
  EXPECT_TRUE(copy->IsElementActive());
  animation_->Start();
  copy->GetAnimation()->Next();
  PaintAt(1000);
  EXPECT_EQ(Shown(), Numbered(1));
  copy->ClearContent();
  EXPECT_TRUE(image_.HasAnimation());
}

TEST_F(AnimationImage, InvitesOnlyWhileItIsEmpty) {
  EXPECT_EQ(image_.GetText(), "");
  image_.ClearContent();
  EXPECT_EQ(image_.GetText(), "Double click to load an animation");
  image_.SetFlags(1);
  EXPECT_EQ(image_.GetText(), "");
  image_.SetFlags(1 << 5);
  image_.SetText("of its own");
  EXPECT_EQ(image_.GetText(), "of its own");
}

TEST_F(AnimationImage, ShowsAnAuthorItsFrameAndAHintWhileItIsEmpty) {
  Place(image_, {2, 2, 50, 30});
  image_.ClearContent();
  PaintAt(1000);
  EXPECT_EQ(page_.Ink().count, 0);
  page_.context.viewMode = 1;
  PaintAt(1000);
  EXPECT_EQ(page_.Ink().bounds, wxRect(2, 2, 51, 31));
  EXPECT_GT(page_.Ink().count, 2 * (50 + 30) + 100);
}

TEST_F(AnimationImage, ShowsAnAuthorNoFrameWhenItIsActiveAndWantsNone) {
  Place(image_, {2, 2, 5, 5});
  image_.ClearContent();
  page_.context.viewMode = 2;
  image_.SetFlags(1 << 2);
  PaintAt(1000);
  EXPECT_EQ(page_.Ink().count, 0);
  image_.SetFlags(1 << 2 | 1 << 4);
  PaintAt(1000);
  EXPECT_EQ(page_.Ink().count, 20);
}

TEST_F(AnimationImage, WithAnAnimationShowsAnAuthorNothingElse) {
  page_.context.viewMode = 2;
  PaintAt(1000);
  EXPECT_EQ(page_.Ink().bounds, wxRect(10, 10, 20, 10));
}

TEST_F(AnimationImage, KeepsItsAnimationInFiles) {
  KnowPictureFormats();
  const auto factory = orlo::makeObject<CGraphicElementAnimationFactory>();
  animation_->SetLoop(true);
  const auto read = graphics::test::Reloaded(static_cast<CGraphicAnimationImage&>(image_));
  ASSERT_TRUE(read->HasAnimation());
  EXPECT_EQ(read->GetAnimation()->GetTypeName(), "animation");
  EXPECT_EQ(PicturesOf(*read->GetAnimation()), PicturesOf(*animation_));
  EXPECT_EQ(read->GetSize().width, 20);
  image_.ClearContent();
  EXPECT_FALSE(graphics::test::Reloaded(static_cast<CGraphicAnimationImage&>(image_))->HasAnimation());
}

TEST_F(AnimationImage, WritesTheKindOfItsAnimation) {
  KnowPictureFormats();
  wxXmlNode node(wxXML_ELEMENT_NODE, "animation");
  image_.WriteToXml(node, *orlo::makeObject<CBase64Resources>());
  const wxXmlNode* const child = xml::FindChild(node, "animation");
  ASSERT_TRUE(child);
  EXPECT_EQ(child->GetAttribute("type"), "animation");
  EXPECT_EQ(child->GetAttribute("count"), "3");
  EXPECT_TRUE(xml::FindChild(*child, "frame2"));
}

TEST_F(AnimationImage, OfAnUnknownKindIsLeftWithout) {
  const auto factory = orlo::makeObject<CGraphicElementAnimationFactory>();
  const auto store = orlo::makeObject<CBase64Resources>();
  wxXmlNode node(wxXML_ELEMENT_NODE, "animation");
  wxXmlNode& child = xml::AppendChild(node, "animation");
  image_.ReadFromXml(node, *store);
  EXPECT_TRUE(image_.HasAnimation());
  child.AddAttribute("type", "movie");
  image_.ReadFromXml(node, *store);
  EXPECT_FALSE(image_.HasAnimation());
}

}  // namespace graphics::animation::test
