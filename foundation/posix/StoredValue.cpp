#include "foundation/posix/StoredValue.h"

#include <cstring>

namespace orlo::posix {

std::optional<std::int32_t> CStoredValue::asInt() const {
  if (const auto* truth = std::get_if<bool>(&content_)) return *truth ? 1 : 0;
  const auto* number = std::get_if<std::int32_t>(&content_);
  return number ? std::optional(*number) : std::nullopt;
}

std::optional<std::int64_t> CStoredValue::asInt64() const {
  const auto* number = std::get_if<std::int64_t>(&content_);
  return number ? std::optional(*number) : std::nullopt;
}

std::optional<double> CStoredValue::asDouble() const {
  if (const auto* number = std::get_if<double>(&content_)) return *number;
  const auto* bytes = std::get_if<CBytes>(&content_);
  if (!bytes || bytes->size() != sizeof(double)) return std::nullopt;
  double number;
  std::memcpy(&number, bytes->data(), sizeof(number));
  return number;
}

std::optional<CBytes> CStoredValue::asBytes() const {
  if (const auto* bytes = std::get_if<CBytes>(&content_)) return *bytes;
  const auto* number = std::get_if<double>(&content_);
  if (!number) return std::nullopt;
  CBytes bytes(sizeof(*number));
  std::memcpy(bytes.data(), number, sizeof(*number));
  return bytes;
}

}  // namespace orlo::posix
