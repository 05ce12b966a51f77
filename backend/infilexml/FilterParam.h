#pragma once

#include "backend/infilexml/InfileXmlNode.h"
#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "foundation/String.h"
#include "foundation/URI.h"

#include <cstdint>

namespace vantra::infilexml {

/// A named value for a filter.
class CFilterParam : public orlo::CObject, public virtual IInfileXmlNode {
public:
  virtual orlo::String GetElementName() const = 0;
  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;

  orlo::String name;

protected:
  virtual void ReadValue(const TiXmlElement& element) = 0;
  virtual void WriteValue(TiXmlElement& element) const = 0;
};

/// Read from "true" or "1", written as "true" or "false".
class CBoolean : public CFilterParam {
public:
  orlo::String GetElementName() const override { return "boolean"; }

  bool value = false;
  /// What it was read from; empty for a new one.
  orlo::String text;

protected:
  void ReadValue(const TiXmlElement& element) override;
  void WriteValue(TiXmlElement& element) const override;
};

class CBool : public CBoolean {
public:
  orlo::String GetElementName() const override { return "bool"; }
};

class CInteger : public CFilterParam {
public:
  orlo::String GetElementName() const override { return "integer"; }

  std::int32_t value = 0;

protected:
  void ReadValue(const TiXmlElement& element) override;
  void WriteValue(TiXmlElement& element) const override;
};

class CFloat : public CFilterParam {
public:
  orlo::String GetElementName() const override { return "float"; }

  double value = 0;

protected:
  void ReadValue(const TiXmlElement& element) override;
  void WriteValue(TiXmlElement& element) const override;
};

class CString : public CFilterParam {
public:
  orlo::String GetElementName() const override { return "string"; }

  orlo::String value;

protected:
  void ReadValue(const TiXmlElement& element) override;
  void WriteValue(TiXmlElement& element) const override;
};

class CUri : public CFilterParam {
public:
  orlo::String GetElementName() const override { return "uri"; }

  orlo::PC<orlo::IURI> value;

protected:
  void ReadValue(const TiXmlElement& element) override;
  void WriteValue(TiXmlElement& element) const override;
};

/// A text that is handed on as it is.
class CPassThrough : public CString {
public:
  orlo::String GetElementName() const override { return "passthrough"; }
};

/// An empty parameter of the kind that an element name stands for: "string", "passthrough", "boolean", "bool", "uri",
/// "float" or "integer". Throws orlo::CError for any other name.
orlo::P<CFilterParam> CreateFilterParam(const orlo::String& elementName);

}  // namespace vantra::infilexml
