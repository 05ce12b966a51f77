#pragma once

#include <cstdlib>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

/// A copy of this process that runs an action and dies without cleaning up. It can tell its parent once that it has
/// come somewhere, and wait once for the parent's word.
class CChildProcess {
public:
  explicit CChildProcess(const std::function<void(CChildProcess&)>& action) {
    if (pipe(toParent_) != 0 || pipe(toChild_) != 0) std::abort();
    pid_ = fork();
    if (pid_ != 0) return;
    action(*this);
    _exit(0);
  }
  ~CChildProcess() {
    for (const int end : {toParent_[0], toParent_[1], toChild_[0], toChild_[1]}) close(end);
    if (pid_ > 0) join();
  }
  CChildProcess(const CChildProcess&) = delete;
  CChildProcess& operator=(const CChildProcess&) = delete;

  /// In the child.
  void tell() const { send(toParent_[1]); }
  void waitForParent() const { receive(toChild_[0]); }

  /// In the parent.
  void waitForWord() const { receive(toParent_[0]); }
  void goOn() const { send(toChild_[1]); }
  void join() {
    waitpid(pid_, nullptr, 0);
    pid_ = 0;
  }

private:
  static void send(int end) {
    const char word = 1;
    if (write(end, &word, 1) != 1) std::abort();
  }
  static void receive(int end) {
    char word = 0;
    if (read(end, &word, 1) != 1) std::abort();
  }

  int toParent_[2]{};
  int toChild_[2]{};
  pid_t pid_ = 0;
};
