#include "tests/backend_script/ScriptState.h"

#include "backend/handler/ForeignErrors.h"
#include "foundation/Error.h"

#include <chrono>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace script {

namespace {

using CGuard = std::unique_lock<std::mutex>;

/// A test that waits longer has failed, however busy the machine is.
constexpr std::chrono::seconds kLongestWait{60};

constexpr std::size_t kLongestOrder = 100;

template <class Interface>
class TError : public orlo::CObject, public virtual Interface {};

class CVantraError : public TError<vantra::IError> {
public:
  std::int32_t getCode() const override { return 11; }
  const char* getString() const override { return "vantra"; }
  const char* getWhat() const override { return "scripted"; }
  std::int32_t getAdditionalCode() const override { return 12; }
  const char* getXML() const override { return nullptr; }
};

class CRopError : public TError<rop::IError> {
public:
  std::int32_t getCode() const override { return 21; }
  const char* getString() const override { return "rop"; }
  const char* getWhat() const override { return "scripted"; }
  const char* getXML() const override { return nullptr; }
};

class CSulError : public TError<sul::IError> {
public:
  std::int32_t getErrorCode() const override { return 31; }
  const char* getErrorString() const override { return "sul"; }
  const char* getAdditionalErrorString() const override { return "scripted"; }
  const char* getYenLog() const override { return nullptr; }
  const char* getGraphXml() const override { return nullptr; }
};

void ThrowOf(EError error) {
  switch (error) {
    case EError::none:
      return;
    case EError::vantra:
      throw CVantraError();
    case EError::rop:
      throw CRopError();
    case EError::sul:
      throw CSulError();
    case EError::orlo: {
#ifdef __SANITIZE_ADDRESS__
      // What the foundation keeps for good can't be found any more once the library has been unloaded.
      const __lsan::ScopedDisabler forGood;
#endif
      throw orlo::CError("orlo");
    }
    case EError::standard:
      throw std::runtime_error("standard");
    case EError::unknown:
      throw 42;
  }
}

}  // namespace

CScript& CScript::Get() {
  static CScript script;
  return script;
}

/// A process that a test can't reach is told by VANTRA_SCRIPT: "width=320 height=180 pictures=50 null=1".
CScript::CScript() {
  const char* const text = std::getenv("VANTRA_SCRIPT");
  std::istringstream words(text ? text : "");
  for (std::string word; words >> word;) {
    const std::size_t sign = word.find('=');
    const std::string name = word.substr(0, sign);
    const int value = sign == std::string::npos ? 0 : std::atoi(word.c_str() + sign + 1);
    if (name == "width") pictures_.width = value;
    if (name == "height") pictures_.height = value;
    if (name == "pictures") pictures_.count = value;
    if (name == "null") Of(EOperation::getAnimationExtractor).givesNull = value != 0;
  }
}

void CScript::Reset() {
  const CGuard guard(lock);
  for (COperation& operation : operations_) operation = {.blocked = operation.blocked};
  order_.clear();
  pictures_ = {};
  lastError_ = 0;
  given = {};
  changed_.notify_all();
}

void CScript::SetSize(std::int32_t width, std::int32_t height) {
  const CGuard guard(lock);
  pictures_.width = width;
  pictures_.height = height;
}

void CScript::SetPictures(int count) {
  const CGuard guard(lock);
  pictures_.count = count;
}

void CScript::SetStride(std::int32_t stride) {
  const CGuard guard(lock);
  pictures_.stride = stride;
}

void CScript::GiveNull(EOperation operation) {
  const CGuard guard(lock);
  Of(operation).givesNull = true;
}

void CScript::Throw(EOperation operation, EError error) {
  const CGuard guard(lock);
  Of(operation).error = error;
}

void CScript::SetLastError(std::int32_t code) {
  const CGuard guard(lock);
  lastError_ = code;
}

void CScript::Block(EOperation operation) {
  const CGuard guard(lock);
  Of(operation).blocks = true;
}

void CScript::LetGo(EOperation operation) {
  const CGuard guard(lock);
  Of(operation).blocks = false;
  changed_.notify_all();
}

bool CScript::WaitForBlocked(EOperation operation, int count) {
  CGuard guard(lock);
  return changed_.wait_for(guard, kLongestWait, [&] { return Of(operation).blocked >= count; });
}

int CScript::GetCalls(EOperation operation) {
  const CGuard guard(lock);
  return Of(operation).calls;
}

std::vector<EOperation> CScript::GetOrder() {
  const CGuard guard(lock);
  return order_;
}

bool CScript::WaitForCalls(EOperation operation, int count) {
  CGuard guard(lock);
  return changed_.wait_for(guard, kLongestWait, [&] { return Of(operation).calls >= count; });
}

int CScript::GetLiving() {
  const CGuard guard(lock);
  return living_;
}

bool CScript::WaitForNoneLiving() {
  CGuard guard(lock);
  return changed_.wait_for(guard, kLongestWait, [&] { return living_ == 0; });
}

CGiven CScript::GetGiven() {
  const CGuard guard(lock);
  return given;
}

void CScript::Enter(EOperation operation, const bool* isClosed) {
  EError error = EError::none;
  {
    CGuard guard(lock);
    COperation& of = Of(operation);
    ++of.calls;
    if (order_.size() < kLongestOrder) order_.push_back(operation);
    ++of.blocked;
    changed_.notify_all();
    changed_.wait(guard, [&] { return !of.blocks || (isClosed && *isClosed); });
    --of.blocked;
    error = of.error;
  }
  ThrowOf(error);
}

bool CScript::GivesNull(EOperation operation) {
  const CGuard guard(lock);
  return Of(operation).givesNull;
}

void CScript::Wake() {
  changed_.notify_all();
}

void CScript::ChangeLiving(int by) {
  const CGuard guard(lock);
  living_ += by;
  changed_.notify_all();
}

CScript::CPictures CScript::GetPictures() {
  const CGuard guard(lock);
  return pictures_;
}

std::int32_t CScript::GetLastError() {
  const CGuard guard(lock);
  return lastError_;
}

}  // namespace script
