#pragma once

#include "tests/backend_script/Script.h"

#include <condition_variable>
#include <mutex>

namespace script {

/// The script, and what the backend asks it.
class CScript final : public IScript {
public:
  static CScript& Get();

  void Reset() override;
  void SetSize(std::int32_t width, std::int32_t height) override;
  void SetPictures(int count) override;
  void SetStride(std::int32_t stride) override;
  void GiveNull(EOperation operation) override;
  void Throw(EOperation operation, EError error) override;
  void SetLastError(std::int32_t code) override;
  void Block(EOperation operation) override;
  void LetGo(EOperation operation) override;
  bool WaitForBlocked(EOperation operation, int count) override;
  int GetCalls(EOperation operation) override;
  std::vector<EOperation> GetOrder() override;
  bool WaitForCalls(EOperation operation, int count) override;
  int GetLiving() override;
  bool WaitForNoneLiving() override;
  CGiven GetGiven() override;

  /// An operation begins: counts it, stands still and throws as it is told.
  void Enter(EOperation operation, const bool* isClosed = nullptr);
  bool GivesNull(EOperation operation);
  void Wake();
  void ChangeLiving(int by);

  struct CPictures {
    std::int32_t width = 16;
    std::int32_t height = 9;
    int count = 3;
    std::int32_t stride = 0;
  };
  CPictures GetPictures();
  std::int32_t GetLastError();

  /// For changes of what has been given, and of what an extractor shares with its threads.
  std::mutex lock;
  CGiven given;

private:
  CScript();

  struct COperation {
    int calls = 0;
    int blocked = 0;
    bool blocks = false;
    bool givesNull = false;
    EError error = EError::none;
  };
  COperation& Of(EOperation operation) { return operations_[static_cast<std::size_t>(operation)]; }

  std::condition_variable changed_;
  std::array<COperation, static_cast<std::size_t>(EOperation::count)> operations_{};
  std::vector<EOperation> order_;
  CPictures pictures_;
  std::int32_t lastError_ = 0;
  int living_ = 0;
};

}  // namespace script
