#include "foundation/posix/ValueText.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace orlo::posix {

namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";
constexpr std::string_view kBareCharacters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-";

std::string escaped(unsigned codePoint) {
  std::string text = "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) text += kHexDigits[codePoint >> shift & 15];
  return text;
}

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
    if (byte == '"' || byte == '\\') {
      result += '\\';
      result += text[i];
    } else if (byte == '\n') {
      result += "\\n";
    } else if (byte == '\t') {
      result += "\\t";
    } else if (byte < 0x20 || byte == 0x7F) {
      result += escaped(byte);
    } else if (byte == 0xED && next >= 0xA0 && i + 2 < text.size()) {
      // Half of a surrogate pair, which UTF-8 proper does not have.
      result += escaped(0xD000 | (next & 0x3Fu) << 6 | (static_cast<unsigned char>(text[i + 2]) & 0x3Fu));
      i += 2;
    } else {
      result += text[i];
    }
  }
  return result + '"';
}

std::string typed(const char* type, const std::string& content) {
  return std::string("{ ") + type + " = " + content + " }";
}

struct CWriter {
  std::string operator()(const std::string& text) const { return quoted(text); }
  std::string operator()(std::int32_t number) const { return std::to_string(number); }
  std::string operator()(bool truth) const { return truth ? "true" : "false"; }

  std::string operator()(std::int64_t number) const {
    using Int = std::numeric_limits<std::int32_t>;
    const std::string digits = std::to_string(number);
    return number < Int::min() || number > Int::max() ? digits : typed("int64", digits);
  }

  std::string operator()(double number) const {
    if (std::isnan(number)) return nan(number);
    char text[32];
    std::string result(text, std::to_chars(text, text + sizeof(text), number).ptr);
    // What has neither would be a whole number.
    return result.find_first_of(".ein") == std::string::npos ? result + ".0" : result;
  }

  std::string operator()(const CBytes& bytes) const {
    std::string digits = "\"";
    for (const std::byte byte : bytes) {
      digits += kHexDigits[std::to_integer<unsigned>(byte) >> 4];
      digits += kHexDigits[std::to_integer<unsigned>(byte) & 15];
    }
    return typed("hex", digits + '"');
  }

private:
  std::string nan(double number) const {
    constexpr double kQuiet = std::numeric_limits<double>::quiet_NaN();
    for (const double sign : {1.0, -1.0})
      if (std::bit_cast<std::uint64_t>(number) == std::bit_cast<std::uint64_t>(std::copysign(kQuiet, sign)))
        return sign < 0 ? "-nan" : "nan";
    // One that carries something more is kept byte by byte.
    return (*this)(*CStoredValue(number).asBytes());
  }
};

}  // namespace

std::string nameText(std::string_view name) {
  const bool bare = !name.empty() && name.find_first_not_of(kBareCharacters) == std::string_view::npos;
  return bare ? std::string(name) : quoted(name);
}

std::string valueText(const CStoredValue& value) {
  return std::visit(CWriter(), value.get());
}

}  // namespace orlo::posix
