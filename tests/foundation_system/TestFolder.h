#pragma once

#include "foundation/System.h"
#include "foundation/posix/PathText.h"
#include "tests/foundation/Variable.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

/// A folder of its own for a test, open to all users.
class CTestFolder {
public:
  CTestFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "mfilter-test-XXXXXX").string();
    if (!mkdtemp(name.data())) std::abort();
    path = name;
    chmod(path.c_str(), 0777);
  }
  ~CTestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  CTestFolder(const CTestFolder&) = delete;
  CTestFolder& operator=(const CTestFolder&) = delete;

  std::string at(const std::string& name) const { return path + "/" + name; }
  orlo::P<orlo::IURI> uriAt(const std::string& name) const { return orlo::posix::uriOfPath(at(name)); }

  std::string path;
};

inline void writeFile(const std::string& path, const std::string& content = "content") {
  std::ofstream(path, std::ios::binary) << content;
}

inline std::string readFile(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

inline bool exists(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

/// Acts as a user without rights if the tests run as root.
class CUnprivileged {
public:
  CUnprivileged() {
    if (geteuid() == 0) acts_ = seteuid(65534) == 0;
  }
  ~CUnprivileged() {
    if (acts_) static_cast<void>(!seteuid(0));
  }
  CUnprivileged(const CUnprivileged&) = delete;
  CUnprivileged& operator=(const CUnprivileged&) = delete;

private:
  bool acts_ = false;
};
