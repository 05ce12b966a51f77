#pragma once

#include "foundation/Pointer.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

namespace orlo {

/// The two words that say a singleton is there: only both together do. What was written before set() is visible to
/// a thread that saw them hold.
struct CCheckWords {
  static constexpr std::uint32_t kFirst = 0x3D92A405;
  static constexpr std::uint32_t kSecond = 0x73DF5089;

  std::atomic<std::uint32_t> first{0};
  std::atomic<std::uint32_t> second{0};

  bool hold() const noexcept {
    return first.load(std::memory_order_acquire) == kFirst && second.load(std::memory_order_acquire) == kSecond;
  }
  void set() noexcept {
    first.store(kFirst, std::memory_order_release);
    second.store(kSecond, std::memory_order_release);
  }
  void clear() noexcept {
    first.store(0, std::memory_order_release);
    second.store(0, std::memory_order_release);
  }
};

/// What every singleton has, whatever its type: the guard of its creation and its place among the exit handlers.
class CSingletonRecord {
public:
  bool isReady() const noexcept { return words_.hold(); }

protected:
  constexpr CSingletonRecord() = default;

  /// Calls build(this, context) once, under the global lock, or waits in sleeps of a millisecond until the thread
  /// that does so has finished. If build throws, the next caller tries again. release(this) runs at module unload.
  void makeReady(void (*build)(CSingletonRecord*, void*), void* context, void (*release)(CSingletonRecord*));

private:
  void buildOnce(void (*build)(CSingletonRecord*, void*), void* context, void (*release)(CSingletonRecord*));
  static void releaseLast();

  std::atomic<bool> entered_{false};
  bool building_ = false;
  CCheckWords words_;
  void (*release_)(CSingletonRecord*) = nullptr;
  CSingletonRecord* before_ = nullptr;
};

/// A process-wide object, made at its first use and released at module unload, in reverse order of creation. Stands in
/// an accessor as a local static, which needs no guard of its own. Access is safe from any thread; once the object is
/// there it takes no lock. During module unload a singleton that has been released is made again.
template <class T>
class TSingleton : public CSingletonRecord {
public:
  constexpr TSingleton() = default;
  TSingleton(const TSingleton&) = delete;
  TSingleton& operator=(const TSingleton&) = delete;

  /// create: a callable without arguments that returns a new P<T>.
  template <class Create>
  P<T>& get(Create create) {
    if (!isReady()) {
      makeReady([](CSingletonRecord* self, void* context) { build<Create>(self, context); }, &create, &drop);
    }
    return object();
  }

private:
  template <class Create>
  static void build(CSingletonRecord* self, void* create) {
    new (static_cast<TSingleton*>(self)->storage_) P<T>((*static_cast<Create*>(create))());
  }
  static void drop(CSingletonRecord* self) { P<T> last = std::move(static_cast<TSingleton*>(self)->object()); }

  P<T>& object() noexcept { return *std::launder(reinterpret_cast<P<T>*>(storage_)); }

  alignas(P<T>) std::byte storage_[sizeof(P<T>)] = {};
};

}  // namespace orlo
