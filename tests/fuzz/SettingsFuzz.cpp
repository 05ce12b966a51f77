// Reads any bytes up to the first 0 as a settings file and what follows as changes to it, and checks that the file
// tells the same after each change as a plain list of its stores and values does.

#include "foundation/posix/StoredText.h"
#include "foundation/posix/ValueDocument.h"
#include "foundation/posix/ValueText.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>

using namespace orlo;
using namespace orlo::posix;

namespace {

#define CHECK(condition)                                                   \
  do {                                                                     \
    if (!(condition)) {                                                    \
      std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                        \
    }                                                                      \
  } while (false)

/// The values of each store, as texts; all names in lower case.
using CContent = std::map<CStorePath, std::map<std::string, std::string>>;

CStorePath folded(CStorePath path) {
  for (std::string& name : path) name = foldedText(name);
  return path;
}

void readInto(CContent& content, const CValueDocument& document, const CStorePath& path) {
  CHECK(document.hasStore(path));
  auto& values = content[folded(path)];
  for (const std::string& name : document.getValueNames(path)) {
    const CStoredValue* value = document.findValue(path, name);
    CHECK(value);
    CHECK(values.emplace(foldedText(name), valueText(*value)).second);
  }
  for (const std::string& name : document.getStoreNames(path)) {
    CStorePath inner = path;
    inner.push_back(name);
    readInto(content, document, inner);
  }
}

CContent contentOf(const CValueDocument& document) {
  CContent content;
  readInto(content, document, {});
  return content;
}

/// As it is, and as it is read back from its text.
void check(const CValueDocument& document, const CContent& expected) {
  CHECK(contentOf(document) == expected);
  const std::string text = document.getText();
  const CValueDocument again(text);
  CHECK(again.getText() == text);
  CHECK(contentOf(again) == expected);
}

void addStores(CContent& content, const CStorePath& path) {
  for (std::size_t level = 0; level <= path.size(); ++level)
    content[folded({path.begin(), path.begin() + static_cast<std::ptrdiff_t>(level)})];
}

bool isWithin(const CStorePath& inner, const CStorePath& outer) {
  return inner.size() >= outer.size() && std::equal(outer.begin(), outer.end(), inner.begin());
}

/// Takes words, which end with a byte 0, off the changes.
class CChanges {
public:
  explicit CChanges(std::string_view bytes) : bytes_(bytes) {}

  bool atEnd() const { return bytes_.empty(); }
  std::string takeWord() {
    const std::size_t end = std::min(bytes_.find('\0'), bytes_.size());
    const std::string word = toStoredText(fromUTF8(bytes_.substr(0, end)));
    bytes_.remove_prefix(std::min(end + 1, bytes_.size()));
    return word;
  }
  unsigned char takeByte() {
    if (bytes_.empty()) return 0;
    const auto byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte;
  }

private:
  std::string_view bytes_;
};

CStoredValue takeValue(CChanges& changes, unsigned char kind) {
  const std::string word = changes.takeWord();
  switch (kind % 6) {
    case 0:
      return {static_cast<std::int32_t>(std::atoll(word.c_str()))};
    case 1:
      return {std::int64_t{std::atoll(word.c_str())}};
    case 2:
      return {std::atof(word.c_str())};
    case 3:
      return {word.size() % 2 == 0};
    case 4: {
      const auto* bytes = reinterpret_cast<const std::byte*>(word.data());
      return {CBytes(bytes, bytes + word.size())};
    }
    default:
      return {word};
  }
}

void change(CValueDocument& document, CContent& expected, CChanges& changes) {
  const unsigned char kind = changes.takeByte();
  CStorePath path(kind / 4 % 4);
  for (std::string& name : path) name = changes.takeWord();
  const CStorePath key = folded(path);
  switch (kind % 4) {
    case 0:
      document.makeStore(path);
      addStores(expected, path);
      break;
    case 1: {
      const std::string name = changes.takeWord();
      const CStoredValue value = takeValue(changes, kind / 16);
      document.setValue(path, name, value);
      addStores(expected, path);
      expected[key][foldedText(name)] = valueText(value);
      break;
    }
    case 2: {
      const auto store = expected.find(key);
      const std::string name = changes.takeWord();
      const bool wasThere = store != expected.end() && store->second.erase(foldedText(name)) == 1;
      CHECK(document.removeValue(path, name) == wasThere);
      break;
    }
    default: {
      const bool wasThere = !path.empty() && expected.contains(key);
      CHECK(document.removeStore(path) == wasThere);
      if (wasThere) std::erase_if(expected, [&key](const auto& store) { return isWithin(store.first, key); });
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t end = std::min(bytes.find('\0'), size);
  CChanges changes(bytes.substr(std::min(end + 1, size)));
  CValueDocument document;
  try {
    document = CValueDocument(bytes.substr(0, end));
  } catch (const CDocumentError& error) {
    CHECK(error.line > 0 && !error.reason.empty());
    return 0;
  }
  CContent expected = contentOf(document);
  check(document, expected);
  try {
    for (int i = 0; i < 20 && !changes.atEnd(); ++i) {
      change(document, expected, changes);
      check(document, expected);
    }
  } catch (const CDocumentLimit&) {
  }
  return 0;
}
