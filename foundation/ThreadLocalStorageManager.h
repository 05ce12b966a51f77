#pragma once

#include "foundation/Mutex.h"
#include "foundation/Object.h"
#include "foundation/SimpleThreadLocalStorage.h"

#include <cstddef>
#include <vector>

namespace orlo {

/// A table of slots, each with one object per thread, on a single slot of the platform. A slot is used by those who
/// allocated it until they free it; what a thread keeps in its slots is released at the thread's end.
class CThreadLocalStorageManager : public CObject {
public:
  CThreadLocalStorageManager();
  ~CThreadLocalStorageManager() override;

  /// The lowest free slot. It is null in every thread.
  std::size_t allocateSlot();
  /// Releases what any thread keeps there.
  void freeSlot(std::size_t slot);
  /// One more than the highest slot in use.
  std::size_t getSlotCount() const;

  /// The calling thread's object, null if there is none.
  P<IBase> get(std::size_t slot) const;
  void set(std::size_t slot, const P<IBase>& object);

  /// Releases what the calling thread keeps in any slot. Threads that end do so without being asked.
  void endThread();

private:
  struct CThreadRecord;

  CThreadRecord& ownRecord();
  static void endRecord(void* record);
  void unlink(CThreadRecord* record);

  P<IMutex> mutex_;
  P<ISimpleThreadLocalStorage> ownRecord_;
  CThreadRecord* records_ = nullptr;
  std::size_t slotCount_ = 0;
  std::vector<bool> freeSlots_;
};

P<CThreadLocalStorageManager>& getThreadLocalStorageManager();

}  // namespace orlo
