#include "foundation/ValueList.h"

#include "foundation/BoxedValue.h"
#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "foundation/NumberText.h"

#include <limits>
#include <type_traits>

namespace orlo {

namespace {

template <class T, class From>
T converted(From number) {
  if constexpr (std::is_integral_v<T> && std::is_floating_point_v<From>) {
    using Limits = std::numeric_limits<T>;
    if (number != number) return 0;
    // The limits are not exact as floating point numbers, the upper one rounds to the number behind it.
    if (number <= static_cast<From>(Limits::min())) return Limits::min();
    if (number >= static_cast<From>(Limits::max())) return Limits::max();
  }
  return static_cast<T>(number);
}

template <class T, class Parse>
T numberOf(const PC<IBase>& value, T otherwise, Parse parse) {
  if (const auto* number = tryCast<IInt>(value)) return converted<T>(number->getValue());
  if (const auto* number = tryCast<IInt64>(value)) return converted<T>(number->getValue());
  if (const auto* number = tryCast<IDouble>(value)) return converted<T>(number->getValue());
  if (const auto* number = tryCast<IFloat>(value)) return converted<T>(number->getValue());
  if (const auto* text = tryCast<IString>(value)) return converted<T>(parse(*text));
  return otherwise;
}

}  // namespace

bool CValueList::has(const String& name) const {
  return table_.find(keyOf(name)) != nullptr;
}

PC<IBase> CValueList::getObject(const String& name) const {
  const Entry* entry = table_.find(keyOf(name));
  return entry ? entry->value : nullptr;
}

std::int32_t CValueList::getInt(const String& name, std::int32_t otherwise) const {
  return numberOf(getObject(name), otherwise, [](const IString& text) { return parseInt(text); });
}

std::int64_t CValueList::getInt64(const String& name, std::int64_t otherwise) const {
  return numberOf(getObject(name), otherwise, [](const IString& text) { return parseInt64(text); });
}

bool CValueList::getBool(const String& name, bool otherwise) const {
  const PC<IBase> value = getObject(name);
  const auto* truth = tryCast<IBool>(value);
  return truth ? truth->getValue() : otherwise;
}

float CValueList::getFloat(const String& name, float otherwise) const {
  return numberOf(getObject(name), otherwise, [](const IString& text) { return parseDouble(text); });
}

double CValueList::getDouble(const String& name, double otherwise) const {
  return numberOf(getObject(name), otherwise, [](const IString& text) { return parseDouble(text); });
}

String CValueList::getString(const String& name, const String& otherwise) const {
  const PC<IBase> value = getObject(name);
  if (const auto* number = tryCast<IInt>(value)) return intToString(number->getValue());
  if (const auto* number = tryCast<IInt64>(value)) return int64ToString(number->getValue());
  if (const auto* number = tryCast<IDouble>(value)) return doubleToString(number->getValue());
  if (const auto* number = tryCast<IFloat>(value)) return doubleToString(number->getValue());
  if (tryCast<IString>(value)) return asString(value);
  return otherwise;
}

PC<IBase> CValueList::getObject(const String& name, const PC<IBase>& otherwise) const {
  PC<IBase> value = getObject(name);
  return value ? value : otherwise;
}

bool CValueList::setObject(const String& name, PC<IBase> value) {
  return table_.insert(keyOf(name), {std::move(value)});
}

bool CValueList::setInt(const String& name, std::int32_t value) {
  return setObject(name, makeObject<CInt>(value));
}

bool CValueList::setInt64(const String& name, std::int64_t value) {
  return setObject(name, makeObject<CInt64>(value));
}

bool CValueList::setBool(const String& name, bool value) {
  return setObject(name, makeObject<CBool>(value));
}

bool CValueList::setDouble(const String& name, double value) {
  return setObject(name, makeObject<CDouble>(value));
}

bool CValueList::setFloat(const String& name, float value) {
  return setObject(name, makeObject<CFloat>(value));
}

bool CValueList::setString(const String& name, const String& value) {
  return setObject(name, value.getObject());
}

bool CValueList::remove(const String& name) {
  return table_.remove(keyOf(name));
}

P<IConstEnum> CValueList::getNames() const {
  return makeObject<CNameEnum>(this);
}

void CValueList::setAll(const PC<IValueList>& other) {
  if (!other || other.get() == this) return;
  for (const P<IConstEnum> names = other->getNames(); names->hasNext();) {
    const String name = asString(names->nextConst());
    setObject(name, other->getObject(name));
  }
}

CValueList::CNameEnum::CNameEnum(PC<CValueList> list) : list_(std::move(list)) {
  reset();
}

bool CValueList::CNameEnum::hasNext() {
  if (entry_ && revision_ != list_->table_.getRevision())
    throw CInvalidObjectStateError("The names have changed since the enumeration began.", nullptr, &typeid(CNameEnum));
  return entry_ != nullptr;
}

PC<IBase> CValueList::CNameEnum::nextConst() {
  if (!hasNext()) throw CEndOfEnumError(nullptr, &typeid(CNameEnum));
  PC<IBase> name = entry_->key.getObject();
  entry_ = entry_->nextInBucket();
  if (!entry_) entry_ = list_->table_.firstEntryFrom(++bucket_);
  return name;
}

void CValueList::CNameEnum::reset() {
  bucket_ = 0;
  entry_ = list_->table_.firstEntryFrom(bucket_);
  revision_ = list_->table_.getRevision();
}

}  // namespace orlo
