#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "foundation/Signal.h"
#include "foundation/ThreadLocalStorage.h"
#include "foundation/ThreadManager.h"
#include "tests/foundation/ActionOf.h"
#include "tests/foundation/Counted.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <functional>
#include <pthread.h>
#include <sched.h>
#include <stdexcept>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace orlo {
namespace {

constexpr std::uint32_t kLong = 60000;

P<IThread> startThread(std::function<void()> action) {
  return getThreadManager()->createThread(makeObject<CActionOf>(std::move(action)));
}

TEST(Thread, RunsItsActionBesideItsCreator) {
  std::uint32_t id = 0;
  const P<IThread> thread = startThread([&] { id = getThreadManager()->getCurrentThreadId(); });
  EXPECT_TRUE(thread->waitForEnd(IThread::kForever));
  EXPECT_NE(id, 0U);
  EXPECT_NE(id, getThreadManager()->getCurrentThreadId());
  EXPECT_FALSE(thread->getError());
}

TEST(Thread, IsWaitedForAsLongAsAsked) {
  const P<ISignal> mayEnd = getSignalFactory()->createSignal();
  const P<IThread> thread = startThread([&] { mayEnd->wait(); });
  EXPECT_FALSE(thread->waitForEnd(0));
  EXPECT_FALSE(thread->waitForEnd(20));
  mayEnd->set();
  EXPECT_TRUE(thread->waitForEnd(kLong));
  EXPECT_TRUE(thread->waitForEnd(0));
}

TEST(Thread, IsWaitedForByAllWhoAsk) {
  const P<ISignal> mayEnd = getSignalFactory()->createSignal();
  const P<IThread> thread = startThread([&] { mayEnd->wait(); });
  std::atomic<int> seen{0};
  std::vector<P<IThread>> waiting;
  for (int i = 0; i < 4; ++i) {
    waiting.push_back(startThread([&, i] {
      if (thread->waitForEnd(i % 2 ? IThread::kForever : kLong)) ++seen;
    }));
  }
  mayEnd->set();
  for (const P<IThread>& waiter : waiting) EXPECT_TRUE(waiter->waitForEnd(IThread::kForever));
  EXPECT_EQ(seen, 4);
}

TEST(Thread, NeverSeesItsOwnEnd) {
  const P<ISignal> known = getSignalFactory()->createSignal();
  P<IThread> thread;
  bool seen = true;
  thread = startThread([&] {
    known->wait();
    seen = thread->waitForEnd(IThread::kForever);
  });
  known->set();
  EXPECT_TRUE(thread->waitForEnd(kLong));
  EXPECT_FALSE(seen);
}

TEST(Thread, IsNotTakenForALaterOneThatHasGotItsId) {
  pthread_t id{};
  const P<IThread> ended = startThread([&] { id = pthread_self(); });
  ASSERT_TRUE(ended->waitForEnd(kLong));
  bool hasItsId = false;
  bool seen = false;
  for (int i = 0; i < 100 && !hasItsId; ++i) {
    const P<IThread> later = startThread([&] {
      hasItsId = pthread_equal(id, pthread_self());
      seen = ended->waitForEnd(0);
    });
    ASSERT_TRUE(later->waitForEnd(kLong));
    EXPECT_TRUE(seen);
  }
  if (!hasItsId) GTEST_SKIP() << "no thread has got the id of another";
}

TEST(Thread, RunsOnWhenNobodyHoldsItAnyMore) {
  const P<ISignal> dropped = getSignalFactory()->createSignal();
  const P<ISignal> ended = getSignalFactory()->createSignal();
  startThread([=] {
    dropped->wait();
    ended->set();
  });
  EXPECT_FALSE(ended->wait(0));
  dropped->set();
  EXPECT_TRUE(ended->wait(kLong));
}

TEST(Thread, MayDropItselfLast) {
  const P<ISignal> known = getSignalFactory()->createSignal();
  const P<ISignal> gone = getSignalFactory()->createSignal();
  P<IThread> thread;
  thread = startThread([&thread, known, gone] {
    known->wait();
    thread = nullptr;
    gone->set();
  });
  known->set();
  EXPECT_TRUE(gone->wait(kLong));
}

TEST(Thread, ReleasesItsActionWhenItEnds) {
  const P<CCounted> held = makeObject<CCounted>();
  const P<IThread> thread = startThread([held] { EXPECT_GT(held->referenceCount(), 1); });
  EXPECT_TRUE(thread->waitForEnd(kLong));
  EXPECT_EQ(held->referenceCount(), 1);
}

TEST(Thread, ReleasesWhatItKeptInItsSlotsBeforeItHasEnded) {
  CThreadLocalStorage storage;
  CCounted object;
  const P<IThread> thread = startThread([&] {
    storage.set(P<IBase>(&object));
    EXPECT_EQ(object.referenceCount(), 2);
  });
  EXPECT_TRUE(thread->waitForEnd(kLong));
  EXPECT_EQ(object.referenceCount(), 1);
}

TEST(Thread, IsEndedByAnErrorAndKeepsIt) {
  const P<IThread> own = startThread([] { throw CParseError("no number"); });
  const P<IThread> standard = startThread([] { throw std::runtime_error("out of luck"); });
  const P<IThread> other = startThread([] { throw 7; });
  for (const P<IThread>& thread : {own, standard, other}) ASSERT_TRUE(thread->waitForEnd(kLong));
  EXPECT_TRUE(tryCast<CParseError>(own->getError()));
  EXPECT_EQ(messageOf(*own->getError()), "no number");
  EXPECT_EQ(messageOf(*standard->getError()), "out of luck");
  EXPECT_EQ(messageOf(*other->getError()), "Unspecified error");
}

TEST(Thread, CleansUpAfterAnErrorToo) {
  CThreadLocalStorage storage;
  CCounted object;
  const P<IThread> thread = startThread([&] {
    storage.set(P<IBase>(&object));
    throw CError("out");
  });
  EXPECT_TRUE(thread->waitForEnd(kLong));
  EXPECT_EQ(object.referenceCount(), 1);
}

TEST(Thread, EndsWhenItsActionEndsItByHand) {
  const P<IThread> thread = startThread([] { pthread_exit(nullptr); });
  EXPECT_TRUE(thread->waitForEnd(kLong));
  EXPECT_FALSE(thread->getError());
}

TEST(Thread, CanNotBeMadeWithoutMemoryForItsStack) {
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_STACK, &before), 0);
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_getattr_default_np(&attributes), 0);
  std::size_t size = 0;
  pthread_attr_getstacksize(&attributes, &size);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, std::size_t{1} << 47), 0);
  ASSERT_EQ(pthread_setattr_default_np(&attributes), 0);
  try {
    startThread([] {});
    ADD_FAILURE() << "a thread with a stack as large as the address space";
  } catch (const CError& error) {
    EXPECT_EQ(messageOf(error), "Error creating thread (Resource temporarily unavailable).");
  }
  pthread_attr_setstacksize(&attributes, size);
  pthread_setattr_default_np(&attributes);
  pthread_attr_destroy(&attributes);
}

TEST(Thread, DoesNotKeepItsProcessFromItsEnd) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const P<ISignal> never = getSignalFactory()->createSignal();
        const P<ISignal> runs = getSignalFactory()->createSignal();
        startThread([=] {
          runs->set();
          never->wait();
        });
        runs->wait();
        std::exit(0);
      },
      testing::ExitedWithCode(0), "");
}

/// A thread that tells its nice value and policy when it is asked to.
class CAskedThread {
public:
  CAskedThread() {
    thread_ = startThread([this] {
      ask_->wait();
      nice_ = getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
      policy_ = sched_getscheduler(0);
    });
  }
  ~CAskedThread() { end(); }
  CAskedThread(const CAskedThread&) = delete;
  CAskedThread& operator=(const CAskedThread&) = delete;

  IThread& thread() { return *thread_; }
  int nice() {
    end();
    return nice_;
  }
  int policy() {
    end();
    return policy_;
  }

private:
  void end() {
    ask_->set();
    thread_->waitForEnd(IThread::kForever);
  }

  P<ISignal> ask_ = getSignalFactory()->createSignal();
  int nice_ = 0;
  int policy_ = 0;
  P<IThread> thread_;
};

TEST(ThreadPriority, IsLoweredByTheNiceValueOfTheThreadAlone) {
  const int own = getpriority(PRIO_PROCESS, 0);
  CAskedThread low;
  CAskedThread lowest;
  low.thread().setPriority(ThreadPriority::low);
  lowest.thread().setPriority(ThreadPriority::lowest);
  EXPECT_EQ(low.nice(), std::min(own + 5, 19));
  EXPECT_EQ(lowest.nice(), std::min(own + 10, 19));
  EXPECT_EQ(getpriority(PRIO_PROCESS, 0), own);
}

TEST(ThreadPriority, IsThatOfTheCreatorWhenNormal) {
  CAskedThread thread;
  thread.thread().setPriority(ThreadPriority::normal);
  EXPECT_EQ(thread.nice(), getpriority(PRIO_PROCESS, 0));
}

TEST(ThreadPriority, HasAnIdleClassOfItsOwn) {
  CAskedThread thread;
  thread.thread().setPriority(ThreadPriority::idle);
  EXPECT_EQ(thread.policy(), SCHED_IDLE);
}

TEST(ThreadPriority, LeavesTheIdleClassWhereTheSystemAllowsIt) {
  CAskedThread thread;
  thread.thread().setPriority(ThreadPriority::idle);
  try {
    thread.thread().setPriority(ThreadPriority::low);
    EXPECT_EQ(thread.policy(), SCHED_OTHER);
    EXPECT_EQ(thread.nice(), std::min(getpriority(PRIO_PROCESS, 0) + 5, 19));
  } catch (const CError& error) {
    EXPECT_EQ(messageOf(error), "Error setting thread priority");
    EXPECT_EQ(thread.policy(), SCHED_IDLE);
  }
}

TEST(ThreadPriority, IsRaisedWhereTheSystemAllowsItAndElseAnError) {
  const int own = getpriority(PRIO_PROCESS, 0);
  CAskedThread thread;
  try {
    thread.thread().setPriority(ThreadPriority::high);
    EXPECT_EQ(thread.nice(), std::max(own - 5, -20));
  } catch (const CError& error) {
    EXPECT_EQ(messageOf(error), "Error setting thread priority");
    EXPECT_EQ(thread.nice(), own);
  }
}

TEST(ThreadPriority, OfAnEndedThreadIsAnError) {
  const P<IThread> thread = startThread([] {});
  ASSERT_TRUE(thread->waitForEnd(kLong));
  try {
    thread->setPriority(ThreadPriority::low);
    ADD_FAILURE();
  } catch (const CError& error) {
    EXPECT_EQ(messageOf(error), "Error setting thread priority");
  }
}

TEST(ThreadLocalStorage, IsSafeWhileThreadsEndAndOthersAllocate) {
  constexpr int kThreads = 60;
  CThreadLocalStorage common;
  CCounted kept;
  std::vector<P<IThread>> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.push_back(startThread([&] {
      common.set(P<IBase>(&kept));
      CThreadLocalStorage own;
      own.set(P<IBase>(&kept));
      EXPECT_EQ(cast<CCounted>(own.get()), &kept);
    }));
    CThreadLocalStorage mine;
    mine.set(P<IBase>(&kept));
    EXPECT_EQ(cast<CCounted>(mine.get()), &kept);
  }
  for (const P<IThread>& thread : threads) EXPECT_TRUE(thread->waitForEnd(IThread::kForever));
  EXPECT_EQ(kept.referenceCount(), 1);
}

}  // namespace
}  // namespace orlo
