#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "foundation/MemoryBlock.h"
#include "foundation/Singleton.h"
#include "foundation/ThreadLocalStorage.h"

#include <cstring>

namespace orlo {

namespace {

P<IThreadLocalStorage>& getMessageBuffer() {
  static TSingleton<IThreadLocalStorage> singleton;
  return singleton.get([] { return makeObject<CThreadLocalStorage>(); });
}

const char* textOf(const String& text) {
  return static_cast<const char*>(text.getData());
}

const char* keepForThread(const String& text) {
  const auto size = static_cast<std::size_t>(text.getByteSize()) + 1;
  P<IThreadLocalStorage>& buffer = getMessageBuffer();
  P<IMemoryBlock> block = cast<IMemoryBlock>(buffer->get());
  if (!block || block->getSize() < size) {
    block = makeObject<CMemoryBlock>(size);
    buffer->set(block);
  }
  std::memcpy(block->getData(), textOf(text), size);
  return reinterpret_cast<const char*>(block->getData());
}

}  // namespace

CException::CException(const String& message) : CException(message, "Error") {}

CException::CException(const String& message, const String& title) : title_(title), message_(message) {}

const char* CException::what() const noexcept {
  try {
    if (message_.hasEncoding(kCodePageTag) && message_.isTerminated()) return textOf(message_);
    return keepForThread(toCodePage(message_));
  } catch (...) {
    return "Error";
  }
}

P<CException> CException::clone() const {
  return copyOf(*this);
}

}  // namespace orlo
