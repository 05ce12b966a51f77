#include "foundation/posix/ShellOpen.h"

#include "foundation/posix/FileHandle.h"
#include "foundation/posix/FileOperations.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sstream>
#include <sys/wait.h>

extern char** environ;

namespace orlo::posix {

namespace {

std::string findProgram(const std::string& name) {
  const char* path = std::getenv("PATH");
  std::istringstream folders(path ? path : "/usr/local/bin:/usr/bin:/bin");
  for (std::string folder; std::getline(folders, folder, ':');) {
    const std::string program = folder + "/" + name;
    if (folder.starts_with('/') && fileExists(program) && access(program.c_str(), X_OK) == 0) return program;
  }
  return {};
}

/// Between fork and exec nothing may be called that takes memory or a lock.
[[noreturn]] void runProgram(const char* program, char* const* arguments, int failure) {
  const char mark = 1;
  setsid();
  // The program's parent is gone at once, so that the system buries it.
  const pid_t child = fork();
  if (child < 0) static_cast<void>(!write(failure, &mark, 1));
  if (child != 0) _exit(0);
  const int nothing = open("/dev/null", O_RDWR);
  if (nothing >= 0) {
    dup2(nothing, STDIN_FILENO);
    dup2(nothing, STDOUT_FILENO);
  }
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  execve(program, arguments, environ);
  static_cast<void>(!write(failure, &mark, 1));
  _exit(127);
}

}  // namespace

bool openWithDesktop(const std::string& location) {
  const std::string program = findProgram("xdg-open");
  if (program.empty()) return false;
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return false;
  const CFileHandle reading(ends[0]);
  CFileHandle writing(ends[1]);
  std::string texts[] = {"xdg-open", location};
  char* const arguments[] = {texts[0].data(), texts[1].data(), nullptr};
  const pid_t child = fork();
  if (child < 0) return false;
  if (child == 0) runProgram(program.c_str(), arguments, writing.get());
  writing = CFileHandle();
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
  char mark = 0;
  ssize_t count = 0;
  do count = read(reading.get(), &mark, 1);
  while (count < 0 && errno == EINTR);
  // The pipe closes without a word when the program has begun.
  return count == 0;
}

}  // namespace orlo::posix
