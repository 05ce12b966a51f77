// Reads any bytes as a format text and pushes any values at it, and reads the same text as numbers. The first byte says
// the encoding; behind the first line end stand the values, a byte for the type and eight for the value each.

#include "foundation/Error.h"
#include "foundation/NumberText.h"
#include "foundation/StringFormat.h"
#include "foundation/StringObject.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>

using namespace orlo;

namespace {

#define CHECK(condition)                                                   \
  do {                                                                     \
    if (!(condition)) {                                                    \
      std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                        \
    }                                                                      \
  } while (false)

using Bytes = std::span<const std::uint8_t>;

P<ICharEncoding> encodingOf(std::uint8_t byte) {
  switch (byte % 4) {
    case 0:
      return getUTF8CharEncoding();
    case 1:
      return getLatin1CharEncoding();
    case 2:
      return getUTF16CharEncoding();
    default:
      return getUTF32CharEncoding();
  }
}

String textOf(Bytes bytes, const P<ICharEncoding>& encoding) {
  return P<IString>(
      makeObject<CString>(bytes.data(), static_cast<int>(bytes.size()), CString::Storage::reference, false, encoding));
}

template <class T>
T valueOf(Bytes bytes) {
  T value;
  std::memcpy(&value, bytes.data(), sizeof value);
  return value;
}

void push(CStringFormat& format, std::uint8_t type, Bytes value) {
  switch (type % 8) {
    case 0:
      format.push(valueOf<std::int32_t>(value));
      break;
    case 1:
      format.push(valueOf<std::int64_t>(value));
      break;
    case 2:
      format.push(valueOf<std::uint32_t>(value), type >= 128);
      break;
    case 3:
      format.push(valueOf<std::int64_t>(value), type >= 128);
      break;
    case 4:
      format.push(valueOf<double>(value));
      break;
    case 5:
      format.push(valueOf<char32_t>(value));
      break;
    case 6:
      // Widths and precisions that are of use.
      format.push(valueOf<std::int8_t>(value));
      break;
    default:
      format.push(textOf(value, encodingOf(value[0])));
  }
}

void fill(const String& text, Bytes values) {
  try {
    CStringFormat format(text);
    bool wasFinished = false;
    for (; values.size() >= 9; values = values.subspan(9)) {
      try {
        push(format, values[0], values.subspan(1, 8));
        CHECK(!wasFinished);
      } catch (const CInvalidArgError& error) {
        CHECK(error.getArgument().startsWith("CStringFormat: "));
      }
      try {
        const String result = format.getString();
        CHECK(!result.isNull() && result.length() >= 0);
        wasFinished = true;
      } catch (const CInvalidObjectStateError&) {
        CHECK(!wasFinished);
      }
    }
  } catch (const CInvalidArgError& error) {
    CHECK(error.getArgument().startsWith("CStringFormat: "));
  }
}

template <class Parse>
bool isRead(Parse parse) {
  try {
    parse();
    return true;
  } catch (const CParseError&) {
    return false;
  }
}

void readNumbers(const String& text, int base) {
  const CIntPrefix prefix = parseIntPrefix(text, base);
  CHECK(prefix.count >= 0 && prefix.count <= text.length() && (prefix.count > 0 || prefix.value == 0));
  const bool isInteger = isRead([&] { parseInt64(text, base); });
  CHECK(isInteger == isRead([&] { parseInt(text, base); }));
  CHECK(isInteger || prefix.count != text.length());
  if (isInteger) {
    const std::int64_t value = parseInt64(text, base);
    CHECK(parseInt64(int64ToString(value)) == value && parseInt(text, base) == static_cast<std::int32_t>(value));
  }
  if (isRead([&] { parseDouble(text); })) {
    const double value = parseDouble(text);
    const double again = parseDouble(CStringFormat("%.17g").push(value).getString());
    CHECK(again == value || (std::isnan(again) && std::isnan(value)));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const Bytes all(data + 1, size - 1);
  const auto lineEnd = std::find(all.begin(), all.end(), '\n');
  const Bytes line(all.begin(), lineEnd);
  const String text = textOf(line, encodingOf(data[0]));
  fill(text, lineEnd == all.end() ? Bytes() : Bytes(lineEnd + 1, all.end()));
  readNumbers(text, data[0] % 40);
  return 0;
}
