#include "tests/authed/Movies.h"
#include "tests/elements/Page.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <thread>
#include <vector>

namespace authed::data {

namespace {

using graphics::CToolkitLock;

/// What a view does now and then, with the toolkit's lock for the length of a painting.
void Paint(const CMovieAnimation& animation) {
  const CToolkitLock lock;
  graphics::test::CPage page(32, 18);
  graphics::CSmoothEffectDC dc(page.dc);
  animation.Paint(*dc.CreateEffectContext(), {0, 0, 32, 18});
  dc.Flush();
}

class MovieThread : public CWithBackend {
protected:
  /// As a view calls it.
  static void Start(CMovieAnimation& animation) {
    const CToolkitLock lock;
    animation.Start();
  }
  static void Stop(CMovieAnimation& animation) {
    const CToolkitLock lock;
    animation.Stop();
  }
  static bool WaitUntil(const std::function<bool()>& isSo) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(kLongestWait);
    while (!isSo()) {
      if (std::chrono::steady_clock::now() > end) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
  }
  static bool WaitUntilStarted(const CMovieAnimation& animation) {
    return WaitUntil([&] { return animation.IsStarted(); });
  }
};

TEST_F(MovieThread, OpensWhileTheViewGoesOn) {
  backend->Block(EOperation::getAnimationExtractor);
  const auto animation = Animation();
  Start(*animation);
  EXPECT_TRUE(backend->WaitForBlocked(EOperation::getAnimationExtractor));
  // Each of these would wait for ever if it waited for the opening.
  EXPECT_FALSE(animation->IsStarted());
  EXPECT_FALSE(animation->Next());
  EXPECT_EQ(animation->GetWidth(), -1);
  EXPECT_EQ(animation->GetDelay(), 40);
  Paint(*animation);
  backend->LetGo(EOperation::getAnimationExtractor);
  EXPECT_TRUE(WaitUntilStarted(*animation));
  EXPECT_EQ(animation->GetWidth(), 16);
  EXPECT_TRUE(animation->Next());
  EXPECT_EQ(PixelIn(*animation->GetCurrentFrame(), 3, 2), script::PixelOf(0, 3, 2));
  Stop(*animation);
}

TEST_F(MovieThread, PaintsWhileTheBackendIsAskedForThePicturesSize) {
  for (const EOperation operation : {EOperation::start, EOperation::setMessageTarget, EOperation::getWidth}) {
    backend->Reset();
    backend->Block(operation);
    const auto animation = Animation();
    Start(*animation);
    EXPECT_TRUE(backend->WaitForBlocked(operation));
    EXPECT_EQ(animation->GetCurrentFrame(), nullptr);
    Paint(*animation);
    backend->LetGo(operation);
    EXPECT_TRUE(WaitUntilStarted(*animation));
  }
}

TEST_F(MovieThread, GivesTheBackendTheFoldersOfItsMaking) {
  CMovieAnimationSettings settings;
  settings.width = 320;
  const auto animation = Animation(settings);
  Start(*animation);
  EXPECT_TRUE(WaitUntilStarted(*animation));
  const script::CGiven given = backend->GetGiven();
  EXPECT_EQ(given.filterDir, "file:///f");
  EXPECT_EQ(given.animationDir, "file:///a");
  EXPECT_EQ(given.themeDir, "file:///t");
  EXPECT_EQ(given.params.width, 320);
  EXPECT_EQ(given.firstFrame, 0);
  EXPECT_EQ(given.flag, 1);
  EXPECT_TRUE(given.hasMessage);
  EXPECT_TRUE(given.seeks.empty());
  EXPECT_TRUE(given.speeds.empty());
  EXPECT_EQ(backend->GetCalls(EOperation::start), 1);
}

TEST_F(MovieThread, BeginsAtItsTime) {
  CMovieAnimationSettings settings;
  settings.startTime = 3;
  const auto animation = Animation(settings);
  Start(*animation);
  EXPECT_TRUE(WaitUntilStarted(*animation));
  EXPECT_EQ(backend->GetGiven().seeks, std::vector<double>{3});
  EXPECT_EQ(backend->GetGiven().seekMode, 1);
}

TEST_F(MovieThread, CallsTheBackendInAFixedOrder) {
  CMovieAnimationSettings settings;
  settings.startTime = 3;
  const auto animation = Animation(settings);
  animation->SetFast(true);
  Start(*animation);
  EXPECT_TRUE(WaitUntilStarted(*animation));
  const std::vector<EOperation> expected = {EOperation::createContext,
                                            EOperation::setInfile,
                                            EOperation::getAnimationExtractor,
                                            EOperation::seek,
                                            EOperation::start,
                                            EOperation::setSpeed,
                                            EOperation::createMessage,
                                            EOperation::setMessageTarget,
                                            EOperation::start,
                                            EOperation::getWidth,
                                            EOperation::getHeight};
  EXPECT_EQ(backend->GetOrder(), expected);
  EXPECT_EQ(backend->GetGiven().contextKind, 2);
  EXPECT_EQ(backend->GetGiven().messageKind, 1);
  EXPECT_EQ(backend->GetGiven().reserved, 0);
}

TEST_F(MovieThread, PlaysAtHalfTheSpeedIfItIsToBeFast) {
  const auto animation = Animation();
  animation->SetFast(true);
  Start(*animation);
  EXPECT_TRUE(WaitUntilStarted(*animation));
  EXPECT_EQ(backend->GetGiven().speeds, std::vector<double>{0.5});
}

TEST_F(MovieThread, EndsWithoutAWordWhenItIsStoppedDuringOpening) {
  backend->Block(EOperation::getAnimationExtractor);
  const auto animation = Animation();
  Start(*animation);
  EXPECT_TRUE(backend->WaitForBlocked(EOperation::getAnimationExtractor));
  Stop(*animation);
  backend->LetGo(EOperation::getAnimationExtractor);
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  EXPECT_FALSE(animation->IsStarted());
  EXPECT_EQ(backend->GetCalls(EOperation::start), 0) << "the listener has been called";
  EXPECT_EQ(backend->GetCalls(EOperation::close), 1) << "what came too late is closed";
}

TEST_F(MovieThread, AbortsAnExtractorThatIsOpening) {
  CMovieAnimationSettings settings;
  settings.startTime = 1;
  for (const EOperation operation : {EOperation::seek, EOperation::start}) {
    backend->Reset();
    backend->Block(operation);
    const auto animation = Animation(settings);
    Start(*animation);
    EXPECT_TRUE(backend->WaitForBlocked(operation));
    // The backend's operation returns because it is closed: nobody lets it go.
    Stop(*animation);
    EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
    EXPECT_FALSE(animation->IsStarted());
    EXPECT_EQ(backend->GetCalls(EOperation::getWidth), 0);
  }
}

TEST_F(MovieThread, StoppedWhileItIsHandedOverStaysStopped) {
  backend->Block(EOperation::getWidth);
  const auto animation = Animation();
  Start(*animation);
  EXPECT_TRUE(backend->WaitForBlocked(EOperation::getWidth));
  Stop(*animation);
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  EXPECT_FALSE(animation->IsStarted());
}

TEST_F(MovieThread, OutlivesItsAnimation) {
  backend->Block(EOperation::getAnimationExtractor);
  auto animation = Animation();
  Start(*animation);
  EXPECT_TRUE(backend->WaitForBlocked(EOperation::getAnimationExtractor));
  animation = nullptr;
  backend->LetGo(EOperation::getAnimationExtractor);
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  EXPECT_EQ(backend->GetCalls(EOperation::close), 1) << "the animation's end has closed what it got";
}

TEST_F(MovieThread, ClosesWhatIsDroppedWhileItPlays) {
  auto animation = Animation();
  Start(*animation);
  EXPECT_TRUE(WaitUntilStarted(*animation));
  backend->Block(EOperation::close);
  animation = nullptr;
  EXPECT_TRUE(backend->WaitForBlocked(EOperation::close));
  backend->LetGo(EOperation::close);
}

TEST_F(MovieThread, MayBeStartedAgainAfterStop) {
  const auto animation = Animation();
  for (int round = 0; round < 3; ++round) {
    Start(*animation);
    EXPECT_TRUE(WaitUntilStarted(*animation));
    EXPECT_TRUE(animation->Next());
    Stop(*animation);
    EXPECT_FALSE(animation->IsStarted());
  }
}

TEST_F(MovieThread, PlaysOnUntilTheNextExtractorIsThere) {
  const auto animation = Animation();
  Start(*animation);
  EXPECT_TRUE(WaitUntilStarted(*animation));
  EXPECT_TRUE(animation->Next());
  backend->SetSize(20, 10);
  backend->Block(EOperation::getAnimationExtractor);
  Start(*animation);
  EXPECT_TRUE(backend->WaitForBlocked(EOperation::getAnimationExtractor));
  EXPECT_TRUE(animation->IsStarted());
  EXPECT_TRUE(animation->Next());
  backend->LetGo(EOperation::getAnimationExtractor);
  EXPECT_TRUE(WaitUntil([&] { return animation->GetWidth() == 20; }));
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  EXPECT_EQ(backend->GetLiving(), 3) << "of the older extractor something is left";
  EXPECT_TRUE(animation->Next());
}

TEST_F(MovieThread, LeavesTheLastOfSeveralStarts) {
  backend->Block(EOperation::getAnimationExtractor);
  const auto animation = Animation();
  for (int round = 0; round < 5; ++round) Start(*animation);
  EXPECT_TRUE(backend->WaitForBlocked(EOperation::getAnimationExtractor, 5));
  backend->LetGo(EOperation::getAnimationExtractor);
  EXPECT_TRUE(WaitUntilStarted(*animation));
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  EXPECT_EQ(backend->GetLiving(), 3);
}

TEST_F(MovieThread, KeepsToTheStillPictureWhenNothingCanBeOpened) {
  backend->GiveNull(EOperation::getAnimationExtractor);
  const auto animation = Animation();
  Start(*animation);
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  EXPECT_FALSE(animation->IsStarted());

  backend->Reset();
  backend->GiveNull(EOperation::createContext);
  Start(*animation);
  EXPECT_EQ(CWorkerThread::GetCount(), 0U);
  EXPECT_FALSE(animation->IsStarted());

  backend->Reset();
  backend->SetSize(0, 0);
  Start(*animation);
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  EXPECT_FALSE(animation->IsStarted());

  backend->Reset();
  Start(*animation);
  EXPECT_TRUE(WaitUntilStarted(*animation)) << "the next attempt is a new one";
}

TEST_F(MovieThread, StopsWhatPlaysWhenItsSuccessorIsNone) {
  const auto animation = Animation();
  Start(*animation);
  EXPECT_TRUE(WaitUntilStarted(*animation));
  EXPECT_TRUE(animation->Next());
  backend->GiveNull(EOperation::getAnimationExtractor);
  Start(*animation);
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  EXPECT_FALSE(animation->IsStarted());
  EXPECT_EQ(animation->GetCurrentFrame(), nullptr);
}

TEST_F(MovieThread, PlaysOnWhenItsSuccessorCanNotBeOpened) {
  const auto animation = Animation();
  Start(*animation);
  EXPECT_TRUE(WaitUntilStarted(*animation));
  backend->Throw(EOperation::getAnimationExtractor, EError::vantra);
  Start(*animation);
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  EXPECT_TRUE(animation->IsStarted());
  EXPECT_TRUE(animation->Next());
}

TEST_F(MovieThread, EndsWithoutAWordWhateverTheBackendThrows) {
  CMovieAnimationSettings settings;
  settings.startTime = 1;
  for (const EOperation operation :
       {EOperation::createContext, EOperation::setInfile, EOperation::getAnimationExtractor, EOperation::seek,
        EOperation::start, EOperation::createMessage, EOperation::setMessageTarget, EOperation::getWidth})
    for (const EError error :
         {EError::vantra, EError::rop, EError::sul, EError::orlo, EError::standard, EError::unknown}) {
      backend->Reset();
      backend->Throw(operation, error);
      const auto animation = Animation(settings);
      Start(*animation);
      EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
      EXPECT_FALSE(animation->IsStarted());
      EXPECT_EQ(backend->GetLiving(), 0) << "what failed is still held";
    }
  for (const EError error : {EError::vantra, EError::unknown}) {
    backend->Reset();
    const auto animation = Animation(settings);
    Start(*animation);
    EXPECT_TRUE(WaitUntilStarted(*animation));
    backend->Throw(EOperation::close, error);
    Stop(*animation);
    EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  }
}

TEST_F(MovieThread, OpensAHundredAtOnce) {
  constexpr int kMany = 100;
  backend->Block(EOperation::getAnimationExtractor);
  backend->SetPictures(1000);
  std::vector<orlo::P<CMovieAnimation>> animations;
  for (int index = 0; index < kMany; ++index) {
    animations.push_back(Animation());
    Start(*animations.back());
  }
  EXPECT_TRUE(backend->WaitForBlocked(EOperation::getAnimationExtractor, kMany));
  backend->LetGo(EOperation::getAnimationExtractor);
  const auto areAllStarted = [&] {
    bool areAll = true;
    for (const auto& animation : animations) {
      animation->Next();
      Paint(*animation);
      areAll = areAll && animation->IsStarted();
    }
    return areAll;
  };
  EXPECT_TRUE(WaitUntil(areAllStarted));
  for (const auto& animation : animations) EXPECT_TRUE(animation->Next());
  // Half of them are stopped, the others dropped.
  for (std::size_t index = 0; index < animations.size(); index += 2) Stop(*animations[index]);
}

/// Threads that each do to one animation what views do, and to others what hosts do.
TEST_F(MovieThread, StandsWhateverIsDoneAtOnce) {
  constexpr int kThreads = 4, kRounds = 40;
  backend->SetPictures(1000000);
  const auto shared = Animation();
  std::atomic<bool> isOver{false};
  std::vector<std::thread> threads;
  for (int index = 0; index < kThreads; ++index)
    threads.emplace_back([&, index] {
      const auto own = Animation();
      for (int round = 0; round < kRounds; ++round) {
        if (index == 0) Start(*shared);
        if (index == 1) Stop(*shared);
        if (index == 2) Paint(*shared);
        if (index == 3) shared->IsStarted(), shared->GetDelay(), shared->GetPictureNumber();
        if (round % 2 == 0)
          Start(*own);
        else if (Extract(*own))
          own->NewThread();
        own->Next();
        Paint(*own);
        if (round % 3 == 0) Stop(*own);
      }
    });
  std::thread driver([&] {
    while (!isOver) shared->Next();
  });
  for (std::thread& thread : threads) thread.join();
  isOver = true;
  driver.join();
  Stop(*shared);
}

TEST_F(MovieThread, IsAbortedAtTheEndOfTheProcess) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        const auto playing = Animation();
        Extract(*playing);
        backend->Block(EOperation::start);
        const auto opening = Animation();
        Start(*opening);
        backend->WaitForBlocked(EOperation::start);
        std::exit(3);
      },
      testing::ExitedWithCode(3), "");
}

TEST_F(MovieThread, ThatCanNotBeAbortedDoesNotBreakTheEndOfTheProcess) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        backend->Block(EOperation::start);
        backend->Throw(EOperation::close, EError::standard);
        const auto opening = Animation();
        Start(*opening);
        backend->WaitForBlocked(EOperation::start);
        std::exit(3);
      },
      testing::ExitedWithCode(3), "");
}

/// Drops its animation when the process ends, and later than the threads are waited for.
struct CLateOwner {
  CLateOwner() = default;
  CLateOwner(const CLateOwner&) = delete;
  CLateOwner& operator=(const CLateOwner&) = delete;
  ~CLateOwner() { animation = nullptr; }

  orlo::P<CMovieAnimation> animation;
};

TEST_F(MovieThread, IsNotNeededForWhatIsDroppedAtTheEndOfTheProcess) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        static CLateOwner owner;
        owner.animation = Animation();
        Extract(*owner.animation);
        const auto before = Animation();
        Extract(*before);
        before->Stop();
        std::exit(3);
      },
      testing::ExitedWithCode(3), "");
}

}  // namespace

}  // namespace authed::data
