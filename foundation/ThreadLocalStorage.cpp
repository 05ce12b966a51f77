#include "foundation/ThreadLocalStorage.h"

namespace orlo {

CThreadLocalStorage::CThreadLocalStorage()
    : manager_(getThreadLocalStorageManager()), slot_(manager_->allocateSlot()) {}

CThreadLocalStorage::~CThreadLocalStorage() {
  manager_->freeSlot(slot_);
}

P<IBase> CThreadLocalStorage::get() const {
  return manager_->get(slot_);
}

void CThreadLocalStorage::set(P<IBase> object) {
  manager_->set(slot_, object);
}

void CThreadLocalStorage::clear() {
  if (has()) manager_->set(slot_, nullptr);
}

bool CThreadLocalStorage::has() const {
  return static_cast<bool>(get());
}

}  // namespace orlo
