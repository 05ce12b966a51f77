#pragma once

#include "tests/foundation_system/TestFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <functional>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>

/// Runs an action in a process of its own that sees a small file system in memory at the folder. The action answers
/// what is wrong, if anything is. The test is skipped where a process may not mount anything.
class CSmallDisk {
public:
  static void run(const std::string& folder, const std::string& size, const std::function<std::string()>& action) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
      if (!mountAt(folder, size)) _exit(kNotPermitted);
      std::string fault;
      try {
        fault = action();
      } catch (const std::exception& error) {
        fault = std::string("threw: ") + error.what();
      }
      static_cast<void>(!write(ends[1], fault.data(), fault.size()));
      _exit(fault.empty() ? 0 : 1);
    }
    close(ends[1]);
    std::string fault;
    char block[4096];
    for (ssize_t count; (count = read(ends[0], block, sizeof block)) > 0;)
      fault.append(block, static_cast<std::size_t>(count));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status)) << "the process died";
    if (WEXITSTATUS(status) == kNotPermitted) GTEST_SKIP() << "no file system may be mounted here";
    EXPECT_EQ(fault, "");
    EXPECT_EQ(WEXITSTATUS(status), 0);
  }

private:
  static constexpr int kNotPermitted = 77;

  static void put(const char* file, const std::string& text) {
    const int handle = open(file, O_WRONLY);
    static_cast<void>(!write(handle, text.data(), text.size()));
    close(handle);
  }

  static bool mountAt(const std::string& folder, const std::string& size) {
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    if (unshare(CLONE_NEWNS) != 0) {
      if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
      put("/proc/self/setgroups", "deny");
      put("/proc/self/uid_map", user + " " + user + " 1");
      put("/proc/self/gid_map", group + " " + group + " 1");
    }
    mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
    return mount("small", folder.c_str(), "tmpfs", 0, ("size=" + size + ",mode=0777").c_str()) == 0;
  }
};
