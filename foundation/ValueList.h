#pragma once

#include "foundation/Enum.h"
#include "foundation/SimpleHashTable.h"
#include "foundation/String.h"

#include <cstdint>

namespace orlo {

/// Named values of several types. A value that is missing is no error: readers give the default.
class IValueList : public virtual IBase {
public:
  virtual bool isCaseSensitive() const = 0;
  virtual bool has(const String& name) const = 0;
  /// Null if there is no such name.
  virtual PC<IBase> getObject(const String& name) const = 0;

  /// A value of another numeric type is converted; what is too large for an integer becomes the nearest one. A text is
  /// parsed, and throws CParseError if it is no number. Values of other types give the default.
  virtual std::int32_t getInt(const String& name, std::int32_t otherwise) const = 0;
  virtual std::int64_t getInt64(const String& name, std::int64_t otherwise) const = 0;
  /// Truth values only; every other type gives the default.
  virtual bool getBool(const String& name, bool otherwise) const = 0;
  virtual float getFloat(const String& name, float otherwise) const = 0;
  virtual double getDouble(const String& name, double otherwise) const = 0;
  /// A number is written as text. With the null string as default the caller learns whether there is a text.
  virtual String getString(const String& name, const String& otherwise) const = 0;
  virtual PC<IBase> getObject(const String& name, const PC<IBase>& otherwise) const = 0;

  /// All setters return true if the name is new.
  virtual bool setObject(const String& name, PC<IBase> value) = 0;
  virtual bool setInt(const String& name, std::int32_t value) = 0;
  virtual bool setInt64(const String& name, std::int64_t value) = 0;
  virtual bool setBool(const String& name, bool value) = 0;
  virtual bool setDouble(const String& name, double value) = 0;
  virtual bool setFloat(const String& name, float value) = 0;
  virtual bool setString(const String& name, const String& value) = 0;

  /// Returns true if the name was there.
  virtual bool remove(const String& name) = 0;
  virtual void removeAll() = 0;
  /// The names as IString objects, in no order. If names come or go, the walk ends with CInvalidObjectStateError.
  virtual P<IConstEnum> getNames() const = 0;
  virtual int getCount() const = 0;
  /// Copies all values of the other list.
  virtual void setAll(const PC<IValueList>& other) = 0;
};

/// A value list in memory. Without regard to case it knows its names in lower case, and lists them so. No locks.
class CValueList : public CObject, public IValueList {
public:
  class CNameEnum;
  struct Entry {
    PC<IBase> value;
  };

  explicit CValueList(bool caseSensitive) : caseSensitive_(caseSensitive) {}

  bool isCaseSensitive() const override { return caseSensitive_; }
  bool has(const String& name) const override;
  PC<IBase> getObject(const String& name) const override;
  std::int32_t getInt(const String& name, std::int32_t otherwise) const override;
  std::int64_t getInt64(const String& name, std::int64_t otherwise) const override;
  bool getBool(const String& name, bool otherwise) const override;
  float getFloat(const String& name, float otherwise) const override;
  double getDouble(const String& name, double otherwise) const override;
  String getString(const String& name, const String& otherwise) const override;
  PC<IBase> getObject(const String& name, const PC<IBase>& otherwise) const override;
  bool setObject(const String& name, PC<IBase> value) override;
  bool setInt(const String& name, std::int32_t value) override;
  bool setInt64(const String& name, std::int64_t value) override;
  bool setBool(const String& name, bool value) override;
  bool setDouble(const String& name, double value) override;
  bool setFloat(const String& name, float value) override;
  bool setString(const String& name, const String& value) override;
  bool remove(const String& name) override;
  void removeAll() override { table_.clear(); }
  P<IConstEnum> getNames() const override;
  int getCount() const override { return table_.getCount(); }
  void setAll(const PC<IValueList>& other) override;

private:
  using CTable = TSimpleHashTable<String, Entry>;

  String keyOf(const String& name) const { return caseSensitive_ ? name : name.toLower(); }

  CTable table_{0, 0.8, 2.0};
  bool caseSensitive_;
};

class CValueList::CNameEnum : public CObject, public IConstEnum {
public:
  explicit CNameEnum(PC<CValueList> list);

  bool hasNext() override;
  int getCount() override { return list_->getCount(); }
  PC<IBase> nextConst() override;
  void reset() override;

private:
  PC<CValueList> list_;
  int bucket_ = 0;
  /// The one whose name comes next; null at the end.
  const CTable::CEntry* entry_ = nullptr;
  std::uint32_t revision_ = 0;
};

}  // namespace orlo
