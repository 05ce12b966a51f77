#include "foundation/posix/ValueDocument.h"

#include "foundation/StandardUTF8.h"
#include "foundation/posix/StoredText.h"
#include "foundation/posix/ValueScanner.h"
#include "foundation/posix/ValueText.h"

#include <algorithm>

namespace orlo::posix {

struct CValueDocument::CValue {
  std::string name;
  CStoredValue value;
  CLines::iterator line;
};

class CValueDocument::CStore {
public:
  bool isEmpty() const { return values.empty() && stores.empty(); }
  bool isWithin(const CStore& other) const {
    const CStore* store = this;
    while (store && store != &other) store = store->parent;
    return store != nullptr;
  }

  std::string name;
  CStore* parent = nullptr;
  /// There is a line that names it.
  bool headed = false;
  /// By names in lower case.
  std::map<std::string, CValue> values;
  std::map<std::string, std::unique_ptr<CStore>> stores;
};

namespace {

bool isBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r") == std::string_view::npos;
}

void checkCharacters(std::string_view line) {
  for (std::size_t i = 0; i < line.size(); ++i) {
    const auto byte = static_cast<unsigned char>(line[i]);
    const bool lineEnd = byte == '\r' && i + 1 == line.size();
    if ((byte < 0x20 && byte != '\t' && !lineEnd) || byte == 0x7F)
      throw CValueTextError{"there is a control character that is not escaped"};
  }
  const auto* bytes = reinterpret_cast<const unsigned char*>(line.data());
  const int size = static_cast<int>(line.size());
  for (int pos = 0; pos < size;) {
    char32_t c;
    pos = readStandardUTF8(c, bytes, size, pos);
    if (pos < 0) throw CValueTextError{"this is not UTF-8"};
  }
}

/// What stands before, in and behind the value of a line.
struct CValueParts {
  std::string name;
  CStoredValue value;
  std::size_t start;
  std::size_t end;
};

void expectRest(CValueScanner& scanner) {
  scanner.skipBlanks();
  if (!scanner.atRest()) throw CValueTextError{"there is more on the line than belongs there"};
}

CValueParts valueParts(CValueScanner& scanner) {
  std::string name = scanner.takeName();
  scanner.skipBlanks();
  scanner.expect('=');
  scanner.skipBlanks();
  const std::size_t start = scanner.getPos();
  CStoredValue value = scanner.takeValue();
  const std::size_t end = scanner.getPos();
  expectRest(scanner);
  return {std::move(name), std::move(value), start, end};
}

CStorePath headerPath(CValueScanner& scanner) {
  CStorePath path;
  do {
    scanner.skipBlanks();
    path.push_back(scanner.takeName());
    scanner.skipBlanks();
  } while (scanner.take('.'));
  scanner.expect(']');
  expectRest(scanner);
  return path;
}

}  // namespace

CValueDocument::CValueDocument() : root_(std::make_unique<CStore>()) {
  root_->headed = true;
}

CValueDocument::~CValueDocument() = default;
CValueDocument::CValueDocument(CValueDocument&&) noexcept = default;
CValueDocument& CValueDocument::operator=(CValueDocument&&) noexcept = default;

CValueDocument::CValueDocument(std::string_view text) : CValueDocument() {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  CStore* current = root_.get();
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    CLine& line = lines_.emplace_back();
    line.text = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    try {
      readLine(line, current);
    } catch (const CValueTextError& error) {
      throw CDocumentError{number, error.reason};
    } catch (const CDocumentLimit& limit) {
      throw CDocumentError{number, limit.reason};
    }
  }
  if (!lines_.empty() && lines_.front().text.ends_with('\r')) lineEnd_ = '\r';
}

void CValueDocument::readLine(CLine& line, CStore*& current) {
  checkCharacters(line.text);
  CValueScanner scanner(line.text);
  scanner.skipBlanks();
  if (scanner.atRest()) return;
  line.header = scanner.take('[');
  if (line.header) {
    current = &reach(headerPath(scanner));
    current->headed = true;
  } else {
    CValueParts parts = valueParts(scanner);
    if (current->values.contains(foldedText(parts.name)))
      throw CValueTextError{nameText(parts.name) + " is there twice"};
    addValue(*current, parts.name, std::move(parts.value), std::prev(lines_.end()));
  }
  line.store = current;
}

std::string CValueDocument::getText() const {
  std::string text;
  for (const CLine& line : lines_) {
    text += line.text;
    text += '\n';
  }
  return text;
}

CValueDocument::CStore* CValueDocument::find(const CStorePath& path) const {
  CStore* store = root_.get();
  for (const std::string& name : path) {
    const auto found = store->stores.find(foldedText(name));
    if (found == store->stores.end()) return nullptr;
    store = found->second.get();
  }
  return store;
}

bool CValueDocument::hasStore(const CStorePath& path) const {
  return find(path) != nullptr;
}

const CStoredValue* CValueDocument::findValue(const CStorePath& path, std::string_view name) const {
  const CStore* store = find(path);
  if (!store) return nullptr;
  const auto found = store->values.find(foldedText(name));
  return found == store->values.end() ? nullptr : &found->second.value;
}

std::vector<std::string> CValueDocument::getValueNames(const CStorePath& path) const {
  std::vector<std::string> names;
  if (const CStore* store = find(path))
    for (const auto& [key, value] : store->values) names.push_back(value.name);
  return names;
}

std::vector<std::string> CValueDocument::getStoreNames(const CStorePath& path) const {
  std::vector<std::string> names;
  if (const CStore* store = find(path))
    for (const auto& [key, child] : store->stores) names.push_back(child->name);
  return names;
}

void CValueDocument::count() {
  if (entries_ == kMostEntries)
    throw CDocumentLimit{"there are more than " + std::to_string(kMostEntries) + " values and stores"};
  ++entries_;
}

CValueDocument::CStore& CValueDocument::reach(const CStorePath& path) {
  if (path.size() > kMostLevels)
    throw CDocumentLimit{"stores are nested more than " + std::to_string(kMostLevels) + " deep"};
  CStore* store = root_.get();
  for (const std::string& name : path) {
    const std::string key = foldedText(name);
    auto found = store->stores.find(key);
    if (found == store->stores.end()) {
      count();
      found = store->stores.emplace(key, std::make_unique<CStore>()).first;
      found->second->name = name;
      found->second->parent = store;
    }
    store = found->second.get();
  }
  return *store;
}

void CValueDocument::addValue(CStore& store, std::string_view name, CStoredValue value, CLines::iterator line) {
  count();
  store.values.emplace(foldedText(name), CValue{std::string(name), std::move(value), line});
}

void CValueDocument::makeStore(const CStorePath& path) {
  CStore& store = reach(path);
  if (store.isEmpty()) head(store);
}

void CValueDocument::setValue(const CStorePath& path, std::string_view name, CStoredValue value) {
  CStore& store = reach(path);
  const auto found = store.values.find(foldedText(name));
  if (found == store.values.end()) {
    const auto place = placeForValue(store);
    const auto line = insert(place, nameText(name) + " = " + valueText(value), &store);
    addValue(store, name, std::move(value), line);
    return;
  }
  std::string& text = found->second.line->text;
  CValueScanner scanner(text);
  scanner.skipBlanks();
  const CValueParts parts = valueParts(scanner);
  text.replace(parts.start, parts.end - parts.start, valueText(value));
  found->second.value = std::move(value);
}

bool CValueDocument::removeValue(const CStorePath& path, std::string_view name) {
  CStore* store = find(path);
  if (!store) return false;
  const auto found = store->values.find(foldedText(name));
  if (found == store->values.end()) return false;
  lines_.erase(found->second.line);
  store->values.erase(found);
  --entries_;
  return true;
}

bool CValueDocument::removeStore(const CStorePath& path) {
  CStore* store = find(path);
  if (!store || store == root_.get()) return false;
  eraseLinesOf(*store);
  CStore& parent = *store->parent;
  parent.stores.erase(foldedText(store->name));
  entries_ = entriesIn(*root_);
  // The parent may have been there for this store's sake alone.
  if (parent.isEmpty()) head(parent);
  return true;
}

std::size_t CValueDocument::entriesIn(const CStore& store) {
  std::size_t entries = store.values.size() + store.stores.size();
  for (const auto& [key, child] : store.stores) entries += entriesIn(*child);
  return entries;
}

void CValueDocument::head(CStore& store) {
  if (store.headed) return;
  std::vector<const CStore*> levels;
  for (const CStore* level = &store; level != root_.get(); level = level->parent) levels.push_back(level);
  std::string text = "[";
  for (; !levels.empty(); levels.pop_back()) {
    if (text.size() > 1) text += '.';
    text += nameText(levels.back()->name);
  }
  text += ']';
  if (!lines_.empty() && !isBlank(lines_.back().text)) insert(lines_.end(), "", nullptr);
  insert(lines_.end(), std::move(text), &store)->header = true;
  store.headed = true;
}

CValueDocument::CLines::iterator CValueDocument::placeForValue(CStore& store) {
  head(store);
  const auto isOfStore = [&store](const CLine& line) { return line.store == &store; };
  const auto last = std::find_if(lines_.rbegin(), lines_.rend(), isOfStore).base();
  if (last != lines_.begin() || &store != root_.get()) return last;
  // The root's first value: before the first header and the comment on that.
  auto place = std::find_if(lines_.begin(), lines_.end(), [](const CLine& line) { return line.header; });
  if (place == lines_.end()) return place;
  while (place != lines_.begin() && !isBlank(std::prev(place)->text)) --place;
  return insert(place, "", nullptr);
}

CValueDocument::CLines::iterator CValueDocument::insert(CLines::iterator before, std::string text, CStore* store) {
  return lines_.insert(before, CLine{std::move(text) + lineEnd_, store});
}

void CValueDocument::eraseLinesOf(const CStore& store) {
  // The comments among the lines go with them, those behind the last one may belong to what follows.
  auto from = lines_.end();
  for (auto line = lines_.begin(); line != lines_.end();) {
    if (line->store && line->store->isWithin(store)) {
      // A header takes the blank line before it along, as it has brought one.
      if (from == lines_.end() && line->header && line != lines_.begin() && isBlank(std::prev(line)->text))
        lines_.erase(std::prev(line));
      line = lines_.erase(from == lines_.end() ? line : from, std::next(line));
      from = line;
      if (line == lines_.end()) break;
      continue;
    }
    if (line->store) from = lines_.end();
    ++line;
  }
}

}  // namespace orlo::posix
