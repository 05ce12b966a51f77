#include "foundation/posix/FileValueStore.h"
#include "tests/foundation/ChildProcess.h"
#include "tests/foundation/TemporaryFolder.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orlo::posix {
namespace {

String nameOf(int number) {
  return fromUTF8("key " + std::to_string(number));
}

TEST(FileValueStoreOfTwoProcesses, ShowsEachWhatTheOtherWrites) {
  const CTemporaryFolder folder;
  const String file = fromUTF8((folder / "settings.conf").string());
  CFileValueStore store(file);
  store.setInt("x", 1);
  CChildProcess child([&](CChildProcess& self) {
    CFileValueStore own(file);
    const bool seen = own.getInt("x", 0) == 1;
    own.setInt("y", seen ? 2 : -1);
    self.tell();
    self.waitForParent();
    own.setInt("z", own.getInt("x", 0));
  });
  child.waitForWord();
  EXPECT_EQ(store.getInt("y", 0), 2);
  store.setInt("x", 3);
  child.goOn();
  child.join();
  EXPECT_EQ(store.getInt("x", 0), 3);
  EXPECT_EQ(store.getInt("y", 0), 2);
  EXPECT_EQ(store.getInt("z", 0), 3);
}

TEST(FileValueStoreOfTwoProcesses, LosesNothingWhenBothWrite) {
  constexpr int kWrites = 60;
  const CTemporaryFolder folder;
  const String file = fromUTF8((folder / "settings.conf").string());
  const auto write = [&file](int first) {
    CFileValueStore store(file);
    for (int i = 0; i < kWrites; ++i) {
      store.setInt(nameOf(first + i), i);
      if (i % 5 == 4) store.removeValue(nameOf(first + i - 2));
    }
  };
  CChildProcess one([&](CChildProcess& self) {
    self.waitForParent();
    write(0);
  });
  CChildProcess two([&](CChildProcess& self) {
    self.waitForParent();
    write(1000);
  });
  one.goOn();
  two.goOn();
  write(2000);
  one.join();
  two.join();
  const CFileValueStore store(file);
  for (const int first : {0, 1000, 2000})
    for (int i = 0; i < kWrites; ++i) EXPECT_EQ(store.getInt(nameOf(first + i), -1), i % 5 == 2 ? -1 : i) << first + i;
}

/// Sets numbers one after the other, and tells of each that is set. Returns when it is killed.
[[noreturn]] void writeForever(const String& file, int first, int told) {
  CFileValueStore store(file);
  for (int number = first;; ++number) {
    store.setInt(nameOf(number % 50), number);
    if (write(told, &number, sizeof(number)) != sizeof(number)) _exit(1);
  }
}

TEST(FileValueStoreOfTwoProcesses, KeepsWhatWasWrittenWhenAWriterIsKilled) {
  const CTemporaryFolder folder;
  const auto path = folder / "settings.conf";
  const String file = fromUTF8(path.string());
  writeFile(path, "# kept\nalways = \"there\"\n");
  int last = 0;
  for (int round = 0; round < 25; ++round) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t writer = fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
      // Keeps the pipe's end out of the way, so that the parent sees the writer's end.
      close(ends[0]);
      writeForever(file, last + 1, ends[1]);
    }
    close(ends[1]);
    // At a moment that has nothing to do with what the writer is about.
    int number = 0;
    ASSERT_EQ(read(ends[0], &number, sizeof(number)), static_cast<ssize_t>(sizeof(number)));
    std::this_thread::sleep_for(std::chrono::microseconds(137 * round * round % 9001));
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
    last = number;
    while (read(ends[0], &number, sizeof(number)) == static_cast<ssize_t>(sizeof(number))) last = number;
    close(ends[0]);

    CFileValueStore store(file);
    ASSERT_EQ(textOf(store.getString("always", nullptr)), "there");
    // The one after it may have been written but not told of.
    for (int told = std::max(1, last - 48); told <= last; ++told) ASSERT_EQ(store.getInt(nameOf(told % 50), -1), told);
    const int next = store.getInt(nameOf((last + 1) % 50), last + 1);
    ASSERT_TRUE(next == last + 1 || next == last - 49);
  }
  EXPECT_EQ(contentOf(path).substr(0, 7), "# kept\n");
}

TEST(FileValueStoreOfTwoProcesses, TakesOverFromOneThatDiedWithTheLock) {
  const CTemporaryFolder folder;
  const auto path = folder / "settings.conf";
  const String file = fromUTF8(path.string());
  CFileValueStore store(file);
  store.setInt("x", 1);
  CChildProcess child([&](CChildProcess& self) {
    CValueFile(file).change([&](CValueDocument& document) {
      document.setValue({}, "x", {2});
      writeFile(path.parent_path() / ".settings.conf.new", "x = ");
      self.tell();
      _exit(0);
    });
  });
  child.waitForWord();
  store.setInt("y", 3);
  EXPECT_EQ(store.getInt("x", 0), 1);
  EXPECT_EQ(contentOf(path), "x = 1\ny = 3\n");
}

}  // namespace
}  // namespace orlo::posix
