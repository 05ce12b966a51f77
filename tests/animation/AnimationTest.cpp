#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "graphics/animation/Animation.h"
#include "graphics/animation/AnimationTypes.h"
#include "graphics/animation/GIFAnimation.h"
#include "graphics/animation/GraphicElementAnimationFactory.h"
#include "tests/animation/Pictures.h"

#include <gtest/gtest.h>

namespace graphics::animation::test {

namespace {

orlo::P<CAnimation> AnimationOf(int frames, std::int32_t delay = CAnimation::kAutomaticDelay) {
  const auto animation = orlo::makeObject<CAnimation>(delay);
  for (int frame = 0; frame < frames; ++frame) animation->Append(Picture(8, 6, Numbered(frame)));
  return animation;
}

class Animation : public testing::Test {
  const CToolkitLock lock_;
};

}  // namespace

TEST_F(Animation, WithoutADelayTakesAboutASecondInAll) {
  EXPECT_EQ(AnimationOf(4)->GetDelay(), 250);
  EXPECT_EQ(AnimationOf(3)->GetDelay(), 333);
  EXPECT_EQ(AnimationOf(3, 0)->GetDelay(), 333);
  CAnimation many(CAnimation::kAutomaticDelay);
  const wxBitmap picture = Picture(1, 1, kRed);
  for (int frame = 0; frame < 1500; ++frame) many.Append(picture);
  EXPECT_EQ(many.GetDelay(), 0);
}

TEST_F(Animation, KeepsADelayOfItsOwn) {
  EXPECT_EQ(AnimationOf(4, 40)->GetDelay(), 40);
  EXPECT_EQ(AnimationOf(0, 40)->GetDelay(), 40);
}

TEST_F(Animation, WithoutFramesHasNeitherSizeNorFramesNorATimeToWait) {
  const auto empty = AnimationOf(0);
  EXPECT_TRUE(empty->IsEmpty());
  EXPECT_EQ(empty->GetWidth(), -1);
  EXPECT_EQ(empty->GetHeight(), -1);
  EXPECT_EQ(empty->GetDelay(), 0);
  EXPECT_EQ(empty->GetFirstFrame(), nullptr);
  EXPECT_EQ(empty->GetCurrentFrame(), nullptr);
  EXPECT_FALSE(empty->Next());
}

TEST_F(Animation, IsAsLargeAsItsFirstFrame) {
  const auto animation = AnimationOf(1);
  animation->Append(Picture(20, 20, kBlue));
  EXPECT_EQ(animation->GetWidth(), 8);
  EXPECT_EQ(animation->GetHeight(), 6);
}

TEST_F(Animation, OfOneFrameHasNoNext) {
  EXPECT_FALSE(AnimationOf(1)->Next());
}

TEST_F(Animation, StaysOnItsLastFrame) {
  const auto animation = AnimationOf(3);
  EXPECT_TRUE(animation->Next());
  EXPECT_TRUE(animation->Next());
  EXPECT_FALSE(animation->Next());
  EXPECT_FALSE(animation->Next());
  EXPECT_EQ(PixelOf(*animation->GetCurrentFrame(), 0, 0), Numbered(2));
  animation->Rewind();
  EXPECT_EQ(PixelOf(*animation->GetCurrentFrame(), 0, 0), Numbered(0));
}

TEST_F(Animation, ClearedBeginsAnew) {
  const auto animation = AnimationOf(3);
  animation->Next();
  animation->Clear();
  EXPECT_TRUE(animation->IsEmpty());
  animation->Append(Picture(8, 6, kRed));
  EXPECT_EQ(PixelOf(*animation->GetCurrentFrame(), 0, 0), kRed);
}

TEST_F(Animation, StoppedPaintsItsFirstFrameWhateverThePosition) {
  const auto animation = AnimationOf(4);
  for (int step = 0; step < 3; ++step) animation->Next();
  EXPECT_EQ(Painted(*animation), Numbered(0));
  animation->Start();
  EXPECT_TRUE(animation->IsStarted());
  EXPECT_EQ(Painted(*animation), Numbered(3));
  animation->Stop();
  EXPECT_FALSE(animation->IsStarted());
  EXPECT_EQ(Painted(*animation), Numbered(0));
}

TEST_F(Animation, PaintsNothingForAMissingPictureOrWithoutAny) {
  EXPECT_EQ(Painted(*AnimationOf(0)), kClear);
  const auto animation = AnimationOf(0);
  animation->Append(wxBitmap());
  animation->Append(Picture(8, 6, kRed));
  EXPECT_FALSE(animation->IsEmpty());
  EXPECT_EQ(animation->GetFirstFrame(), nullptr);
  EXPECT_EQ(Painted(*animation), kClear);
  animation->Start();
  animation->Next();
  EXPECT_EQ(Painted(*animation), kRed);
}

TEST_F(Animation, IsScaledIntoItsRectangle) {
  CCanvas canvas;
  CSmoothEffectDC dc(canvas.dc);
  AnimationOf(1)->Paint(*dc.CreateEffectContext(), {10, 5, 30, 20});
  dc.Flush();
  EXPECT_EQ(canvas.Ink().bounds, wxRect(10, 5, 30, 20));
  EXPECT_EQ(canvas.Ink().count, 30 * 20);
}

TEST_F(Animation, LeavesTheScalingOfTheContextAsItWas) {
  CCanvas canvas;
  CSmoothEffectDC dc(canvas.dc);
  const auto context = dc.CreateEffectContext();
  CNativeState state(context->GetNativeContext());
  state.SetInterpolation(EInterpolation::nearest);
  const int filter = FilterOf(context->GetNativeContext());
  AnimationOf(1)->Paint(*context, {0, 0, 10, 10});
  EXPECT_EQ(FilterOf(context->GetNativeContext()), filter);
}

TEST_F(Animation, KeepsItsPicturesInFiles) {
  const auto animation = AnimationOf(3, 70);
  animation->Append(wxBitmap());
  animation->Append(Picture(4, 4, kBlue));
  animation->SetLoop(true);
  const auto read = Reread(*animation, orlo::makeObject<CAnimation>(CAnimation::kAutomaticDelay));
  EXPECT_TRUE(read->GetLoop());
  EXPECT_EQ(read->GetDelay(), 70);
  EXPECT_EQ(PicturesOf(*read), PicturesOf(*animation));
}

TEST_F(Animation, ReadsItsFramesBehindThoseThatAreThere) {
  const auto animation = AnimationOf(2);
  EXPECT_EQ(PicturesOf(*Reread(*animation, AnimationOf(3))).size(), 5u);
}

TEST_F(Animation, ReadWithoutDelayAndLoopKeepsItsOwn) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "animation");
  const auto animation = AnimationOf(0, 70);
  animation->SetLoop(true);
  animation->ReadFromXml(node, *orlo::makeObject<CBase64Resources>());
  EXPECT_EQ(animation->GetDelay(), 70);
  EXPECT_TRUE(animation->GetLoop());
  EXPECT_TRUE(animation->IsEmpty());
}

TEST_F(Animation, TakesThePlaceOfAMissingFrameIntoAccount) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "animation");
  node.AddAttribute("count", "4");
  const auto animation = AnimationOf(0);
  animation->ReadFromXml(node, *orlo::makeObject<CBase64Resources>());
  EXPECT_EQ(animation->GetDelay(), 250);
  EXPECT_EQ(animation->GetCurrentFrame(), nullptr);
}

TEST_F(Animation, WithMoreFramesThanTheLimitIsAnError) {
  for (const char* const type : {"animation", "gif"}) {
    const orlo::P<CGraphicElementAnimationFactory> factory = orlo::makeObject<CGraphicElementAnimationFactory>();
    wxXmlNode node(wxXML_ELEMENT_NODE, "animation");
    node.AddAttribute("count", "100001");
    try {
      CreateAnimation(type)->ReadFromXml(node, *orlo::makeObject<CBase64Resources>());
      FAIL() << type;
    } catch (const orlo::CError& error) {
      EXPECT_STREQ(error.what(), "An animation may have at most 100000 frames");
    }
  }
}

TEST_F(Animation, OfNegativeCountHasNoFrames) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "animation");
  node.AddAttribute("count", "-5");
  const auto animation = AnimationOf(0);
  animation->ReadFromXml(node, *orlo::makeObject<CBase64Resources>());
  EXPECT_TRUE(animation->IsEmpty());
}

TEST_F(Animation, OfManyEmptyFrameNodesIsReadInOneWalk) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "animation");
  node.AddAttribute("count", "100000");
  xml::CChildAppender children(node);
  for (int frame = 99'999; frame >= 0; --frame) children.Append(wxString::Format("frame%d", frame));
  const auto animation = AnimationOf(0);
  animation->ReadFromXml(node, *orlo::makeObject<CBase64Resources>());
  EXPECT_FALSE(animation->IsEmpty());
}

TEST_F(Animation, OfMoreMemoryThanTheLimitIsAnError) {
  CAnimation animation(CAnimation::kAutomaticDelay);
  const wxBitmap one = Picture(4096, 4096, kRed);
  const wxBitmap other = Picture(4096, 4096, kBlue);
  for (int frame = 0; frame < 4; ++frame) {
    animation.Append(one);
    animation.Append(other);
  }
  // The same picture again is in memory once.
  animation.Append(other);
  try {
    animation.Append(Picture(1, 1, kRed));
    FAIL();
  } catch (const orlo::CError& error) {
    EXPECT_STREQ(error.what(), "The frames of an animation may take at most 512 MB");
  }
  animation.Append(wxBitmap());
}

TEST_F(Animation, OfItsKindIsMadeNewAndEmpty) {
  const auto animation = AnimationOf(3, 40);
  EXPECT_EQ(animation->GetTypeName(), "animation");
  const orlo::P<IAnimation> fresh = animation->CreateNew();
  EXPECT_TRUE(orlo::tryCast<CAnimation>(fresh));
  EXPECT_TRUE(fresh->IsEmpty());
  EXPECT_FALSE(fresh->IsStarted());
}

TEST(AnimationTypes, AreFoundByTheirExactNames) {
  const auto factory = orlo::makeObject<CGraphicElementAnimationFactory>();
  EXPECT_TRUE(orlo::tryCast<CAnimation>(CreateAnimation("animation")));
  EXPECT_TRUE(orlo::tryCast<CGIFAnimation>(CreateAnimation("gif")));
  EXPECT_FALSE(CreateAnimation("GIF"));
  EXPECT_FALSE(CreateAnimation("gif "));
  EXPECT_FALSE(CreateAnimation(""));
  EXPECT_FALSE(CreateAnimation("movie"));
}

TEST(AnimationTypes, RegisteredTwiceAreStillThemselves) {
  const auto first = orlo::makeObject<CGraphicElementAnimationFactory>();
  const auto second = orlo::makeObject<CGraphicElementAnimationFactory>();
  const orlo::P<IAnimation> one = CreateAnimation("gif");
  EXPECT_NE(one, CreateAnimation("gif"));
}

}  // namespace graphics::animation::test
