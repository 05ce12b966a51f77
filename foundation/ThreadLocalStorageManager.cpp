#include "foundation/ThreadLocalStorageManager.h"

#include "foundation/Singleton.h"

#include <memory>

namespace orlo {

// The owning thread alone reads its slots and writes them; the mutex is for the list, for the vector's growth and for
// slots that are freed.
struct CThreadLocalStorageManager::CThreadRecord {
  CThreadLocalStorageManager* manager;
  std::vector<PFrail<IBase>> slots;
  CThreadRecord* next;
};

CThreadLocalStorageManager::CThreadLocalStorageManager()
    : mutex_(getMutexFactory()->createMutex()),
      ownRecord_(getSimpleThreadLocalStorageFactory()->createSimpleThreadLocalStorage(&endRecord)) {}

CThreadLocalStorageManager::~CThreadLocalStorageManager() {
  ownRecord_ = nullptr;
  while (CThreadRecord* record = records_) {
    unlink(record);
    delete record;
  }
}

std::size_t CThreadLocalStorageManager::allocateSlot() {
  CMutexLock lock(mutex_);
  for (std::size_t slot = 0; slot < freeSlots_.size(); ++slot) {
    if (freeSlots_[slot]) {
      freeSlots_[slot] = false;
      return slot;
    }
  }
  return slotCount_++;
}

void CThreadLocalStorageManager::freeSlot(std::size_t slot) {
  CMutexLock lock(mutex_);
  for (CThreadRecord* record = records_; record; record = record->next)
    if (slot < record->slots.size()) record->slots[slot].clear();

  freeSlots_.resize(slotCount_);
  freeSlots_[slot] = true;
  while (slotCount_ > 0 && freeSlots_[slotCount_ - 1]) --slotCount_;
  freeSlots_.resize(slotCount_);
}

std::size_t CThreadLocalStorageManager::getSlotCount() const {
  CMutexLock lock(mutex_);
  return slotCount_;
}

P<IBase> CThreadLocalStorageManager::get(std::size_t slot) const {
  const auto* record = static_cast<const CThreadRecord*>(ownRecord_->get());
  if (!record || slot >= record->slots.size()) return nullptr;
  return record->slots[slot].get();
}

void CThreadLocalStorageManager::set(std::size_t slot, const P<IBase>& object) {
  CThreadRecord& record = ownRecord();
  if (slot >= record.slots.size()) {
    CMutexLock lock(mutex_);
    record.slots.resize(slotCount_);
  }
  record.slots[slot] = PFrail<IBase>(object.get(), true);
}

CThreadLocalStorageManager::CThreadRecord& CThreadLocalStorageManager::ownRecord() {
  if (auto* record = static_cast<CThreadRecord*>(ownRecord_->get())) return *record;
  auto record = std::make_unique<CThreadRecord>(CThreadRecord{this, {}, nullptr});
  ownRecord_->set(record.get());
  CMutexLock lock(mutex_);
  record->next = records_;
  records_ = record.get();
  return *record.release();
}

void CThreadLocalStorageManager::endThread() {
  void* record = ownRecord_->get();
  if (!record) return;
  ownRecord_->set(nullptr);
  endRecord(record);
}

void CThreadLocalStorageManager::endRecord(void* record) {
  auto* own = static_cast<CThreadRecord*>(record);
  own->manager->unlink(own);
  delete own;
}

void CThreadLocalStorageManager::unlink(CThreadRecord* record) {
  CMutexLock lock(mutex_);
  CThreadRecord** link = &records_;
  while (*link != record) link = &(*link)->next;
  *link = record->next;
}

P<CThreadLocalStorageManager>& getThreadLocalStorageManager() {
  static TSingleton<CThreadLocalStorageManager> singleton;
  return singleton.get([] { return makeObject<CThreadLocalStorageManager>(); });
}

}  // namespace orlo
