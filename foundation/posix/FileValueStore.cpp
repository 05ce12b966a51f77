#include "foundation/posix/FileValueStore.h"

#include "foundation/ConstArray.h"
#include "foundation/Error.h"
#include "foundation/posix/StoredText.h"

#include <cstring>

namespace orlo::posix {

namespace {

P<IConstEnum> walkOver(const std::vector<std::string>& names) {
  const P<CConstArray> array = makeObject<CConstArray>();
  for (const std::string& name : names) array->add(fromStoredText(name).getObject());
  return array->getConstEnum();
}

/// Names with backslashes between them; empty ones stand for nothing.
CStorePath split(const String& path) {
  CStorePath names;
  const std::string text = toStoredText(path);
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\\', start), text.size());
    if (end > start) names.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return names;
}

}  // namespace

CFileValueStore::CFileValueStore(const String& file, const String& path, bool create)
    : CFileValueStore(P<CValueFile>(makeObject<CValueFile>(file)), split(path), create) {}

CFileValueStore::CFileValueStore(P<CValueFile> file, CStorePath path, bool create)
    : file_(std::move(file)), path_(std::move(path)) {
  if (hasSubStore(String())) return;
  if (!create) throw CNoSuchObjectError();
  file_->change([this](CValueDocument& document) { document.makeStore(path_); });
}

CStorePath CFileValueStore::pathOf(const String& subPath) const {
  CStorePath path = path_;
  for (std::string& name : split(subPath)) path.push_back(std::move(name));
  return path;
}

P<IValueStore> CFileValueStore::openSubStore(const String& path) {
  return makeObject<CFileValueStore>(file_, pathOf(path), true);
}

P<IValueStore> CFileValueStore::getSubStore(const String& path) const {
  return makeObject<CFileValueStore>(file_, pathOf(path), false);
}

void CFileValueStore::set(const String& name, CStoredValue::Content value) {
  const std::string key = toStoredText(name);
  file_->change([&](CValueDocument& document) { document.setValue(path_, key, std::move(value)); });
}

void CFileValueStore::setInt(const String& name, std::int32_t value) {
  set(name, value);
}

void CFileValueStore::setInt64(const String& name, std::int64_t value) {
  set(name, value);
}

void CFileValueStore::setBool(const String& name, bool value) {
  set(name, value);
}

void CFileValueStore::setDouble(const String& name, double value) {
  set(name, value);
}

void CFileValueStore::setString(const String& name, const String& value) {
  set(name, toStoredText(value));
}

void CFileValueStore::setBinary(const String& name, const void* data, std::size_t size) {
  const auto* bytes = static_cast<const std::byte*>(data);
  set(name, CBytes(bytes, bytes + size));
}

template <class Take>
auto CFileValueStore::read(const String& name, Take take) const {
  decltype(take(std::declval<const CStoredValue&>())) result{};
  const std::string key = toStoredText(name);
  file_->read([&](const CValueDocument& document) {
    if (const CStoredValue* value = document.findValue(path_, key)) result = take(*value);
  });
  return result;
}

std::int32_t CFileValueStore::getInt(const String& name, std::int32_t otherwise) const {
  return read(name, [](const CStoredValue& value) { return value.asInt(); }).value_or(otherwise);
}

std::int64_t CFileValueStore::getInt64(const String& name, std::int64_t otherwise) const {
  return read(name, [](const CStoredValue& value) { return value.asInt64(); }).value_or(otherwise);
}

bool CFileValueStore::getBool(const String& name, bool otherwise) const {
  return getInt(name, otherwise ? 1 : 0) != 0;
}

double CFileValueStore::getDouble(const String& name, double otherwise) const {
  return read(name, [](const CStoredValue& value) { return value.asDouble(); }).value_or(otherwise);
}

String CFileValueStore::getString(const String& name, const String& otherwise) const {
  const auto text = read(name, [](const CStoredValue& value) {
    return value.asText() ? std::optional(fromStoredText(*value.asText())) : std::nullopt;
  });
  return text.value_or(otherwise);
}

P<IMemoryBlock> CFileValueStore::getBinary(const String& name) const {
  const auto bytes = read(name, [](const CStoredValue& value) { return value.asBytes(); });
  if (!bytes) return nullptr;
  const P<CMemoryBlock> block = makeObject<CMemoryBlock>(std::size_t{0});
  block->assign(bytes->data(), bytes->size());
  return block;
}

bool CFileValueStore::hasValue(const String& name) const {
  return read(name, [](const CStoredValue&) { return true; });
}

bool CFileValueStore::hasSubStore(const String& path) const {
  bool found = false;
  file_->read([&](const CValueDocument& document) { found = document.hasStore(pathOf(path)); });
  return found;
}

P<IConstEnum> CFileValueStore::getValueNames() const {
  std::vector<std::string> names;
  file_->read([&](const CValueDocument& document) { names = document.getValueNames(path_); });
  return walkOver(names);
}

P<IConstEnum> CFileValueStore::getSubStoreNames() const {
  std::vector<std::string> names;
  file_->read([&](const CValueDocument& document) { names = document.getStoreNames(path_); });
  return walkOver(names);
}

// Both look first, so that nothing is written where there is nothing to remove.

void CFileValueStore::removeValue(const String& name) {
  const std::string key = toStoredText(name);
  bool removed = hasValue(name);
  if (removed) file_->change([&](CValueDocument& document) { removed = document.removeValue(path_, key); });
  if (!removed) throw CNoSuchObjectError();
}

void CFileValueStore::removeSubStore(const String& path) {
  const CStorePath removedPath = pathOf(path);
  if (removedPath.size() == path_.size())
    throw CInvalidArgError(nullptr, &typeid(*this), nullptr, "A store cannot remove itself.");
  bool removed = hasSubStore(path);
  if (removed) file_->change([&](CValueDocument& document) { removed = document.removeStore(removedPath); });
  if (!removed) throw CNoSuchObjectError();
}

}  // namespace orlo::posix
