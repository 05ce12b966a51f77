#pragma once

#include "foundation/ThreadLocalStorageManager.h"

namespace orlo {

/// One counted object per thread, released at the thread's end or with the storage, whichever comes first.
class IThreadLocalStorage : public virtual IBase {
public:
  /// The calling thread's object, null if it has none.
  virtual P<IBase> get() const = 0;
  virtual void set(P<IBase> object) = 0;
  virtual void clear() = 0;
  virtual bool has() const = 0;
};

class CThreadLocalStorage : public CObject, public IThreadLocalStorage {
public:
  CThreadLocalStorage();
  ~CThreadLocalStorage() override;

  P<IBase> get() const override;
  void set(P<IBase> object) override;
  void clear() override;
  bool has() const override;

private:
  P<CThreadLocalStorageManager> manager_;
  std::size_t slot_;
};

}  // namespace orlo
