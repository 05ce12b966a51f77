#include "authed/data/WorkerThread.h"
#include "graphics/paint/Toolkit.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <thread>
#include <unistd.h>

namespace authed::data {

namespace {

constexpr int kLongestWait = 60;

/// Runs until it is stopped, and on if it doesn't listen.
class CRunner : public CWorkerThread {
public:
  CRunner(const orlo::P<orlo::ISignal>& stop, bool listens) : CWorkerThread(stop), listens_(listens) {}

private:
  ExitCode Entry() override {
    while (!listens_ || !IsStopRequested()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return nullptr;
  }

  bool listens_;
};

orlo::P<orlo::ISignal> RunOne(bool listens = true) {
  graphics::StartToolkit();
  const auto stop = orlo::getSignalFactory()->createSignal();
  std::unique_ptr<CWorkerThread> thread = std::make_unique<CRunner>(stop, listens);
  EXPECT_TRUE(CWorkerThread::Start(thread));
  EXPECT_EQ(thread, nullptr);
  return stop;
}

TEST(WorkerThread, EndsWhenItIsAskedTo) {
  EXPECT_EQ(CWorkerThread::GetCount(), 0U);
  const auto stop = RunOne();
  EXPECT_EQ(CWorkerThread::GetCount(), 1U);
  EXPECT_FALSE(CWorkerThread::WaitForNone(0));
  stop->set();
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
}

TEST(WorkerThread, ThatWasNeverStartedIsNotWaitedFor) {
  graphics::StartToolkit();
  {
    const CRunner runner(orlo::getSignalFactory()->createSignal(), true);
    EXPECT_FALSE(runner.IsStopRequested());
  }
  EXPECT_EQ(CWorkerThread::GetCount(), 0U);
}

class EndOfProcess : public testing::Test {
protected:
  EndOfProcess() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(EndOfProcess, StopsWorkerThreadsAndWaitsForThem) {
  EXPECT_EXIT(
      {
        for (int index = 0; index < 10; ++index) RunOne();
        std::exit(3);
      },
      testing::ExitedWithCode(3), "");
}

TEST_F(EndOfProcess, ComesInSpiteOfAThreadThatDoesNotListen) {
#ifdef __SANITIZE_THREAD__
  GTEST_SKIP() << "the sanitizer tells what can't be helped: that the toolkit ends under a thread";
#endif
  EXPECT_EXIT(
      {
        RunOne(false);
        std::exit(3);
      },
      testing::ExitedWithCode(3), "");
}

}  // namespace

}  // namespace authed::data
