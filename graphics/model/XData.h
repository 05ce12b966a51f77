#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "graphics/geometry/DoubleRect.h"

#include <wx/string.h>

#include <cstdint>

class wxXmlNode;

namespace graphics {

class IResourceInputStore;
class IResourceOutputStore;

/// One typed value of the extension data of a document.
class CXData : public orlo::CObject {
public:
  /// An empty value of the type "string", "rect" or "int"; null for any other name. Compares with case.
  static orlo::P<CXData> Create(const wxString& typeName);

  virtual void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const = 0;
  virtual void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) = 0;
  virtual wxString GetTypeName() const = 0;
  virtual orlo::P<CXData> Clone() const = 0;
  virtual bool IsEmpty() const = 0;
};

class CStringXData : public CXData {
public:
  explicit CStringXData(const wxString& text = {}) : value(text) {}

  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;
  wxString GetTypeName() const override { return "string"; }
  orlo::P<CXData> Clone() const override { return orlo::makeObject<CStringXData>(value); }
  bool IsEmpty() const override { return value.empty(); }

  wxString value;
};

class CRectXData : public CXData {
public:
  explicit CRectXData(const CDoubleRect& rect = {}) : value(rect) {}

  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;
  wxString GetTypeName() const override { return "rect"; }
  orlo::P<CXData> Clone() const override { return orlo::makeObject<CRectXData>(value); }
  /// True if any one of the four numbers is 0.
  bool IsEmpty() const override;

  CDoubleRect value;
};

class CIntXData : public CXData {
public:
  explicit CIntXData(std::int32_t number = 0) : value(number) {}

  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;
  wxString GetTypeName() const override { return "int"; }
  orlo::P<CXData> Clone() const override { return orlo::makeObject<CIntXData>(value); }
  bool IsEmpty() const override { return false; }

  std::int32_t value;
};

}  // namespace graphics
