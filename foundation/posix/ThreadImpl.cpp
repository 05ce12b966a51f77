#include "foundation/posix/ThreadImpl.h"

#include "foundation/posix/SystemError.h"
#include "foundation/posix/ThreadPriority.h"

#include <chrono>
#include <cxxabi.h>
#include <unistd.h>
#include <utility>

namespace orlo::posix {

namespace {

P<CException> copyOfCurrentError() {
  try {
    throw;
  } catch (const CException& error) {
    return error.clone();
  } catch (const std::exception& error) {
    return makeObject<CError>(fromUTF8(error.what()));
  } catch (...) {
    return makeObject<CError>();
  }
}

}  // namespace

// The thread's reference to its object goes with it; the thread waits for the mutex until the handle is stored.
CThreadImpl::CThreadImpl(P<IAction> action) : action_(std::move(action)) {
  const std::lock_guard lock(mutex_);
  addRef();
  const int result = pthread_create(&thread_, nullptr, &enter, this);
  if (result != 0) throwSystemError(result, "Error creating thread (%ERRORDESC%).");
}

CThreadImpl::~CThreadImpl() {
  if (!joined_) pthread_detach(thread_);
}

void* CThreadImpl::enter(void* thread) {
  P<CThreadImpl> self;
  self.attach(static_cast<CThreadImpl*>(thread));
  self->run();
  return nullptr;
}

/// What unwinds a thread that ends itself is no object, and binding a reference to it is all that can be done with it.
__attribute__((no_sanitize("null"))) void CThreadImpl::run() {
  struct CLife {
    explicit CLife(CThreadImpl& thread) : thread_(thread) { thread_.begin(); }
    ~CLife() { thread_.end(); }
    CThreadImpl& thread_;
  } life(*this);
  try {
    action_->run();
  } catch (const abi::__forced_unwind&) {
    throw;  // pthread_exit and pthread_cancel pass through as one.
  } catch (...) {
    const P<CException> error = copyOfCurrentError();
    const std::lock_guard lock(mutex_);
    error_ = error;
  }
}

void CThreadImpl::begin() {
  const std::lock_guard lock(mutex_);
  id_ = gettid();
  startNice_ = niceOfThread(id_);
  changed_.notify_all();
}

void CThreadImpl::end() {
  action_ = nullptr;
  slots_->endThread();
  const std::lock_guard lock(mutex_);
  ended_ = true;
  changed_.notify_all();
}

bool CThreadImpl::waitForEnd(std::uint32_t milliseconds) {
  {
    std::unique_lock lock(mutex_);
    // The system gives the ids of ended threads away again.
    if (!ended_ && pthread_equal(thread_, pthread_self())) return false;
    const auto hasEnded = [this] { return ended_; };
    if (milliseconds == kForever) {
      changed_.wait(lock, hasEnded);
    } else if (!changed_.wait_for(lock, std::chrono::milliseconds(milliseconds), hasEnded)) {
      return false;
    }
  }
  const std::lock_guard lock(joinMutex_);
  if (!joined_) pthread_join(thread_, nullptr);
  joined_ = true;
  return true;
}

// The thread is kept from ending meanwhile, since its id would then be another's.
void CThreadImpl::setPriority(ThreadPriority priority) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return id_ != 0; });
  if (ended_ || !setPriorityOfThread(id_, startNice_, priority)) throw CError("Error setting thread priority");
}

P<CException> CThreadImpl::getError() {
  const std::lock_guard lock(mutex_);
  return error_;
}

}  // namespace orlo::posix
