#include "foundation/Error.h"
#include "foundation/WorkerManager.h"
#include "foundation/posix/TimeManager.h"
#include "tests/foundation/TestWorker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orlo {
namespace {

using testing::ElementsAre;

/// A clock that goes when it is told to.
class CSetClock : public posix::CTimeManager {
public:
  std::int64_t getMicroseconds() override { return now * 1000; }

  std::int64_t now = 1000000;
};

class WorkerManager : public testing::Test {
protected:
  P<CTestWorker> worker(std::int32_t interval, std::function<void()> action) {
    return makeObject<CTestWorker>(interval, std::move(action));
  }
  /// A worker that writes its name into the log.
  P<CTestWorker> writer(std::int32_t interval, const std::string& name) {
    return worker(interval, [this, name] { log.push_back(name); });
  }
  void passAt(std::int64_t time, CWorkerManager& of) {
    clock->now = start + time;
    of.work();
  }
  /// The passes of so many milliseconds, at the manager's own interval.
  void passesUntil(std::int64_t end) {
    for (std::int64_t time = 0; time <= end; time += manager.getInterval()) passAt(time, manager);
  }

  P<CSetClock> clock = makeObject<CSetClock>();
  const std::int64_t start = clock->now;
  CWorkerManager manager{clock};
  std::vector<std::string> log;
};

TEST(GcdOfIntervals, IsTheGreatestCommonDivisor) {
  EXPECT_EQ(gcdOfIntervals(40, 60), 20);
  EXPECT_EQ(gcdOfIntervals(60, 40), 20);
  EXPECT_EQ(gcdOfIntervals(7, 7), 7);
  EXPECT_EQ(gcdOfIntervals(7, 9), 1);
}

TEST(GcdOfIntervals, IsOneWithAZero) {
  EXPECT_EQ(gcdOfIntervals(0, 60), 1);
  EXPECT_EQ(gcdOfIntervals(60, 0), 1);
  EXPECT_EQ(gcdOfIntervals(0, 0), 1);
  EXPECT_EQ(gcdOfIntervals(-20, 60), 1);
}

TEST_F(WorkerManager, HasTheIntervalThatServesAllItsWorkers) {
  EXPECT_EQ(manager.getInterval(), 0);
  const P<CTestWorker> forty = writer(40, "40");
  const P<CTestWorker> sixty = writer(60, "60");
  manager.addWorker(forty);
  EXPECT_EQ(manager.getInterval(), 40);
  manager.addWorker(sixty);
  EXPECT_EQ(manager.getInterval(), 20);
  manager.removeWorker(forty.get());
  EXPECT_EQ(manager.getInterval(), 60);
  manager.removeWorker(sixty.get());
  EXPECT_EQ(manager.getInterval(), 0);
}

TEST_F(WorkerManager, CallsWorkersOfFortyAndSixtyInTheRightRhythm) {
  manager.addWorker(worker(40, [this] { log.push_back("40 at " + std::to_string(clock->now - start)); }));
  manager.addWorker(worker(60, [this] { log.push_back("60 at " + std::to_string(clock->now - start)); }));
  ASSERT_EQ(manager.getInterval(), 20);
  passesUntil(120);
  EXPECT_THAT(log, ElementsAre("60 at 0", "40 at 0", "40 at 40", "60 at 60", "40 at 80", "60 at 120", "40 at 120"));
}

TEST_F(WorkerManager, CallsALateWorkerOnceAndThenByItsIntervalFromThere) {
  const P<CTestWorker> late = writer(40, "late");
  manager.addWorker(late);
  passAt(0, manager);
  passAt(1000, manager);
  EXPECT_EQ(log.size(), 2U);
  EXPECT_EQ(late->getNextCallTime(), start + 1040);
}

TEST_F(WorkerManager, KeepsItsWorkersUntilTheyAreRemoved) {
  const P<CTestWorker> kept = writer(40, "kept");
  {
    CWorkerManager other(clock);
    other.addWorker(kept);
    EXPECT_EQ(kept->referenceCount(), 2);
    other.removeWorker(kept.get());
    EXPECT_EQ(kept->referenceCount(), 1);
    other.addWorker(kept);
  }
  EXPECT_EQ(kept->referenceCount(), 1);
}

TEST_F(WorkerManager, CallsNoWorkerThatIsRemovedDuringThePassAndNoneIsPassedOver) {
  const P<CTestWorker> first = writer(20, "first");
  const P<CTestWorker> second = writer(20, "second");
  const P<CTestWorker> third = writer(20, "third");
  const P<CTestWorker> remover = worker(20, [&] {
    log.push_back("remover");
    manager.removeWorker(second.get());
  });
  manager.addWorker(first);
  manager.addWorker(second);
  manager.addWorker(third);
  manager.addWorker(remover);
  passAt(0, manager);
  EXPECT_THAT(log, ElementsAre("remover", "third", "first"));
}

TEST_F(WorkerManager, PassesNobodyOverWhenAWorkerRemovesItself) {
  P<CTestWorker> middle;
  middle = worker(20, [&] {
    log.push_back("middle");
    manager.removeWorker(middle.get());
    middle = nullptr;
  });
  manager.addWorker(writer(20, "first"));
  manager.addWorker(middle);
  manager.addWorker(writer(20, "last"));
  passAt(0, manager);
  EXPECT_THAT(log, ElementsAre("last", "middle", "first"));
  log.clear();
  passAt(20, manager);
  EXPECT_THAT(log, ElementsAre("last", "first"));
}

TEST_F(WorkerManager, CallsNobodyTwiceWhenAWorkerRemovesAnEarlierOne) {
  const P<CTestWorker> first = writer(0, "first");
  P<CTestWorker> remover = worker(0, [&] {
    log.push_back("remover");
    manager.removeWorker(first.get());
  });
  manager.addWorker(first);
  manager.addWorker(writer(0, "second"));
  manager.addWorker(remover);
  passAt(0, manager);
  EXPECT_THAT(log, ElementsAre("remover", "second"));
}

TEST_F(WorkerManager, LeavesANewWorkerForTheNextPass) {
  manager.addWorker(worker(20, [&] {
    log.push_back("adder");
    if (log.size() == 1) manager.addWorker(writer(20, "new"));
  }));
  passAt(0, manager);
  EXPECT_THAT(log, ElementsAre("adder"));
  passAt(20, manager);
  EXPECT_THAT(log, ElementsAre("adder", "new", "adder"));
}

TEST_F(WorkerManager, CallsNoWorkerThatIsRunning) {
  manager.addWorker(worker(0, [&] {
    log.push_back("outer");
    if (log.size() < 5) manager.work();
  }));
  manager.addWorker(writer(0, "other"));
  EXPECT_FALSE(manager.isRunning());
  passAt(0, manager);
  EXPECT_THAT(log, ElementsAre("other", "outer", "other"));
}

TEST_F(WorkerManager, GivesAWorkerThatFailsItsNextTurnLaterSoThatOthersHaveTheirs) {
  const P<CTestWorker> failing = worker(20, [] { throw CError("failed"); });
  manager.addWorker(writer(20, "other"));
  manager.addWorker(failing);
  EXPECT_THROW(passAt(0, manager), CError);
  EXPECT_FALSE(manager.isRunning());
  EXPECT_EQ(failing->getNextCallTime(), start + 20);
  passAt(1, manager);
  EXPECT_THAT(log, ElementsAre("other"));
}

TEST_F(WorkerManager, KeepsTheRhythmWhenTheClockIsSetBack) {
  manager.addWorker(writer(40, "40"));
  passAt(0, manager);
  passAt(20, manager);
  passAt(-3600000, manager);
  passAt(-3600000 + 19, manager);
  EXPECT_EQ(log.size(), 1U);
  passAt(-3600000 + 20, manager);
  EXPECT_EQ(log.size(), 2U);
}

TEST_F(WorkerManager, PassesItsWorkOnToTheManagersBelowFromTheLastToTheFirst) {
  CWorkerManager first(clock);
  CWorkerManager second(clock);
  first.addWorker(writer(40, "of first"));
  second.addWorker(writer(60, "of second"));
  manager.addWorkerManager(&first);
  manager.addWorkerManager(&second);
  manager.addWorker(writer(20, "own"));
  passAt(0, manager);
  EXPECT_THAT(log, ElementsAre("own", "of second", "of first"));
  manager.removeWorkerManager(&second);
  log.clear();
  passAt(120, manager);
  EXPECT_THAT(log, ElementsAre("own", "of first"));
}

TEST_F(WorkerManager, IsToldOfIntervalsThatChangeBelow) {
  CWorkerManager below(clock);
  CWorkerManager lowest(clock);
  manager.addWorker(writer(60, "own"));
  manager.addWorkerManager(&below);
  below.addWorkerManager(&lowest);
  EXPECT_EQ(manager.getInterval(), 60);
  const P<CTestWorker> forty = writer(40, "lowest");
  lowest.addWorker(forty);
  EXPECT_EQ(lowest.getInterval(), 40);
  EXPECT_EQ(below.getInterval(), 40);
  EXPECT_EQ(manager.getInterval(), 20);
  lowest.removeWorker(forty.get());
  EXPECT_EQ(manager.getInterval(), 60);
}

TEST_F(WorkerManager, ForgetsAManagerBelowThatGoes) {
  std::optional<CWorkerManager> below;
  below.emplace(clock);
  below->addWorker(writer(40, "below"));
  manager.addWorker(writer(60, "own"));
  manager.addWorkerManager(&*below);
  EXPECT_EQ(manager.getInterval(), 20);
  below.reset();
  EXPECT_EQ(manager.getInterval(), 60);
  passAt(0, manager);
  EXPECT_THAT(log, ElementsAre("own"));
}

TEST_F(WorkerManager, IsForgottenByTheManagersBelowWhenItGoes) {
  CWorkerManager below(clock);
  {
    CWorkerManager above(clock);
    above.addWorkerManager(&below);
  }
  below.addWorker(writer(40, "below"));
  EXPECT_EQ(below.getInterval(), 40);
}

TEST_F(WorkerManager, IsAWorkerOfItsOwnToo) {
  const P<CWorkerManager> inner = makeObject<CWorkerManager>(clock);
  inner->addWorker(writer(40, "inner"));
  manager.addWorker(inner);
  EXPECT_EQ(manager.getInterval(), 40);
  passAt(0, manager);
  passAt(20, manager);
  EXPECT_THAT(log, ElementsAre("inner"));
  EXPECT_EQ(inner->getNextCallTime(), start + 40);
}

TEST(WorkerManagerOfTheProcess, GoesByTheClockOfTheProcess) {
  CWorkerManager manager;
  const P<CTestWorker> worker = makeObject<CTestWorker>(1000, [] {});
  const std::int64_t before = getTimeManager()->getTime();
  manager.addWorker(worker);
  manager.work();
  EXPECT_GE(worker->getNextCallTime(), before + 1000);
  EXPECT_LE(worker->getNextCallTime(), getTimeManager()->getTime() + 1000);
}

}  // namespace
}  // namespace orlo
