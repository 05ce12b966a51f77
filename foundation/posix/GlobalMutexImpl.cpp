#include "foundation/posix/GlobalMutexImpl.h"

#include "foundation/Error.h"
#include "foundation/posix/SharedMemory.h"
#include "foundation/posix/TimedTry.h"

#include <cerrno>
#include <pthread.h>
#include <system_error>

namespace orlo::posix {

namespace {

void check(int result) {
  if (result != 0) throw std::system_error(result, std::generic_category());
}

void makeSharedMutex(void* memory) {
  pthread_mutexattr_t attributes;
  check(pthread_mutexattr_init(&attributes));
  pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
  pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
  pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
  const int result = pthread_mutex_init(static_cast<pthread_mutex_t*>(memory), &attributes);
  pthread_mutexattr_destroy(&attributes);
  check(result);
}

pthread_mutex_t* mutexIn(const CSharedMemory& memory) {
  return static_cast<pthread_mutex_t*>(memory.get());
}

}  // namespace

CGlobalMutexImpl::CGlobalMutexImpl(const String& name) : name_(name) {
  try {
    memory_ = std::make_unique<CSharedMemory>(toStdString(name), sizeof(pthread_mutex_t), makeSharedMutex);
  } catch (const std::system_error&) {
    throw CException(u"Error createing global mutex " + name);
  }
}

CGlobalMutexImpl::~CGlobalMutexImpl() = default;

void CGlobalMutexImpl::lock() {
  finishLock(pthread_mutex_lock(mutexIn(*memory_)));
}

bool CGlobalMutexImpl::tryLock(std::uint32_t milliseconds) {
  return tryFor(milliseconds, [this] { return finishLock(pthread_mutex_trylock(mutexIn(*memory_))); });
}

void CGlobalMutexImpl::unlock() {
  pthread_mutex_unlock(mutexIn(*memory_));
}

bool CGlobalMutexImpl::finishLock(int result) {
  if (result == EBUSY) return false;
  if (result == EOWNERDEAD) result = pthread_mutex_consistent(mutexIn(*memory_));
  if (result != 0) throw CException(u"Error locking global mutex " + name_);
  return true;
}

}  // namespace orlo::posix
