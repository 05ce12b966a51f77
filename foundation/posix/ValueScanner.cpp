#include "foundation/posix/ValueScanner.h"

#include "foundation/posix/StoredText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace orlo::posix {

namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kNameCharacters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-";

bool isIn(char character, std::string_view set) {
  return set.find(character) != std::string_view::npos;
}

CStoredValue integer(std::string_view digits) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size()) throw CValueTextError{"a number is too large"};
  using Int = std::numeric_limits<std::int32_t>;
  if (number < Int::min() || number > Int::max()) return {number};
  return {static_cast<std::int32_t>(number)};
}

CStoredValue floating(std::string_view word) {
  double number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error == std::errc::result_out_of_range) throw CValueTextError{"a number is too large or too small"};
  if (error != std::errc() || end != word.data() + word.size()) throw CValueTextError{"a value is not understood"};
  return {number};
}

CStoredValue number(std::string_view word) {
  const std::string_view unsignedWord = isIn(word.front(), "+-") ? word.substr(1) : word;
  const double sign = word.front() == '-' ? -1 : 1;
  // The parsers of numbers know "-" alone.
  const std::string_view withMinus = word.front() == '-' ? word : unsignedWord;
  if (unsignedWord == "inf") return {sign * std::numeric_limits<double>::infinity()};
  if (unsignedWord == "nan") return {std::copysign(std::numeric_limits<double>::quiet_NaN(), sign)};
  if (unsignedWord.empty() || !isIn(unsignedWord.front(), kDigits)) throw CValueTextError{"a value is not understood"};
  if (unsignedWord.find_first_not_of(kDigits) == std::string_view::npos) return integer(withMinus);
  return floating(withMinus);
}

CBytes bytes(std::string_view hex) {
  CBytes result;
  const auto isBlank = [](char c) { return c == ' '; };
  while (true) {
    while (!hex.empty() && isBlank(hex.front())) hex.remove_prefix(1);
    if (hex.empty()) return result;
    unsigned byte = 0;
    if (hex.size() < 2 || std::from_chars(hex.data(), hex.data() + 2, byte, 16).ptr != hex.data() + 2)
      throw CValueTextError{"bytes are not pairs of hexadecimal digits"};
    result.push_back(static_cast<std::byte>(byte));
    hex.remove_prefix(2);
  }
}

}  // namespace

void CValueScanner::skipBlanks() {
  while (!atEnd() && isIn(line_[pos_], " \t\r")) ++pos_;
}

bool CValueScanner::take(char character) {
  if (atEnd() || line_[pos_] != character) return false;
  ++pos_;
  return true;
}

void CValueScanner::expect(char character) {
  if (!take(character)) throw CValueTextError{std::string("'") + character + "' is missing"};
}

std::string_view CValueScanner::takeWord() {
  const std::size_t end = line_.find_first_of(" \t\r#,}=]\"'", pos_);
  const std::string_view word = line_.substr(pos_, end == std::string_view::npos ? end : end - pos_);
  pos_ += word.size();
  return word;
}

std::string CValueScanner::takeName() {
  if (take('"')) return takeQuoted();
  if (take('\'')) return takeLiteral();
  const std::size_t end = std::min(line_.find_first_not_of(kNameCharacters, pos_), line_.size());
  if (end == pos_) throw CValueTextError{"a name is missing"};
  std::string name(line_.substr(pos_, end - pos_));
  pos_ = end;
  return name;
}

CStoredValue CValueScanner::takeValue() {
  return take('{') ? takeTyped() : takePlain();
}

CStoredValue CValueScanner::takePlain() {
  if (take('"')) return {takeQuoted()};
  if (take('\'')) return {takeLiteral()};
  const std::string_view word = takeWord();
  if (word.empty()) throw CValueTextError{"a value is missing"};
  if (word == "true" || word == "false") return {word == "true"};
  return number(word);
}

std::string CValueScanner::takeLiteral() {
  const std::size_t end = line_.find('\'', pos_);
  if (end == std::string_view::npos) throw CValueTextError{"a text has no end"};
  std::string text(line_.substr(pos_, end - pos_));
  pos_ = end + 1;
  return text;
}

std::string CValueScanner::takeQuoted() {
  constexpr std::string_view kLetters = "btnfr\"\\";
  constexpr std::string_view kMeanings = "\b\t\n\f\r\"\\";
  std::string text;
  while (true) {
    const std::size_t next = line_.find_first_of("\"\\", pos_);
    if (next == std::string_view::npos) throw CValueTextError{"a text has no end"};
    text += line_.substr(pos_, next - pos_);
    pos_ = next + 1;
    if (line_[next] == '"') return text;
    if (atEnd()) throw CValueTextError{"a text has no end"};
    const char letter = line_[pos_++];
    if (letter == 'u' || letter == 'U')
      appendStored(text, takeCodePoint(letter == 'u' ? 4 : 8));
    else if (const std::size_t index = kLetters.find(letter); index != std::string_view::npos)
      text += kMeanings[index];
    else
      throw CValueTextError{"a backslash stands before what it has no meaning for"};
  }
}

char32_t CValueScanner::takeCodePoint(std::size_t digits) {
  const std::string_view hex = line_.substr(pos_, digits);
  std::uint32_t number = 0;
  if (hex.size() < digits || std::from_chars(hex.data(), hex.data() + digits, number, 16).ptr != hex.data() + digits ||
      number > 0x10FFFF)
    throw CValueTextError{"a character's number is none"};
  pos_ += digits;
  return number;
}

CStoredValue CValueScanner::takeTyped() {
  skipBlanks();
  const std::string type = takeName();
  skipBlanks();
  expect('=');
  skipBlanks();
  const CStoredValue content = takePlain();
  skipBlanks();
  expect('}');
  if (type == "int64") {
    if (const auto wide = content.asInt64()) return {*wide};
    if (const auto* small = std::get_if<std::int32_t>(&content.get())) return {std::int64_t{*small}};
  } else if (type == "hex" && content.asText()) {
    return {bytes(*content.asText())};
  }
  throw CValueTextError{"a type is not known"};
}

}  // namespace orlo::posix
