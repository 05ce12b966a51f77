#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace test {

struct Outcome {
  int exitCode = -1;  // 128 and the signal's number for a process that a signal ended
  std::string output;
  std::string errors;
};

// Runs a program, found by PATH or by its name with a slash, in a folder, and collects what it writes into pipes.
Outcome run(const std::vector<std::string>& arguments, const std::filesystem::path& folder = ".");

// Runs `mfilter render` with these arguments.
Outcome render(const std::filesystem::path& folder, std::vector<std::string> arguments);

// Runs a line of shell in a folder, with the command's path as $mfilter.
Outcome shell(const std::filesystem::path& folder, const std::string& line);

// A folder of its own for a test, removed afterwards.
class Folder {
public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  void write(const std::string& name, const std::string& content) const;
  std::string read(const std::string& name) const;
  bool has(const std::string& name) const { return std::filesystem::exists(path_ / name); }
  std::size_t count() const;

private:
  std::filesystem::path path_;
};

}  // namespace test
