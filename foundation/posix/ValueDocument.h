#pragma once

#include "foundation/posix/StoredValue.h"

#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orlo::posix {

/// Why and where the text of a settings file is not understood. Lines count from 1.
struct CDocumentError {
  int line;
  std::string reason;
};

/// A limit that a settings file would pass.
struct CDocumentLimit {
  std::string reason;
};

/// The names of stores within stores, from the root on; UTF-8.
using CStorePath = std::vector<std::string>;

/// The text of a settings file, line by line, and the tree of stores that it tells of. A change touches the lines that
/// it concerns and no other, so that comments and the order of lines stay.
///
///     # The root store.
///     language = "en"
///     [window.position]
///     x = 12              # 32 bit
///     scale = 1.5         # a double always has a point, an exponent, or is inf or nan
///     maximised = true    # 32 bit as well
///     seen = { int64 = 5 }
///     opened = 99999999999
///     key = { hex = "00FF" }
///
/// A name is letters, digits, "_" and "-", or stands in quotes as texts do. In a text "\n", "\t", "\"", "\\" and the
/// number of a character as in "\u0000" or "\U0001F600" stand for what they say; between single quotes nothing does.
/// This is the common ground with TOML, but for a value that may be named as a store is.
class CValueDocument {
public:
  static constexpr std::size_t kMostBytes = 4 << 20;
  static constexpr std::size_t kMostEntries = 100000;
  static constexpr std::size_t kMostLevels = 32;

  CValueDocument();
  /// Throws CDocumentError.
  explicit CValueDocument(std::string_view text);
  ~CValueDocument();
  CValueDocument(CValueDocument&&) noexcept;
  CValueDocument& operator=(CValueDocument&&) noexcept;

  std::string getText() const;

  bool hasStore(const CStorePath& path) const;
  /// Null for what is not there.
  const CStoredValue* findValue(const CStorePath& path, std::string_view name) const;
  std::vector<std::string> getValueNames(const CStorePath& path) const;
  std::vector<std::string> getStoreNames(const CStorePath& path) const;

  /// These make what is missing of the path. What would be too much throws CDocumentLimit.
  void makeStore(const CStorePath& path);
  void setValue(const CStorePath& path, std::string_view name, CStoredValue value);
  /// False if there was nothing to remove. The root store cannot be removed.
  bool removeValue(const CStorePath& path, std::string_view name);
  bool removeStore(const CStorePath& path);

private:
  class CStore;
  struct CLine {
    std::string text;
    /// What the header or value of this line belongs to; null for blanks and comments.
    CStore* store = nullptr;
    bool header = false;
  };
  using CLines = std::list<CLine>;
  struct CValue;

  void readLine(CLine& line, CStore*& current);
  CStore& reach(const CStorePath& path);
  CStore* find(const CStorePath& path) const;
  void addValue(CStore& store, std::string_view name, CStoredValue value, CLines::iterator line);
  void count();
  static std::size_t entriesIn(const CStore& store);
  void head(CStore& store);
  CLines::iterator placeForValue(CStore& store);
  CLines::iterator insert(CLines::iterator before, std::string text, CStore* store);
  void eraseLinesOf(const CStore& store);

  CLines lines_;
  std::unique_ptr<CStore> root_;
  std::size_t entries_ = 0;
  /// What new lines have before their line feed: a carriage return, or nothing.
  std::string lineEnd_;
};

}  // namespace orlo::posix
