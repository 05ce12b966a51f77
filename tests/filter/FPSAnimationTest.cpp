#include "filter/FPSAnimation.h"
#include "foundation/Cast.h"
#include "graphics/animation/Animation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace authfilter {
namespace {

using graphics::animation::IAnimation;

/// Frames that are numbers, and nothing to see.
class CNumbers : public orlo::CObject, public virtual IAnimation {
public:
  CNumbers(int count, std::int32_t delay) : count_(count), delay_(delay) {}

  int position = 0;
  int asked = 0;

  void Rewind() override { position = 0; }
  bool Next() override {
    ++asked;
    if (position + 1 >= count_) return false;
    ++position;
    return true;
  }
  const wxBitmap* GetFirstFrame() const override { return nullptr; }
  const wxBitmap* GetCurrentFrame() const override { return nullptr; }
  void SetLoop(bool loop) override { loop_ = loop; }
  bool GetLoop() const override { return loop_; }
  std::int32_t GetDelay() const override { return delay_; }
  void Clear() override { count_ = 0; }
  bool IsEmpty() const override { return count_ == 0; }
  std::int32_t GetWidth() const override { return 12; }
  std::int32_t GetHeight() const override { return 34; }
  void WriteToXml(wxXmlNode&, graphics::IResourceOutputStore&) const override { FAIL(); }
  void ReadFromXml(const wxXmlNode&, graphics::IResourceInputStore&) override { FAIL(); }
  void Start() override { started_ = true; }
  bool IsStarted() const override { return started_; }
  void Stop() override { started_ = false; }
  void Paint(graphics::TEffectGraphicsContext&, const graphics::CDoubleRect&) const override {}
  orlo::P<IAnimation> CreateNew() const override { return nullptr; }
  wxString GetTypeName() const override { return "numbers"; }

private:
  int count_;
  std::int32_t delay_;
  bool loop_ = false;
  bool started_ = false;
};

constexpr int kEndless = 1'000'000;

struct CRate {
  std::int64_t num, den;
};

orlo::P<CFPSAnimation> Wrap(const orlo::P<CNumbers>& inner, CRate rate) {
  return orlo::makeObject<CFPSAnimation>(orlo::P<IAnimation>(inner), rate.num, rate.den);
}

/// The frames of the host at which the picture changes, counted from 1.
std::vector<int> Changes(int frames, std::int32_t delay, CRate rate) {
  const auto inner = orlo::makeObject<CNumbers>(kEndless, delay);
  const auto wrapper = Wrap(inner, rate);
  std::vector<int> changes;
  for (int frame = 1; frame <= frames; ++frame) {
    const int before = inner->position;
    EXPECT_TRUE(wrapper->Next());
    if (inner->position != before) changes.push_back(frame);
    EXPECT_LE(inner->position, before + 1);
  }
  return changes;
}

/// The same in whole numbers: a picture stays for the smallest number of frames that take longer than its delay, which
/// is where frames * den / num * 1000 > delay.
std::vector<int> ExactChanges(int frames, std::int64_t delay, CRate rate) {
  const std::int64_t stay = delay * rate.num / (1000 * rate.den) + 1;
  std::vector<int> changes;
  for (std::int64_t frame = stay; frame <= frames; frame += stay) changes.push_back(static_cast<int>(frame));
  return changes;
}

using Numbers = std::vector<int>;

TEST(FPSAnimation, ChangesThePictureOnceItsDelayIsPassed) {
  // 40 and 80 milliseconds aren't above 100, 120 is.
  EXPECT_EQ(Changes(10, 100, {25, 1}), (Numbers{3, 6, 9}));
  EXPECT_EQ(Changes(6, 40, {25, 1}), (Numbers{2, 4, 6}));
  EXPECT_EQ(Changes(6, 39, {25, 1}), (Numbers{1, 2, 3, 4, 5, 6}));
}

TEST(FPSAnimation, WithoutADelayChangesThePictureAtEveryFrame) {
  EXPECT_EQ(Changes(5, 0, {60, 1}), (Numbers{1, 2, 3, 4, 5}));
  EXPECT_EQ(Changes(5, -1, {60, 1}), (Numbers{1, 2, 3, 4, 5}));
}

TEST(FPSAnimation, KeepsTimeAtEveryRateForTenThousandFrames) {
  constexpr int kFrames = 10'000;
  for (const CRate rate :
       {CRate{24000, 1001}, {24, 1}, {25, 1}, {30000, 1001}, {30, 1}, {50, 1}, {60000, 1001}, {60, 1}})
    for (const std::int32_t delay : {0, 10, 40, 100, 333, 1000})
      EXPECT_EQ(Changes(kFrames, delay, rate), ExactChanges(kFrames, delay, rate))
          << rate.num << '/' << rate.den << ", " << delay << " ms";
}

TEST(FPSAnimation, CountsEachPictureFromItsOwnFirstFrame) {
  const Numbers changes = Changes(100, 333, {24, 1});
  ASSERT_FALSE(changes.empty());
  // Eight frames are 333.33 milliseconds: no picture is ever a frame shorter to make up for the third.
  for (std::size_t index = 0; index < changes.size(); ++index)
    EXPECT_EQ(changes[index], 8 * (static_cast<int>(index) + 1));
}

TEST(FPSAnimation, EndsOnceTheLastPictureHasHadItsTime) {
  const auto inner = orlo::makeObject<CNumbers>(2, 100);
  const auto wrapper = Wrap(inner, {25, 1});
  for (int frame = 1; frame <= 5; ++frame) EXPECT_TRUE(wrapper->Next()) << frame;
  EXPECT_EQ(inner->position, 1);
  EXPECT_FALSE(wrapper->Next());
  const int asked = inner->asked;
  for (int frame = 0; frame < 10; ++frame) EXPECT_FALSE(wrapper->Next());
  EXPECT_EQ(inner->asked, asked);
  EXPECT_EQ(inner->position, 1);
}

TEST(FPSAnimation, InALoopBeginsAgain) {
  const auto inner = orlo::makeObject<CNumbers>(3, 0);
  inner->SetLoop(true);
  const auto wrapper = Wrap(inner, {25, 1});
  Numbers positions;
  for (int frame = 0; frame < 7; ++frame) {
    EXPECT_TRUE(wrapper->Next());
    positions.push_back(inner->position);
  }
  EXPECT_EQ(positions, (Numbers{1, 2, 0, 1, 2, 0, 1}));
}

TEST(FPSAnimation, WithoutAFrameRateChangesThePictureAtEachFrame) {
  EXPECT_EQ(Changes(3, 1000, {0, 1}), (Numbers{1, 2, 3}));
}

TEST(FPSAnimation, WithoutAnyRateAtAllStays) {
  EXPECT_EQ(Changes(100, 0, {0, 0}), (Numbers{}));
}

TEST(FPSAnimation, OfAnEmptyAnimationEnds) {
  const auto empty = orlo::makeObject<graphics::animation::CAnimation>(-1);
  CFPSAnimation wrapper(orlo::P<IAnimation>(empty), 25, 1);
  EXPECT_TRUE(wrapper.IsEmpty());
  EXPECT_FALSE(wrapper.Next());
}

TEST(FPSAnimation, HandsTheRestOnToTheAnimationInside) {
  const auto inner = orlo::makeObject<CNumbers>(3, 70);
  const auto wrapper = Wrap(inner, {25, 1});
  wrapper->Start();
  EXPECT_TRUE(inner->IsStarted());
  EXPECT_TRUE(wrapper->IsStarted());
  wrapper->Stop();
  EXPECT_FALSE(inner->IsStarted());
  wrapper->SetLoop(true);
  EXPECT_TRUE(inner->GetLoop());
  EXPECT_TRUE(wrapper->GetLoop());
  EXPECT_EQ(wrapper->GetDelay(), 70);
  EXPECT_EQ(wrapper->GetWidth(), 12);
  EXPECT_EQ(wrapper->GetHeight(), 34);
  inner->position = 2;
  wrapper->Rewind();
  EXPECT_EQ(inner->position, 0);
  EXPECT_FALSE(wrapper->IsEmpty());
  wrapper->Clear();
  EXPECT_TRUE(wrapper->IsEmpty());
}

TEST(FPSAnimation, IsNeverStored) {
  const auto inner = orlo::makeObject<CNumbers>(3, 70);
  const auto wrapper = Wrap(inner, {25, 1});
  EXPECT_EQ(wrapper->GetTypeName(), "");
}

TEST(FPSAnimation, MadeNewRunsTheSameAnimationAtTheSameRate) {
  const auto inner = orlo::makeObject<CNumbers>(kEndless, 100);
  const orlo::P<IAnimation> fresh = Wrap(inner, {25, 1})->CreateNew();
  ASSERT_TRUE(orlo::tryCast<CFPSAnimation>(fresh));
  for (int frame = 0; frame < 3; ++frame) fresh->Next();
  EXPECT_EQ(inner->position, 1);
}

}  // namespace
}  // namespace authfilter
