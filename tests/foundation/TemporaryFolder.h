#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// A folder for one test, gone with all that is in it at the end.
class CTemporaryFolder {
public:
  CTemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "mfilter-test-XXXXXX").string();
    if (!mkdtemp(name.data())) std::abort();
    path_ = name;
  }
  ~CTemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  CTemporaryFolder(const CTemporaryFolder&) = delete;
  CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;

  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  const std::filesystem::path& get() const { return path_; }

private:
  std::filesystem::path path_;
};

inline void writeFile(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}
