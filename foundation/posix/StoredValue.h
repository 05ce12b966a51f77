#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace orlo::posix {

using CBytes = std::vector<std::byte>;

/// What a value store holds under a name: a text in UTF-8, a number, or bytes. The types are those of the registry,
/// where a bool is one more way to write a 32-bit number, and a double one to write 8 bytes.
class CStoredValue {
public:
  using Content = std::variant<std::string, std::int32_t, bool, std::int64_t, double, CBytes>;

  CStoredValue(Content content) : content_(std::move(content)) {}

  const Content& get() const { return content_; }

  /// Nothing if the value was stored as another type, or in another size.
  std::optional<std::int32_t> asInt() const;
  std::optional<std::int64_t> asInt64() const;
  std::optional<double> asDouble() const;
  const std::string* asText() const { return std::get_if<std::string>(&content_); }
  std::optional<CBytes> asBytes() const;

private:
  Content content_;
};

}  // namespace orlo::posix
