#pragma once

#include "foundation/Base.h"

#include <cstdint>

class wxXmlNode;

namespace graphics {

class IResourceInputStore;
class IResourceOutputStore;

/// Something that goes into a file once, however often the file refers to it.
class IReusableResource : public virtual orlo::IBase {
public:
  virtual void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const = 0;
  /// Items that are missing in the node leave what they would set as it is.
  virtual void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) = 0;
  /// Differs between objects that live at the same time.
  virtual std::int64_t GetUniqueId() const = 0;
};

}  // namespace graphics
