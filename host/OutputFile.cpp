#include "host/OutputFile.h"

#include "host/Descriptor.h"
#include "host/Errors.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace host {

OutputFile::OutputFile(const std::string& path) : path_(path), passingPath_(path + ".XXXXXX") {
  struct stat present {};
  if (stat(path.c_str(), &present) == 0 && S_ISDIR(present.st_mode)) {
    errno = EISDIR;
    fail();
  }
  descriptor_ = mkstemp(passingPath_.data());
  if (descriptor_ < 0) fail();
  const mode_t mask = umask(0);
  umask(mask);
  fchmod(descriptor_, 0666 & ~mask);
}

OutputFile::~OutputFile() {
  if (descriptor_ < 0) return;
  close(descriptor_);
  unlink(passingPath_.c_str());
}

void OutputFile::write(const void* bytes, std::size_t count) {
  if (!writeAll(descriptor_, bytes, count)) fail();
}

void OutputFile::commit() {
  if (std::rename(passingPath_.c_str(), path_.c_str()) != 0) fail();
  if (close(std::exchange(descriptor_, -1)) != 0) fail();
}

void OutputFile::fail() const {
  throw InputError(located(path_, std::strerror(errno)));
}

}  // namespace host
