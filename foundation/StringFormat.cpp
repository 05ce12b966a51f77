#include "foundation/StringFormat.h"

#include "foundation/CodePointReader.h"
#include "foundation/Error.h"
#include "foundation/TextAlgorithms.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

namespace orlo {

namespace {

using Kind = CStringFormatField::Kind;

/// The digits of a number in a piece of memory of their own.
class CDigits {
public:
  CDigits(std::uint64_t number, unsigned base, bool upperCase) {
    const char* alphabet = upperCase ? "0123456789ABCDEF" : "0123456789abcdef";
    for (; number != 0; number /= base) digits_[--start_] = alphabet[number % base];
  }

  /// None for 0.
  std::string_view text() const { return {digits_.data() + start_, digits_.size() - start_}; }

private:
  // As many as the largest number has in octal.
  std::array<char, 22> digits_;
  std::size_t start_ = digits_.size();
};

unsigned baseOf(char conversion) {
  switch (conversion) {
    case 'o':
      return 8;
    case 'x':
    case 'X':
      return 16;
    default:
      return 10;
  }
}

std::string_view prefixOf(char conversion) {
  switch (conversion) {
    case 'o':
      return "0";
    case 'x':
      return "0x";
    case 'X':
      return "0X";
    default:
      return "";
  }
}

}  // namespace

CStringFormat::CStringFormat(const String& format) : format_(format), result_(*getUTF16CharEncoding()) {
  parseOn();
}

void CStringFormat::pushInteger(const CInteger& value) {
  if (fillPending(value)) return;
  if (field_.kind == Kind::character) {
    constexpr char32_t kNone = std::numeric_limits<std::uint32_t>::max();
    push(value.magnitude < kNone && !value.negative ? static_cast<char32_t>(value.magnitude) : kNone);
    return;
  }
  mustBe(Kind::integer);
  appendInteger(value);
  parseOn();
}

CStringFormat& CStringFormat::push(double value) {
  mustBe(Kind::floatingPoint);
  appendDouble(value);
  parseOn();
  return *this;
}

CStringFormat& CStringFormat::push(char32_t codePoint) {
  mustBe(Kind::character);
  // The runtime library gives no precision to a plain character, and pads it on the right if the width is negative.
  if (codePoint < 0x80) {
    field_.precision = -1;
    field_.leftAlign = field_.leftAlign || field_.width < 0;
    field_.width = std::abs(field_.width);
  }
  appendString({&codePoint, sizeof codePoint, -1, *getUTF32CharEncoding()});
  parseOn();
  return *this;
}

CStringFormat& CStringFormat::push(const CTextView& text) {
  mustBe(Kind::string);
  appendString(text);
  parseOn();
  return *this;
}

String CStringFormat::getString() const {
  if (field_.kind != Kind::none)
    throw CInvalidObjectStateError("CStringFormat: not all parameters have been pushed in yet.", nullptr, nullptr);
  return result_.build();
}

/// False if no "*" waits for a value.
bool CStringFormat::fillPending(const CInteger& value) {
  if (!field_.widthPending && !field_.precisionPending) return false;
  constexpr std::uint64_t kMost = std::numeric_limits<std::int32_t>::max();
  const auto size = static_cast<std::int32_t>(std::min(value.magnitude, kMost));
  (field_.widthPending ? field_.width : field_.precision) = value.negative ? -size : size;
  field_.checkSize();
  (field_.widthPending ? field_.widthPending : field_.precisionPending) = false;
  return true;
}

void CStringFormat::mustBe(Kind kind) const {
  if (field_.widthPending) throwFormatError("CStringFormat: expected integer value (field width).");
  if (field_.precisionPending) throwFormatError("CStringFormat: expected integer value (field precision).");
  if (field_.kind != kind) throwFormatError("CStringFormat: argument does not match the field's format specification.");
}

/// Appends the text up to the next field and reads that.
void CStringFormat::parseOn() {
  CCodePointReader reader(format_, position_);
  for (char32_t character; reader.read(character);) {
    if (character == U'%') {
      position_ = reader.position();
      if (!reader.read(character) || character != U'%') {
        field_ = CStringFormatField::parse(format_, position_);
        return;
      }
    }
    result_.append(character);
  }
  position_ = CStringPos::end();
  field_ = {};
}

void CStringFormat::appendInteger(const CInteger& value) {
  const bool isSigned = field_.isSigned();
  const CDigits digits(isSigned ? value.magnitude : value.bits, baseOf(field_.conversion), field_.conversion == 'X');
  const auto leastDigits = static_cast<std::size_t>(field_.precision < 0 ? 1 : field_.precision);
  const auto width = static_cast<std::size_t>(std::max(field_.width, 0));

  std::string_view front;
  if (isSigned)
    front = value.negative ? "-" : field_.plus ? "+" : field_.space ? " " : "";
  else if (field_.alternate)
    front = prefixOf(field_.conversion);
  std::size_t zeros = leastDigits - std::min(leastDigits, digits.text().size());
  const std::size_t size = front.size() + zeros + digits.text().size();
  std::size_t blanks = width - std::min(width, size);
  if (field_.zeroPad && !field_.leftAlign) zeros += std::exchange(blanks, 0);

  if (!field_.leftAlign) fill(blanks, ' ');
  for (const char character : front) fill(1, character);
  fill(zeros, '0');
  for (const char digit : digits.text()) fill(1, digit);
  if (field_.leftAlign) fill(blanks, ' ');
}

void CStringFormat::appendDouble(double value) {
  std::array<char, 0x63> usual;
  const auto print = [&](char* buffer, std::size_t size) {
    const int length = std::snprintf(buffer, size, field_.spec.data(), field_.width, field_.precision, value);
    if (length < 0) throw std::bad_alloc();
    return static_cast<std::size_t>(length);
  };
  const auto append = [&](const char* text, std::size_t size) {
    result_.append({text, static_cast<int>(size), -1, *getCPCharEncoding()});
  };
  const std::size_t size = print(usual.data(), usual.size());
  if (size < usual.size()) {
    append(usual.data(), size);
  } else {
    std::vector<char> buffer(size + 1);
    append(buffer.data(), std::min(print(buffer.data(), buffer.size()), size));
  }
}

void CStringFormat::appendString(const CTextView& text) {
  const int whole = text::length(text);
  const bool cut = field_.precision >= 0 && field_.precision < whole;
  const int length = cut ? field_.precision : whole;
  const auto padding = static_cast<std::size_t>(std::max(std::max(field_.width, 0) - length, 0));
  const char character = field_.zeroPad ? '0' : ' ';
  if (!field_.leftAlign) fill(padding, character);
  result_.append(cut ? text::part(text, {}, text::positionAt(text, length)) : text);
  if (field_.leftAlign) fill(padding, character);
}

void CStringFormat::fill(std::size_t count, char character) {
  for (; count > 0; --count) result_.append(static_cast<char32_t>(character));
}

}  // namespace orlo
