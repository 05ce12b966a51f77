#pragma once

#include <string>

namespace host {

// A file that is written under a passing name beside its own and takes its own name when it is complete. Removed if it
// never is.
class OutputFile {
public:
  // Throws InputError if it cannot be made.
  explicit OutputFile(const std::string& path);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  const std::string& path() const { return path_; }
  const std::string& passingPath() const { return passingPath_; }

  // Both throw InputError.
  void write(const void* bytes, std::size_t count);
  void commit();

private:
  [[noreturn]] void fail() const;

  const std::string path_;
  std::string passingPath_;
  int descriptor_ = -1;
};

}  // namespace host
