#include "foundation/CPCharEncoding.h"

#include "foundation/Error.h"
#include "foundation/Singleton.h"

#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <limits>

namespace orlo {

namespace {

// The runtime library reads and writes UTF-8 of five and six bytes too.
constexpr char32_t kLastCodePoint = 0x10FFFF;

/// Writes the character to a place of MB_LEN_MAX bytes and answers its size, 0 if the locale does not have it.
int encoded(char32_t codePoint, char* place) {
  constexpr auto kLastWide = static_cast<char32_t>(std::numeric_limits<wchar_t>::max());
  if (codePoint > std::min(kLastCodePoint, kLastWide)) return 0;
  std::mbstate_t state{};
  const std::size_t size = std::wcrtomb(place, static_cast<wchar_t>(codePoint), &state);
  return size == static_cast<std::size_t>(-1) ? 0 : static_cast<int>(size);
}

}  // namespace

int CCPCharEncoding::read(char32_t& codePoint, const unsigned char* buffer, int size, int pos) {
  std::mbstate_t state{};
  wchar_t character;
  const std::size_t room = static_cast<std::size_t>(size - pos);
  const std::size_t charSize = std::mbrtowc(&character, reinterpret_cast<const char*>(buffer + pos), room, &state);
  if (charSize > room || static_cast<char32_t>(character) > kLastCodePoint) return -1;
  codePoint = static_cast<char32_t>(character);
  return pos + (charSize == 0 ? 1 : static_cast<int>(charSize));  // 0 stands for the null character
}

int CCPCharEncoding::sizeOf(char32_t codePoint) {
  char place[MB_LEN_MAX];
  return encoded(codePoint, place);
}

void CCPCharEncoding::write(char32_t codePoint, unsigned char* place) {
  char bytes[MB_LEN_MAX];
  const int size = encoded(codePoint, bytes);
  std::memcpy(place, bytes, static_cast<std::size_t>(size));
}

int CCPCharEncoding::getMaxCharSize() const {
  return static_cast<int>(MB_CUR_MAX);
}

int CCPCharEncoding::findValidBackwards(const unsigned char*, int, int) const {
  throwNotImplemented("findValidBackwards");
}

int CCPCharEncoding::decodeStrictBackwards(char32_t&, const unsigned char*, int, int) const {
  throwNotImplemented("decodeStrictBackwards");
}

int CCPCharEncoding::decodeBackwards(char32_t&, const unsigned char*, int, int) const {
  throwNotImplemented("decodeBackwards");
}

int CCPCharEncoding::decodeRunBackwards(char32_t*, int*, int, int&, const unsigned char*, int, int) const {
  throwNotImplemented("decodeRunBackwards");
}

void CCPCharEncoding::throwNotImplemented(const char* method) const {
  // The error shares the object, which has no state to change.
  throw CMethodNotImplementedError(const_cast<CCPCharEncoding*>(this), nullptr, method);
}

P<ICharEncoding>& getCPCharEncoding() {
  static TSingleton<ICharEncoding> singleton;
  return singleton.get([] { return P<ICharEncoding>(makeObject<CCPCharEncoding>()); });
}

}  // namespace orlo
