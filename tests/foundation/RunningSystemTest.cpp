#include "foundation/Error.h"
#include "foundation/System.h"
#include "foundation/posix/RunningSystem.h"
#include "tests/foundation/MessageListener.h"
#include "tests/foundation/OpenFiles.h"
#include "tests/foundation/TestWorker.h"
#include "tests/foundation/TextOf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace orlo::posix {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t kLong = 60000;

class CHandler : public CCounted, public ISystemMessageHandler {
public:
  explicit CHandler(std::function<bool(std::uint32_t)> action) : action_(std::move(action)) {}
  bool onSystemMessage(IBase*, std::uint32_t message, std::uintptr_t, std::intptr_t) override {
    return action_(message);
  }

private:
  std::function<bool(std::uint32_t)> action_;
};

P<CTestWorker> worker(
    std::int32_t interval, std::function<void()> action = [] {}) {
  return makeObject<CTestWorker>(interval, std::move(action));
}

class RunningSystem : public testing::Test {
protected:
  /// Processes messages until the condition holds; false if it never does.
  bool processUntil(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kLong);
    while (!condition() && std::chrono::steady_clock::now() < end) system.processMessage(kLong);
    return condition();
  }

  CRunningSystem system;
  std::vector<int> log;
};

TEST_F(RunningSystem, PassesEveryHundredMillisecondsWithNothingToDo) {
  EXPECT_EQ(system.getPassInterval(), 100);
  system.addWorker(worker(0));
  EXPECT_EQ(system.getPassInterval(), 100);
}

TEST_F(RunningSystem, PassesAsOftenAsItsWorkersWantButNotMoreOftenThanEveryTwentyMilliseconds) {
  const P<CTestWorker> fast = worker(5);
  system.addWorker(worker(250));
  EXPECT_EQ(system.getPassInterval(), 250);
  system.addWorker(fast);
  EXPECT_EQ(system.getPassInterval(), 20);
  system.removeWorker(fast.get());
  EXPECT_EQ(system.getPassInterval(), 250);
}

TEST_F(RunningSystem, RaisesAnIntervalOfFiveMillisecondsToTwenty) {
  system.addWorker(worker(5));
  EXPECT_EQ(system.getPassInterval(), 20);
}

TEST_F(RunningSystem, FollowsTheIntervalsOfManagersBelow) {
  CWorkerManager below;
  system.addWorkerManager(&below);
  const P<CTestWorker> forty = worker(40);
  below.addWorker(forty);
  EXPECT_EQ(system.getPassInterval(), 40);
  below.removeWorker(forty.get());
  EXPECT_EQ(system.getPassInterval(), 100);
}

TEST_F(RunningSystem, CallsWorkersWhileMessagesAreProcessed) {
  int own = 0;
  int others = 0;
  CWorkerManager below;
  system.addWorkerManager(&below);
  system.addWorker(worker(20, [&] { ++own; }));
  below.addWorker(worker(40, [&] { ++others; }));
  EXPECT_TRUE(processUntil([&] { return own >= 4 && others >= 2; }));
  EXPECT_GE(own, others);
}

TEST_F(RunningSystem, CallsNobodyUnlessMessagesAreProcessed) {
  int calls = 0;
  system.addWorker(worker(20, [&] { ++calls; }));
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(calls, 0);
  EXPECT_TRUE(processUntil([&] { return calls > 0; }));
}

TEST_F(RunningSystem, IsNotKeptFromItsPassesByWorkersThatComeAndGo) {
  int calls = 0;
  system.addWorker(worker(20, [&] { ++calls; }));
  const P<CTestWorker> passing = worker(5);
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kLong);
  while (calls < 2 && std::chrono::steady_clock::now() < end) {
    system.addWorker(passing);
    system.removeWorker(passing.get());
    system.processMessage();
  }
  EXPECT_EQ(calls, 2);
}

TEST_F(RunningSystem, LetsAnErrorOfAWorkerThrough) {
  system.addWorker(worker(20, [] { throw CError("out"); }));
  EXPECT_THROW(processUntil([] { return false; }), CError);
}

TEST_F(RunningSystem, ProcessesPostedMessages) {
  CMessageWindow window;
  CListener listener([this](std::uint32_t message) {
    log.push_back(static_cast<int>(message));
    return true;
  });
  window.addListener(&listener);
  for (std::uint32_t message = 1; message <= 3; ++message) window.post(message, 0, 0);
  EXPECT_TRUE(system.processMessage());
  EXPECT_THAT(log, ElementsAre(1));
  EXPECT_TRUE(system.processAllMessages());
  EXPECT_THAT(log, ElementsAre(1, 2, 3));
}

TEST_F(RunningSystem, GivesMessagesToItsHandlersFirstFromTheLastToTheFirst) {
  CMessageWindow window;
  CListener listener([this](std::uint32_t) {
    log.push_back(0);
    return true;
  });
  CHandler first([this](std::uint32_t) {
    log.push_back(1);
    return false;
  });
  std::optional<CHandler> last;
  last.emplace([&](std::uint32_t message) {
    log.push_back(2);
    if (message == 9) system.removeMessageHandler(&*last);
    return message == 8;
  });
  window.addListener(&listener);
  system.addMessageHandler(&first);
  system.addMessageHandler(&*last);
  const auto post = [&](std::uint32_t message) {
    log.clear();
    window.post(message, 0, 0);
    ASSERT_TRUE(system.processMessage());
  };
  post(7);
  EXPECT_THAT(log, ElementsAre(2, 1, 0));
  post(8);
  EXPECT_THAT(log, ElementsAre(2));
  post(9);
  EXPECT_THAT(log, ElementsAre(2, 1, 0));
  post(7);
  EXPECT_THAT(log, ElementsAre(1, 0));
  system.removeMessageHandler(&first);
}

TEST_F(RunningSystem, GivesTicksToItsHandlersToo) {
  int calls = 0;
  bool ticked = false;
  CHandler handler([&](std::uint32_t message) { return ticked = message == CWindowTimer::kTimerMessage; });
  system.addWorker(worker(20, [&] { ++calls; }));
  system.addMessageHandler(&handler);
  EXPECT_TRUE(processUntil([&] { return ticked; }));
  EXPECT_EQ(calls, 0);
  system.removeMessageHandler(&handler);
}

TEST_F(RunningSystem, ProcessesMessagesOnItsOwnThreadOnly) {
  std::thread([this] {
    EXPECT_THROW(system.processMessage(), CInvalidObjectStateError);
    EXPECT_THROW(system.processAllMessages(), CInvalidObjectStateError);
  }).join();
}

TEST_F(RunningSystem, HasNoThread) {
  const std::size_t before = threadCount();
  const CRunningSystem other;
  EXPECT_EQ(threadCount(), before);
}

TEST_F(RunningSystem, LeavesNothingOpen) {
  const std::set<int> before = openFiles();
  { const CRunningSystem other; }
  EXPECT_EQ(openFiles(), before);
}

TEST_F(RunningSystem, MayEndOnAnotherThread) {
  P<CRunningSystem> other = makeObject<CRunningSystem>();
  other->addWorker(worker(20, [this] { log.push_back(1); }));
  std::thread([&] { other = nullptr; }).join();
  system.processMessage(50);
  EXPECT_THAT(log, ElementsAre());
}

TEST_F(RunningSystem, SeedsTheRandomNumbersOfTheRuntime) {
  std::srand(1);
  const int first = std::rand();
  std::srand(1);
  const CRunningSystem other;
  EXPECT_NE(std::rand(), first);
}

void useSystem() {
  getSystem()->addWorker(worker(20));
  getSystem()->processMessage(kLong);
}

TEST(RunningSystemAtStart, SaysSoWhenItCanNotBeMadeAndIsMadeOnceItCan) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer needs a descriptor to see what kind an object is";
#endif
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        rlimit before{};
        getrlimit(RLIMIT_NOFILE, &before);
        rlimit none = before;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_NOFILE, &none);
        std::string message;
        try {
          getSystem();
        } catch (const CError& error) {
          message = messageOf(error);
        }
        setrlimit(RLIMIT_NOFILE, &before);
        useSystem();
        std::exit(message == "Error creating window." ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(RunningSystemAtExit, EndsWithItsProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        useSystem();
        std::exit(0);
      },
      testing::ExitedWithCode(0), "");
}

TEST(RunningSystemAtExit, EndsOnAThreadThatDidNotMakeIt) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        useSystem();
        std::thread([] { std::exit(0); }).join();
      },
      testing::ExitedWithCode(0), "");
}

TEST(RunningSystemAtExit, EndsAfterTheThreadThatMadeIt) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        std::thread([] { useSystem(); }).join();
        std::exit(0);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace orlo::posix
