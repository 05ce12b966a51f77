#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "foundation/posix/FileHandle.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <sys/types.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace orlo::posix {

class CMessageWindow;

struct CMessage {
  CMessageWindow* window = nullptr;
  std::uint32_t message = 0;
  std::uintptr_t wParam = 0;
  std::intptr_t lParam = 0;
};

/// What ticks by itself.
class ITickSource {
public:
  virtual ~ITickSource() = default;
  /// A file that is readable while a tick waits.
  virtual int getFile() const = 0;
  /// Takes the tick that waits, and what has piled up behind it. False if there is none.
  virtual bool takeTick(CMessage& message) = 0;
};

/// What waits for the message windows of one thread: posted messages, in their order, and ticks. Nothing is dispatched
/// unless the thread asks for it.
class CMessageQueue : public CObject {
public:
  /// What is posted while so many messages wait is refused.
  static constexpr std::size_t kMaxPosts = 10000;
  static constexpr std::uint32_t kForever = 0xFFFFFFFF;

  /// Asked before a message is dispatched; true keeps it from its window.
  using Filter = std::function<bool(const CMessage&)>;

  /// Of the calling thread, made when it is first asked for.
  static P<CMessageQueue> ofThisThread();

  /// Throws CError.
  CMessageQueue();
  CMessageQueue(const CMessageQueue&) = delete;
  CMessageQueue& operator=(const CMessageQueue&) = delete;

  /// A file that is readable while something waits, for hosts that wait for files of their own.
  int getHandle() const { return poll_.get(); }

  /// Whether this is the process that made the queue. One that was forked from it has the same files and must keep its
  /// hands off them: messages do not follow it.
  bool isOurs() const { return getpid() == process_; }

  /// From any thread. False if the queue is full.
  bool post(const CMessage& message);

  void addWindow(CMessageWindow* window);
  /// Forgets what waits for it.
  void removeWindow(CMessageWindow* window);
  void removeMessages(const CMessageWindow* window, std::uint32_t message);
  void addSource(ITickSource* source);
  void removeSource(ITickSource* source);

  /// Dispatches one message, posted ones first, and waits for one up to that many milliseconds; whether there was one.
  /// Throws CInvalidObjectStateError on a thread or in a process that the queue is not for.
  bool processMessage(std::uint32_t milliseconds, const Filter& filter = {});
  /// Dispatches all that waits now, of each timer one tick; whether there was any. What comes meanwhile is left for the
  /// next time, so that this ends whatever the listeners do. Throws as processMessage does.
  bool processAllMessages(const Filter& filter = {});

private:
  void checkThread();
  bool takePost(CMessage& message);
  bool takeTick(CMessage& message);
  bool takeTickOf(ITickSource* source, CMessage& message);
  bool hasWindow(const CMessageWindow* window);
  void dispatch(const CMessage& message, const Filter& filter);
  void calmIfEmpty();

  const pid_t process_ = getpid();
  const std::thread::id thread_ = std::this_thread::get_id();
  CFileHandle poll_;
  CFileHandle wake_;
  std::mutex mutex_;
  std::deque<CMessage> posts_;
  std::vector<CMessageWindow*> windows_;
  /// Those that have ticked come behind those that have not.
  std::vector<ITickSource*> sources_;
};

}  // namespace orlo::posix
