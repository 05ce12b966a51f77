#include "tests/host/Command.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace test {

namespace {

struct Pipe {
  Pipe() {
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("pipe");
  }
  ~Pipe() {
    closeEnd(0);
    closeEnd(1);
  }
  void closeEnd(std::size_t end) {
    if (ends[end] >= 0) close(ends[end]);
    ends[end] = -1;
  }
  std::array<int, 2> ends{};
};

// Reads both until both have ended.
void collect(Pipe& output, std::string& outputText, Pipe& errors, std::string& errorText) {
  std::array<pollfd, 2> waiting = {pollfd{output.ends[0], POLLIN, 0}, pollfd{errors.ends[0], POLLIN, 0}};
  std::array<std::string*, 2> texts = {&outputText, &errorText};
  std::array<char, 65536> block{};
  while (waiting[0].fd >= 0 || waiting[1].fd >= 0) {
    poll(waiting.data(), waiting.size(), -1);
    for (std::size_t i = 0; i < waiting.size(); ++i) {
      if (waiting[i].fd < 0 || waiting[i].revents == 0) continue;
      const ssize_t count = read(waiting[i].fd, block.data(), block.size());
      if (count <= 0) {
        waiting[i].fd = -1;
      } else {
        texts[i]->append(block.data(), static_cast<std::size_t>(count));
      }
    }
  }
}

}  // namespace

Outcome run(const std::vector<std::string>& arguments, const std::filesystem::path& folder) {
  Pipe output, errors;
  std::vector<char*> argv;
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);

  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("fork");
  if (child == 0) {
    const int nothing = open("/dev/null", O_RDONLY);
    if (chdir(folder.c_str()) != 0 || dup2(nothing, 0) < 0 || dup2(output.ends[1], 1) < 0 ||
        dup2(errors.ends[1], 2) < 0) {
      _exit(126);
    }
    execvp(argv[0], argv.data());
    _exit(127);
  }
  output.closeEnd(1);
  errors.closeEnd(1);
  Outcome outcome;
  collect(output, outcome.output, errors, outcome.errors);
  int status = 0;
  waitpid(child, &status, 0);
  outcome.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return outcome;
}

Outcome render(const std::filesystem::path& folder, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {MFILTER_COMMAND, "render"});
  return run(arguments, folder);
}

Outcome shell(const std::filesystem::path& folder, const std::string& line) {
  return run({"bash", "-c", "mfilter='" MFILTER_COMMAND "'; " + line}, folder);
}

Folder::Folder() {
  std::string name = (std::filesystem::temp_directory_path() / "mfilter-test-XXXXXX").string();
  if (!mkdtemp(name.data())) throw std::runtime_error("mkdtemp");
  path_ = name;
}

Folder::~Folder() {
  std::filesystem::remove_all(path_);
}

void Folder::write(const std::string& name, const std::string& content) const {
  std::ofstream(path_ / name, std::ios::binary) << content;
}

std::string Folder::read(const std::string& name) const {
  std::ifstream file(path_ / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::size_t Folder::count() const {
  return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
}

}  // namespace test
