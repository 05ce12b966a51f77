#include "foundation/Error.h"
#include "foundation/posix/WindowTimer.h"
#include "tests/foundation/ChildProcess.h"
#include "tests/foundation/Counted.h"
#include "tests/foundation/OpenFiles.h"
#include "tests/foundation/TextOf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <fcntl.h>
#include <functional>
#include <limits>
#include <optional>
#include <poll.h>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace orlo::posix {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using testing::ElementsAre;

constexpr std::uint32_t kLong = 60000;

class CTimerListener : public CCounted, public CWindowTimer::ITimerListener {
public:
  explicit CTimerListener(std::function<void()> action) : action_(std::move(action)) {}
  void onTimer(CWindowTimer*) override { action_(); }

private:
  std::function<void()> action_;
};

/// A timer whose own ticks are far away, so that those that a test posts are all that come.
class WindowTimer : public testing::Test {
protected:
  WindowTimer() {
    timer.setInterval(std::numeric_limits<std::int32_t>::max());
    timer.start();
    timer.addListener(&counter);
  }
  void tick() {
    timer.post(CWindowTimer::kTimerMessage, CWindowTimer::kTimerId, 0);
    queue->processAllMessages();
  }
  /// Runs so fast that a tick waits when this returns.
  void letATickWait() {
    timer.setInterval(1);
    pollfd waiting{timer.getHandle(), POLLIN, 0};
    ASSERT_EQ(poll(&waiting, 1, static_cast<int>(kLong)), 1);
  }

  P<CMessageQueue> queue = CMessageQueue::ofThisThread();
  CWindowTimer timer;
  int ticks = 0;
  CTimerListener counter{[this] { ++ticks; }};
  std::vector<int> log;
};

std::string messageOfInterval(std::int32_t interval) {
  CWindowTimer timer;
  try {
    timer.setInterval(interval);
  } catch (const CInvalidArgError& error) {
    return textOf(error.getArgument());
  }
  return "";
}

TEST(WindowTimerInterval, IsOneMillisecondAtLeast) {
  EXPECT_EQ(messageOfInterval(0), "window timer intervals have to be >=0");
  EXPECT_EQ(messageOfInterval(-1), "window timer intervals have to be >=0");
  EXPECT_EQ(messageOfInterval(std::numeric_limits<std::int32_t>::min()), "window timer intervals have to be >=0");
  EXPECT_EQ(messageOfInterval(1), "");
}

TEST(WindowTimerInterval, StaysWhatItWasWhenItIsRefused) {
  CWindowTimer timer;
  timer.setInterval(70);
  EXPECT_THROW(timer.setInterval(0), CInvalidArgError);
  EXPECT_EQ(timer.getInterval(), 70);
}

TEST_F(WindowTimer, TicksAgainAndAgainWhileItsThreadProcessesMessages) {
  timer.setInterval(1);
  while (ticks < 5) ASSERT_TRUE(queue->processMessage(kLong));
}

TEST_F(WindowTimer, DoesNotTickBeforeItsInterval) {
  const auto start = steady_clock::now();
  timer.setInterval(30);
  ASSERT_TRUE(queue->processMessage(kLong));
  EXPECT_GE(steady_clock::now() - start, milliseconds(30));
  EXPECT_EQ(ticks, 1);
}

TEST_F(WindowTimer, RunsFromStartToStop) {
  CWindowTimer other;
  EXPECT_FALSE(other.isRunning());
  other.stop();
  other.start();
  EXPECT_TRUE(other.isRunning());
  other.stop();
  EXPECT_FALSE(other.isRunning());
}

TEST_F(WindowTimer, StartsAgainWithANewInterval) {
  letATickWait();
  timer.setInterval(std::numeric_limits<std::int32_t>::max());
  EXPECT_TRUE(timer.isRunning());
  EXPECT_FALSE(queue->processMessage(0));
  EXPECT_EQ(ticks, 0);
}

TEST_F(WindowTimer, IsNotStartedByAnInterval) {
  timer.stop();
  timer.setInterval(1);
  EXPECT_FALSE(timer.isRunning());
  EXPECT_FALSE(queue->processMessage(20));
}

TEST_F(WindowTimer, DoesNotDoubleATickWhenItStartsAgain) {
  letATickWait();
  timer.post(CWindowTimer::kTimerMessage, CWindowTimer::kTimerId, 0);
  timer.setInterval(std::numeric_limits<std::int32_t>::max());
  timer.start();
  EXPECT_FALSE(queue->processMessage(0));
  EXPECT_EQ(ticks, 0);
}

TEST_F(WindowTimer, HasNoTickLeftWhenItIsStopped) {
  letATickWait();
  timer.post(CWindowTimer::kTimerMessage, CWindowTimer::kTimerId, 0);
  timer.stop();
  EXPECT_FALSE(queue->processMessage(0));
  EXPECT_EQ(ticks, 0);
}

TEST_F(WindowTimer, DoesNotTickWhenItIsStoppedWhileItsTickIsOnItsWay) {
  letATickWait();
  queue->processAllMessages([this](const CMessage&) {
    timer.stop();
    return false;
  });
  EXPECT_EQ(ticks, 0);
}

TEST_F(WindowTimer, KeepsOtherMessagesWhenItIsStopped) {
  timer.post(1, 0, 0);
  timer.stop();
  EXPECT_TRUE(queue->processMessage(0));
}

TEST_F(WindowTimer, GivesASlowListenerOneTickForAllThatItMissed) {
  constexpr milliseconds interval(20);
  CTimerListener slow([this, interval] {
    if (ticks == 0) std::this_thread::sleep_for(15 * interval);
  });
  timer.addListener(&slow);
  timer.setInterval(static_cast<std::int32_t>(interval.count()));
  ASSERT_TRUE(queue->processMessage(kLong));
  ASSERT_EQ(ticks, 1);
  const auto start = steady_clock::now();
  while (queue->processMessage(0)) {
  }
  EXPECT_GE(ticks, 2);
  EXPECT_LE(ticks - 2, (steady_clock::now() - start) / interval + 1);
}

TEST_F(WindowTimer, MakesOneTickOfAllThatWait) {
  for (int i = 0; i < 3; ++i) timer.post(CWindowTimer::kTimerMessage, CWindowTimer::kTimerId, 0);
  queue->processAllMessages();
  EXPECT_EQ(ticks, 1);
}

TEST_F(WindowTimer, EndsProcessingAllMessagesAlthoughItAlwaysHasATick) {
  timer.setInterval(1);
  CTimerListener slow([] { std::this_thread::sleep_for(milliseconds(5)); });
  timer.addListener(&slow);
  std::this_thread::sleep_for(milliseconds(5));
  queue->processAllMessages();
  EXPECT_LE(ticks, 1);
}

TEST_F(WindowTimer, TellsItsListenersFromTheLastToTheFirst) {
  CTimerListener first([this] { log.push_back(1); });
  CTimerListener second([this] { log.push_back(2); });
  timer.addListener(&first);
  timer.addListener(&second);
  tick();
  EXPECT_THAT(log, ElementsAre(2, 1));
  EXPECT_EQ(ticks, 1);
}

TEST_F(WindowTimer, LetsAListenerTakeItselfOut) {
  CTimerListener first([this] { log.push_back(1); });
  std::optional<CTimerListener> second;
  second.emplace([&] {
    log.push_back(2);
    timer.removeListener(&*second);
  });
  CTimerListener third([this] { log.push_back(3); });
  for (CTimerListener* listener : {&first, &*second, &third}) timer.addListener(listener);
  tick();
  EXPECT_THAT(log, ElementsAre(3, 2, 1));
  tick();
  EXPECT_THAT(log, ElementsAre(3, 2, 1, 3, 1));
}

TEST_F(WindowTimer, HoldsAListenerForItsCall) {
  P<CTimerListener> last;
  last = makeObject<CTimerListener>([&] {
    timer.removeListener(last.get());
    const int count = last->referenceCount();
    last = nullptr;
    log.push_back(count);
  });
  timer.addListener(last.get());
  tick();
  EXPECT_THAT(log, ElementsAre(2));
}

TEST_F(WindowTimer, MayBeStoppedAndStartedByAListener) {
  CTimerListener listener([this] {
    timer.stop();
    timer.start();
  });
  timer.addListener(&listener);
  tick();
  tick();
  EXPECT_EQ(ticks, 2);
  EXPECT_TRUE(timer.isRunning());
}

TEST_F(WindowTimer, MayLoseItsLastReferenceInAListener) {
  P<CWindowTimer> own = makeObject<CWindowTimer>();
  own->setInterval(1);
  CTimerListener first([this] { log.push_back(1); });
  CTimerListener second([&] { own = nullptr; });
  own->addListener(&first);
  own->addListener(&second);
  own->start();
  EXPECT_TRUE(queue->processMessage(kLong));
  EXPECT_THAT(log, ElementsAre(1));
}

TEST_F(WindowTimer, GetsPostedMessagesAsAWindowDoes) {
  struct CListener : CCounted, CMessageWindow::IMessageListener {
    bool onMessage(CMessageWindow*, std::uint32_t message, std::uintptr_t, std::intptr_t) override {
      got = message;
      return true;
    }
    std::uint32_t got = 0;
  } listener;
  timer.addListener(&listener);
  timer.post(1024, 0, 0);
  queue->processAllMessages();
  EXPECT_EQ(listener.got, 1024U);
  EXPECT_EQ(ticks, 0);
  timer.removeListener(&listener);
}

TEST_F(WindowTimer, LetsNoOtherTimerStarve) {
  CWindowTimer other;
  bool ticked = false;
  CTimerListener listener([&] { ticked = true; });
  CTimerListener slow([] { std::this_thread::sleep_for(milliseconds(3)); });
  timer.addListener(&slow);
  other.addListener(&listener);
  timer.setInterval(1);
  other.setInterval(1);
  other.start();
  const auto end = steady_clock::now() + milliseconds(kLong);
  while (!ticked && steady_clock::now() < end) queue->processMessage(kLong);
  EXPECT_TRUE(ticked);
}

TEST_F(WindowTimer, MayBeStartedAndStoppedWhileOthersPostToIt) {
  std::atomic<bool> done{false};
  std::vector<std::thread> threads;
  for (int i = 0; i < 3; ++i) {
    threads.emplace_back([&] {
      while (!done) timer.post(CWindowTimer::kTimerMessage, CWindowTimer::kTimerId, 0);
    });
  }
  timer.setInterval(1);
  for (int round = 0; round < 300; ++round) {
    timer.start();
    queue->processAllMessages();
    timer.stop();
    const int before = ticks;
    queue->processAllMessages();
    EXPECT_EQ(ticks, before);
  }
  done = true;
  for (std::thread& thread : threads) thread.join();
}

TEST_F(WindowTimer, HasAFileThatProgramsStartedFromHereDoNotGetAndNoThread) {
  const std::set<int> before = openFiles();
  const std::size_t threads = threadCount();
  {
    CWindowTimer other;
    EXPECT_EQ(openFiles(), before);
    other.start();
    std::set<int> now = openFiles();
    for (const int file : before) now.erase(file);
    ASSERT_EQ(now.size(), 1U);
    EXPECT_TRUE(fcntl(*now.begin(), F_GETFD) & FD_CLOEXEC);
    EXPECT_EQ(threadCount(), threads);
  }
  EXPECT_EQ(openFiles(), before);
}

TEST_F(WindowTimer, StaysStoppedWhenTheSystemHasNoneLeft) {
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  CWindowTimer other;
  rlimit none = before;
  none.rlim_cur = 0;
  setrlimit(RLIMIT_NOFILE, &none);
  other.start();
  setrlimit(RLIMIT_NOFILE, &before);
  EXPECT_FALSE(other.isRunning());
  other.start();
  EXPECT_TRUE(other.isRunning());
}

TEST_F(WindowTimer, MayEndOnAnotherThread) {
  P<CWindowTimer> other = makeObject<CWindowTimer>();
  other->setInterval(1);
  other->start();
  std::thread([&] { other = nullptr; }).join();
  EXPECT_FALSE(queue->processMessage(5));
}

TEST_F(WindowTimer, IsNotStoppedByAForkedProcessThatEnds) {
  P<CWindowTimer> other = makeObject<CWindowTimer>();
  other->setInterval(1);
  other->addListener(&counter);
  other->start();
  CChildProcess([&](CChildProcess&) {
    other->post(1, 0, 0);
    other->stop();
    other = nullptr;
  }).join();
  EXPECT_TRUE(queue->processMessage(kLong));
  EXPECT_TRUE(queue->processMessage(kLong));
  EXPECT_EQ(ticks, 2);
}

TEST_F(WindowTimer, DoesNotTickInAForkedProcess) {
  letATickWait();
  const pid_t child = fork();
  if (child == 0) {
    try {
      queue->processAllMessages();
    } catch (const CInvalidObjectStateError&) {
      _exit(ticks);
    }
    _exit(100);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_TRUE(queue->processMessage(0));
  EXPECT_EQ(ticks, 1);
}

}  // namespace
}  // namespace orlo::posix
