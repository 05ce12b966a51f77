#include "foundation/posix/SharedMemory.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace orlo::posix {

namespace {

[[noreturn]] void fail(int code) {
  throw std::system_error(code, std::generic_category());
}

int checked(int result) {
  if (result < 0) fail(errno);
  return result;
}

bool lockFile(int file, int how) {
  int result = 0;
  do result = flock(file, how);
  while (result < 0 && errno == EINTR);
  if (result < 0 && errno != EWOULDBLOCK) fail(errno);
  return result == 0;
}

struct stat statusOf(int file) {
  struct stat status {};
  checked(fstat(file, &status));
  return status;
}

std::string pathOf(const std::string& name, std::size_t size) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string path = "/orlo-" + std::to_string(geteuid()) + "-" + std::to_string(size) + "-";
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    if (plain) {
      path += c;
    } else {
      path += '%';
      path += digits[byte >> 4];
      path += digits[byte & 15];
    }
  }
  return path;
}

}  // namespace

CSharedMemory::CSharedMemory(const std::string& name, std::size_t size, void (*prepare)(void* memory))
    : path_(pathOf(name, size)), size_(size) {
  try {
    while (!open(prepare)) close();
  } catch (...) {
    close();
    throw;
  }
}

// Every user holds a shared lock of the file, which dies with its process. Who gets the exclusive one is the only
// user: at the start it prepares the memory, at the end it removes the name. Between these locks the file may have
// been removed or a preparation left undone; then all is done again.
bool CSharedMemory::open(void (*prepare)(void* memory)) {
  file_ = checked(shm_open(path_.c_str(), O_RDWR | O_CREAT, S_IRUSR | S_IWUSR));
  if (statusOf(file_).st_uid != geteuid()) fail(EACCES);
  const auto size = static_cast<off_t>(size_);
  if (lockFile(file_, LOCK_EX | LOCK_NB)) {
    checked(ftruncate(file_, 0));
    checked(ftruncate(file_, size));
    map();
    prepare(memory_);
    // One byte more says that the memory is prepared.
    checked(ftruncate(file_, size + 1));
  }
  lockFile(file_, LOCK_SH);
  const struct stat status = statusOf(file_);
  if (status.st_nlink == 0 || status.st_size != size + 1) return false;
  if (!memory_) map();
  return true;
}

void CSharedMemory::map() {
  void* memory = mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_SHARED, file_, 0);
  if (memory == MAP_FAILED) fail(errno);
  memory_ = memory;
}

CSharedMemory::~CSharedMemory() {
  struct stat status {};
  const bool last = flock(file_, LOCK_EX | LOCK_NB) == 0;
  if (last && fstat(file_, &status) == 0 && status.st_nlink > 0) shm_unlink(path_.c_str());
  close();
}

void CSharedMemory::close() {
  if (memory_) munmap(memory_, size_);
  if (file_ >= 0) ::close(file_);
  memory_ = nullptr;
  file_ = -1;
}

}  // namespace orlo::posix
