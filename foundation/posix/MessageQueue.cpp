#include "foundation/posix/MessageQueue.h"

#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "foundation/Singleton.h"
#include "foundation/StringLocalizer.h"
#include "foundation/ThreadLocalStorage.h"
#include "foundation/posix/MessageWindow.h"

#include <algorithm>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace orlo::posix {

namespace {

P<IThreadLocalStorage>& getQueueOfThread() {
  static TSingleton<IThreadLocalStorage> singleton;
  return singleton.get([] { return makeObject<CThreadLocalStorage>(); });
}

bool watch(int poll, int file) {
  epoll_event event{};
  event.events = EPOLLIN;
  return epoll_ctl(poll, EPOLL_CTL_ADD, file, &event) == 0;
}

/// The milliseconds to wait from now on, rounded up; negative without an end.
int restOf(std::chrono::steady_clock::time_point end, std::uint32_t milliseconds) {
  using namespace std::chrono;
  if (milliseconds == CMessageQueue::kForever) return -1;
  const auto rest = ceil<std::chrono::milliseconds>(end - steady_clock::now()).count();
  return static_cast<int>(std::clamp<std::int64_t>(rest, 0, std::int64_t{1} << 30));
}

}  // namespace

P<CMessageQueue> CMessageQueue::ofThisThread() {
  const P<IThreadLocalStorage> slot = getQueueOfThread();
  P<CMessageQueue> queue = cast<CMessageQueue>(slot->get());
  if (!queue) {
    queue = makeObject<CMessageQueue>();
    slot->set(queue);
  }
  return queue;
}

CMessageQueue::CMessageQueue() : poll_(epoll_create1(EPOLL_CLOEXEC)), wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (!poll_ || !wake_ || !watch(poll_.get(), wake_.get()))
    throw CError(localize("orlo.gui.win32.CreateWindowError", "Error creating window."));
}

bool CMessageQueue::post(const CMessage& message) {
  const std::lock_guard lock(mutex_);
  if (posts_.size() >= kMaxPosts || !isOurs()) return false;
  posts_.push_back(message);
  if (posts_.size() == 1) eventfd_write(wake_.get(), 1);
  return true;
}

void CMessageQueue::addWindow(CMessageWindow* window) {
  const std::lock_guard lock(mutex_);
  windows_.push_back(window);
}

void CMessageQueue::removeWindow(CMessageWindow* window) {
  const std::lock_guard lock(mutex_);
  std::erase(windows_, window);
  std::erase_if(posts_, [window](const CMessage& post) { return post.window == window; });
  calmIfEmpty();
}

void CMessageQueue::removeMessages(const CMessageWindow* window, std::uint32_t message) {
  const std::lock_guard lock(mutex_);
  std::erase_if(posts_, [=](const CMessage& post) { return post.window == window && post.message == message; });
  calmIfEmpty();
}

void CMessageQueue::addSource(ITickSource* source) {
  const std::lock_guard lock(mutex_);
  sources_.push_back(source);
  watch(poll_.get(), source->getFile());
}

void CMessageQueue::removeSource(ITickSource* source) {
  const std::lock_guard lock(mutex_);
  std::erase(sources_, source);
  if (isOurs()) epoll_ctl(poll_.get(), EPOLL_CTL_DEL, source->getFile(), nullptr);
}

bool CMessageQueue::processMessage(std::uint32_t milliseconds, const Filter& filter) {
  checkThread();
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  CMessage message;
  while (!takePost(message) && !takeTick(message)) {
    const int rest = restOf(end, milliseconds);
    if (rest == 0) return false;
    epoll_event event{};
    epoll_wait(poll_.get(), &event, 1, rest);
  }
  dispatch(message, filter);
  return true;
}

bool CMessageQueue::processAllMessages(const Filter& filter) {
  checkThread();
  std::size_t posts = 0;
  std::vector<ITickSource*> sources;
  {
    const std::lock_guard lock(mutex_);
    posts = posts_.size();
    sources = sources_;
  }
  bool any = false;
  const auto go = [&](const CMessage& message) {
    any = true;
    dispatch(message, filter);
  };
  CMessage message;
  for (; posts > 0 && takePost(message); --posts) go(message);
  for (ITickSource* source : sources)
    if (takeTickOf(source, message)) go(message);
  return any;
}

void CMessageQueue::checkThread() {
  if (std::this_thread::get_id() != thread_ || !isOurs())
    throw CInvalidObjectStateError("messages are processed on the thread that they are for", this, nullptr);
}

bool CMessageQueue::takePost(CMessage& message) {
  const std::lock_guard lock(mutex_);
  if (posts_.empty()) return false;
  message = posts_.front();
  posts_.pop_front();
  calmIfEmpty();
  return true;
}

bool CMessageQueue::takeTick(CMessage& message) {
  const std::lock_guard lock(mutex_);
  const auto found = std::find_if(sources_.begin(), sources_.end(),
                                  [&message](ITickSource* source) { return source->takeTick(message); });
  if (found == sources_.end()) return false;
  std::rotate(found, found + 1, sources_.end());
  return true;
}

bool CMessageQueue::takeTickOf(ITickSource* source, CMessage& message) {
  const std::lock_guard lock(mutex_);
  return std::find(sources_.begin(), sources_.end(), source) != sources_.end() && source->takeTick(message);
}

bool CMessageQueue::hasWindow(const CMessageWindow* window) {
  const std::lock_guard lock(mutex_);
  return std::find(windows_.begin(), windows_.end(), window) != windows_.end();
}

// A listener may drop the last reference to the window.
void CMessageQueue::dispatch(const CMessage& message, const Filter& filter) {
  if (filter && filter(message)) return;
  if (!hasWindow(message.window)) return;
  const P<CMessageWindow> held(message.window);
  held->onMessage(message);
}

// The file is readable as long as posted messages wait, not once for each of them.
void CMessageQueue::calmIfEmpty() {
  eventfd_t count = 0;
  if (posts_.empty() && isOurs()) eventfd_read(wake_.get(), &count);
}

}  // namespace orlo::posix
