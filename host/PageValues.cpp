#include "host/PageValues.h"

#include "host/Spelling.h"
#include "host/Xml.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace host {

namespace {

std::string faultOfNumber(const ValueForm& form, const std::string& value) {
  if (value.empty()) return "not a number; it is ignored";
  const LeadingNumber number = leadingNumber(value);
  const bool decimal = value.find_first_not_of("+-0123456789.,eE \t\r\n") == std::string::npos;
  const bool whole = value.find_first_not_of(" \t\r\n", number.length) == std::string::npos;
  if (number.length > 0 && !std::isfinite(number.value)) return "not a finite number";
  if (number.length > 0 && whole && decimal) return {};
  if (number.length == 0 || number.value == 0) return "not a number; " + std::string(form.otherwise);
  return "not a number; only its beginning counts, " + value.substr(0, number.length);
}

// As the module reads them: blanks and a sign may stand before.
std::optional<std::int64_t> wholeNumber(const std::string& value) {
  const std::size_t first = value.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  const char* begin = value.data() + first;
  const char* const end = value.data() + value.size();
  if (*begin == '+' && begin + 1 < end && begin[1] != '-') ++begin;
  std::int64_t number = 0;
  const auto [stop, error] = std::from_chars(begin, end, number);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

std::string mustBe(const ValueForm& form, const std::string& expected, std::string_view consequence) {
  return "must be " + expected + (form.refused ? "; the module refuses the page" : "; " + std::string(consequence));
}

std::string faultOfInteger(const ValueForm& form, const std::string& value) {
  const auto number = wholeNumber(value);
  if (!number) return "not a whole number; " + std::string(form.otherwise);
  if (!form.words.empty()) {
    const std::string plain = std::to_string(*number);
    if (std::find(form.words.begin(), form.words.end(), plain) != form.words.end()) return {};
    return mustBe(form, alternatives({form.words.begin(), form.words.end()}), form.otherwise);
  }
  if (*number >= form.low && *number <= form.high) return {};
  using Int = std::numeric_limits<std::int32_t>;
  const bool clamps = form.clamps && *number >= Int::min() && *number <= Int::max();
  const std::string limit = std::to_string(*number < form.low ? form.low : form.high);
  return mustBe(form, std::to_string(form.low) + " to " + std::to_string(form.high),
                clamps ? "it counts as " + limit : form.otherwise);
}

std::string faultOfWord(const ValueForm& form, const std::string& value) {
  if (form.mayBeEmpty && value.empty()) return {};
  for (const std::string_view word : form.words)
    if (form.exact ? word == value : sameName(word, value)) return {};
  return mustBe(form, alternatives({form.words.begin(), form.words.end()}), form.otherwise);
}

}  // namespace

std::string faultOf(const ValueForm& form, const std::string& value) {
  switch (form.kind) {
    case ValueKind::text:
      return {};
    case ValueKind::number:
      return faultOfNumber(form, value);
    case ValueKind::integer:
      return faultOfInteger(form, value);
    case ValueKind::boolean:
    case ValueKind::word:
      return faultOfWord(form, value);
  }
  return {};
}

}  // namespace host
