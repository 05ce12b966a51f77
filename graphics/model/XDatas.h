#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "graphics/model/XData.h"

#include <wx/string.h>

#include <map>

namespace graphics {

/// A named bag of typed values that goes with a document and that the graphics layer does not interpret.
class CXDatas : public orlo::CObject {
public:
  /// One child of the node for each entry that holds an object, in the order of the names.
  virtual void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const;
  /// Adds the entries of the node to those that are there. Children of an unknown type are skipped.
  virtual void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store);

  /// Null if there is no such entry.
  orlo::P<CXData> Get(const wxString& name) const;
  /// An entry may be null; it then stays out of files.
  void Set(const wxString& name, const orlo::P<CXData>& data) { entries_[name] = data; }
  /// True if no entry holds an object.
  bool IsEmpty() const;
  orlo::P<CXDatas> Clone() const;

private:
  std::map<wxString, orlo::P<CXData>> entries_;
};

}  // namespace graphics
