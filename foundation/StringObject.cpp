#include "foundation/StringObject.h"

#include <cstring>

namespace orlo {

CString::CString(const void* text, int byteSize, Storage storage, bool terminated, P<ICharEncoding> encoding,
                 int length)
    : encoding_(std::move(encoding)) {
  if (!text) {
    byteSize = 0;
    storage = Storage::copy;
  } else if (byteSize < 0) {
    byteSize = encoding_->measureTerminated(text);
  }
  data_ = static_cast<const unsigned char*>(text);
  terminated_ = terminated || storage == Storage::copy;
  owned_ = storage != Storage::reference;
  if (storage == Storage::copy) {
    const int terminatorSize = encoding_->getEncodedSize(0);
    // A part of a character at the end would join with the terminator.
    byteSize -= byteSize % terminatorSize;
    const auto size = static_cast<std::size_t>(byteSize);
    auto* copy = new unsigned char[size + static_cast<std::size_t>(terminatorSize)];
    if (size > 0) std::memcpy(copy, text, size);
    encoding_->encode(0, copy + size, terminatorSize, 0);
    data_ = copy;
  }
  byteSize_ = static_cast<std::uint32_t>(byteSize);
  length_ = length >= 0 ? length : encoding_->countChars(data_, byteSize, 0);
}

CString::~CString() {
  if (owned_) delete[] data_;
}

CTextView CString::view() const {
  return {data_, static_cast<int>(byteSize_), length_, *encoding_};
}

std::int32_t CString::getHash() const {
  std::uint32_t hash = hash_.load(std::memory_order_relaxed);
  // Threads that compute it at the same time come to the same one, and a hash never has the top bit.
  if (hash == kNoHash) {
    hash = static_cast<std::uint32_t>(text::hash(view()));
    hash_.store(hash, std::memory_order_relaxed);
  }
  return static_cast<std::int32_t>(hash);
}

P<IString> CString::toTerminated() {
  return terminated_ ? P<IString>(this) : terminatedCopy(view());
}

P<IString> terminatedCopy(const CTextView& text) {
  P<IString> result;
  result.attach(new CString(text.data, text.byteSize, CString::Storage::copy, true, text.encoding, text.length));
  return result;
}

}  // namespace orlo
