#include "foundation/Error.h"
#include "foundation/Signal.h"
#include "foundation/posix/MessageWindow.h"
#include "tests/foundation/Counted.h"
#include "tests/foundation/MessageListener.h"
#include "tests/foundation/OpenFiles.h"
#include "tests/foundation/TextOf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <optional>
#include <poll.h>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace orlo::posix {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t kLong = 60000;

class CDestructListener : public CCounted, public IObjectDestructListener {
public:
  explicit CDestructListener(std::function<void(IBase*)> action) : action_(std::move(action)) {}
  void onObjectDestruct(IBase* object) override { action_(object); }

private:
  std::function<void(IBase*)> action_;
};

/// A listener that writes its number into a log and has that answer.
class CLogListener : public CListener {
public:
  CLogListener(std::vector<int>& log, int number, bool answer = false)
      : CListener([&log, number, answer](std::uint32_t) {
          log.push_back(number);
          return answer;
        }) {}
};

bool isReadable(int file) {
  pollfd waiting{file, POLLIN, 0};
  return poll(&waiting, 1, 0) == 1;
}

class MessageWindow : public testing::Test {
protected:
  bool processMessage(std::uint32_t milliseconds = 0) { return queue->processMessage(milliseconds); }
  bool processAllMessages() { return queue->processAllMessages(); }

  P<CMessageQueue> queue = CMessageQueue::ofThisThread();
  std::vector<int> log;
};

TEST_F(MessageWindow, GivesWhatIsPostedToItsListenersWhenItsThreadProcessesMessages) {
  struct CAll : CCounted, CMessageWindow::IMessageListener {
    bool onMessage(CMessageWindow* of, std::uint32_t number, std::uintptr_t w, std::intptr_t l) override {
      window = of;
      message = number;
      wParam = w;
      lParam = l;
      return true;
    }
    CMessageWindow* window = nullptr;
    std::uint32_t message = 0;
    std::uintptr_t wParam = 0;
    std::intptr_t lParam = 0;
  } listener;
  CMessageWindow window;
  window.addListener(&listener);
  EXPECT_TRUE(window.post(1024, UINTPTR_MAX, INTPTR_MIN));
  EXPECT_EQ(listener.window, nullptr);
  EXPECT_TRUE(processMessage());
  EXPECT_EQ(listener.window, &window);
  EXPECT_EQ(listener.message, 1024U);
  EXPECT_EQ(listener.wParam, UINTPTR_MAX);
  EXPECT_EQ(listener.lParam, INTPTR_MIN);
  EXPECT_FALSE(processMessage());
}

TEST_F(MessageWindow, KeepsTheOrderOfItsMessages) {
  CMessageWindow window;
  CListener listener([this](std::uint32_t message) {
    log.push_back(static_cast<int>(message));
    return true;
  });
  window.addListener(&listener);
  for (std::uint32_t i = 1; i <= 3; ++i) window.post(i, 0, 0);
  EXPECT_TRUE(processMessage());
  EXPECT_THAT(log, ElementsAre(1));
  EXPECT_TRUE(processAllMessages());
  EXPECT_THAT(log, ElementsAre(1, 2, 3));
  EXPECT_FALSE(processAllMessages());
}

TEST_F(MessageWindow, AsksItsListenersFromTheLastToTheFirstUntilOneHandlesTheMessage) {
  CMessageWindow window;
  CLogListener first(log, 1);
  CLogListener second(log, 2, true);
  CLogListener third(log, 3);
  for (CListener* listener : {&first, &second, &third}) window.addListener(listener);
  window.post(0, 0, 0);
  processAllMessages();
  EXPECT_THAT(log, ElementsAre(3, 2));
  window.removeListener(&second);
  window.post(0, 0, 0);
  processAllMessages();
  EXPECT_THAT(log, ElementsAre(3, 2, 3, 1));
}

TEST_F(MessageWindow, LetsListenersTakeThemselvesAndOthersOut) {
  CMessageWindow window;
  CLogListener first(log, 1);
  CLogListener second(log, 2);
  std::optional<CListener> third;
  third.emplace([&](std::uint32_t) {
    log.push_back(3);
    window.removeListener(&*third);
    window.removeListener(&first);
    return false;
  });
  for (CListener* listener : {static_cast<CListener*>(&first), static_cast<CListener*>(&second), &*third})
    window.addListener(listener);
  window.post(0, 0, 0);
  processAllMessages();
  EXPECT_THAT(log, ElementsAre(3, 2));
  window.post(0, 0, 0);
  processAllMessages();
  EXPECT_THAT(log, ElementsAre(3, 2, 2));
}

TEST_F(MessageWindow, DoesNotTouchAListenerThatEndsDuringTheWalk) {
  CMessageWindow window;
  P<CListener> first = makeObject<CLogListener>(log, 1);
  CListener second([&](std::uint32_t) {
    window.removeListener(first.get());
    first = nullptr;
    return false;
  });
  window.addListener(first.get());
  window.addListener(&second);
  window.post(0, 0, 0);
  processAllMessages();
  EXPECT_THAT(log, ElementsAre());
}

TEST_F(MessageWindow, DoesNotKeepItsListeners) {
  CLogListener listener(log, 1);
  CMessageWindow window;
  window.addListener(&listener);
  EXPECT_EQ(listener.referenceCount(), 1);
}

TEST_F(MessageWindow, TellsDestructListenersFromTheLastToTheFirstWhileItIsStillThere) {
  std::optional<CMessageWindow> window;
  window.emplace();
  IBase* const address = &*window;
  CDestructListener first([&](IBase* object) { log.push_back(object == address ? 1 : -1); });
  CDestructListener taken([&](IBase*) { log.push_back(2); });
  CDestructListener last([&](IBase* object) {
    const P<IBase> again(object);
    log.push_back(3);
    window->removeDestructListener(&last);
  });
  window->addDestructListener(&first);
  window->addDestructListener(&taken);
  window->addDestructListener(&last);
  window->removeDestructListener(&taken);
  window.reset();
  EXPECT_THAT(log, ElementsAre(3, 1));
}

TEST_F(MessageWindow, ForgetsWhatWaitsForItWhenItGoes) {
  CLogListener listener(log, 1);
  {
    CMessageWindow window;
    window.addListener(&listener);
    window.post(0, 0, 0);
  }
  EXPECT_FALSE(isReadable(queue->getHandle()));
  EXPECT_FALSE(processMessage());
  EXPECT_THAT(log, ElementsAre());
}

TEST_F(MessageWindow, MayLoseItsLastReferenceInAListener) {
  P<CMessageWindow> window = makeObject<CMessageWindow>();
  CLogListener first(log, 1);
  CListener second([&](std::uint32_t) {
    window = nullptr;
    return false;
  });
  window->addListener(&first);
  window->addListener(&second);
  window->post(0, 0, 0);
  EXPECT_TRUE(processMessage());
  EXPECT_THAT(log, ElementsAre(1));
}

TEST_F(MessageWindow, IsNotReachedByWhatAFilterHandles) {
  CMessageWindow window;
  CLogListener listener(log, 1);
  window.addListener(&listener);
  window.post(7, 0, 0);
  window.post(8, 0, 0);
  queue->processAllMessages([&](const CMessage& message) {
    EXPECT_EQ(message.window, &window);
    return message.message == 7;
  });
  EXPECT_THAT(log, ElementsAre(1));
}

TEST_F(MessageWindow, MayGoInAFilter) {
  CLogListener listener(log, 1);
  std::optional<CMessageWindow> window;
  window.emplace();
  window->addListener(&listener);
  window->post(7, 0, 0);
  queue->processAllMessages([&](const CMessage&) {
    window.reset();
    return false;
  });
  EXPECT_THAT(log, ElementsAre());
}

TEST_F(MessageWindow, LeavesWhatIsPostedWhileAllMessagesAreProcessedForTheNextTime) {
  CMessageWindow window;
  CListener endless([&](std::uint32_t) {
    log.push_back(1);
    return window.post(0, 0, 0);
  });
  window.addListener(&endless);
  window.post(0, 0, 0);
  EXPECT_TRUE(processAllMessages());
  EXPECT_THAT(log, ElementsAre(1));
  EXPECT_TRUE(processAllMessages());
  EXPECT_THAT(log, ElementsAre(1, 1));
}

TEST_F(MessageWindow, LetsAListenerProcessMessagesItself) {
  CMessageWindow window;
  CListener listener([&](std::uint32_t message) {
    log.push_back(static_cast<int>(message));
    if (message == 1) processAllMessages();
    return true;
  });
  window.addListener(&listener);
  for (std::uint32_t i = 1; i <= 3; ++i) window.post(i, 0, 0);
  processAllMessages();
  EXPECT_THAT(log, ElementsAre(1, 2, 3));
}

TEST_F(MessageWindow, LosesNoOtherMessageToAnErrorOfAListener) {
  CMessageWindow window;
  CListener listener([&](std::uint32_t message) {
    if (message == 1) throw CError("out");
    log.push_back(static_cast<int>(message));
    return true;
  });
  window.addListener(&listener);
  window.post(1, 0, 0);
  window.post(2, 0, 0);
  EXPECT_THROW(processAllMessages(), CError);
  EXPECT_TRUE(processAllMessages());
  EXPECT_THAT(log, ElementsAre(2));
}

TEST_F(MessageWindow, RefusesWhatIsTooMuch) {
  CMessageWindow window;
  for (std::size_t i = 0; i < CMessageQueue::kMaxPosts; ++i) ASSERT_TRUE(window.post(0, 0, 0));
  EXPECT_FALSE(window.post(0, 0, 0));
  EXPECT_TRUE(processMessage());
  EXPECT_TRUE(window.post(0, 0, 0));
}

TEST_F(MessageWindow, HasAFileThatIsReadableAsLongAsAMessageWaits) {
  CMessageWindow window;
  EXPECT_FALSE(isReadable(window.getHandle()));
  window.post(0, 0, 0);
  window.post(0, 0, 0);
  EXPECT_TRUE(isReadable(window.getHandle()));
  processMessage();
  EXPECT_TRUE(isReadable(window.getHandle()));
  processMessage();
  EXPECT_FALSE(isReadable(window.getHandle()));
}

TEST_F(MessageWindow, IsWaitedForAsLongAsAsked) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(processMessage(30));
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
}

TEST_F(MessageWindow, WakesItsThreadWithWhatAnotherPosts) {
  CMessageWindow window;
  CLogListener listener(log, 1);
  window.addListener(&listener);
  for (const std::uint32_t wait : {kLong, CMessageQueue::kForever}) {
    std::thread other([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      window.post(0, 0, 0);
    });
    EXPECT_TRUE(processMessage(wait));
    other.join();
  }
  EXPECT_THAT(log, ElementsAre(1, 1));
}

TEST_F(MessageWindow, GetsAllThatManyThreadsPostWhileMessagesAreProcessed) {
  constexpr std::uint32_t kThreads = 4;
  constexpr std::uintptr_t kEach = 5000;
  struct CCollector : CCounted, CMessageWindow::IMessageListener {
    bool onMessage(CMessageWindow*, std::uint32_t thread, std::uintptr_t number, std::intptr_t) override {
      inOrder = inOrder && next[thread] == number;
      next[thread] = number + 1;
      ++count;
      return true;
    }
    std::array<std::uintptr_t, kThreads> next{};
    bool inOrder = true;
    std::uintptr_t count = 0;
  } collector;
  CMessageWindow window;
  window.addListener(&collector);
  std::vector<std::thread> threads;
  for (std::uint32_t thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&, thread] {
      for (std::uintptr_t i = 0; i < kEach; ++i)
        while (!window.post(thread, i, 0)) std::this_thread::yield();
    });
  }
  while (collector.count < kThreads * kEach) {
    ASSERT_TRUE(processMessage(kLong));
    processAllMessages();
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_TRUE(collector.inOrder);
  EXPECT_FALSE(processMessage());
}

TEST_F(MessageWindow, BelongsToTheThreadThatCreatedIt) {
  CMessageWindow window;
  CLogListener listener(log, 1);
  window.addListener(&listener);
  std::thread([&] {
    CMessageWindow other;
    window.post(0, 0, 0);
    EXPECT_NE(other.getHandle(), window.getHandle());
    EXPECT_FALSE(CMessageQueue::ofThisThread()->processAllMessages());
    EXPECT_THROW(queue->processMessage(0), CInvalidObjectStateError);
    EXPECT_THROW(queue->processAllMessages(), CInvalidObjectStateError);
  }).join();
  EXPECT_THAT(log, ElementsAre());
  EXPECT_TRUE(processMessage());
  EXPECT_THAT(log, ElementsAre(1));
}

TEST_F(MessageWindow, OutlivesItsThread) {
  P<CMessageWindow> window;
  std::thread([&] { window = makeObject<CMessageWindow>(); }).join();
  EXPECT_TRUE(window->post(0, 0, 0));
  EXPECT_TRUE(isReadable(window->getHandle()));
  window = nullptr;
}

TEST_F(MessageWindow, HasNoThreadOfItsOwn) {
  const std::size_t before = threadCount();
  const CMessageWindow window;
  EXPECT_EQ(threadCount(), before);
}

TEST_F(MessageWindow, HasFilesThatProgramsStartedFromHereDoNotGet) {
  const std::set<int> before = openFiles();
  std::thread([&] {
    const CMessageWindow window;
    const std::set<int> now = openFiles();
    EXPECT_GT(now.size(), before.size());
    for (const int file : now) EXPECT_TRUE(before.contains(file) || fcntl(file, F_GETFD) & FD_CLOEXEC) << file;
  }).join();
  EXPECT_EQ(openFiles(), before);
}

TEST_F(MessageWindow, SaysSoWhenItCanNotBeMade) {
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  std::string message;
  std::thread([&] {
    rlimit none = before;
    none.rlim_cur = 0;
    setrlimit(RLIMIT_NOFILE, &none);
    try {
      const CMessageWindow window;
    } catch (const CError& error) {
      message = messageOf(error);
    }
    setrlimit(RLIMIT_NOFILE, &before);
  }).join();
  EXPECT_EQ(message, "Error creating window.");
}

}  // namespace
}  // namespace orlo::posix
