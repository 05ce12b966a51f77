#pragma once

#include "foundation/Object.h"

class wxXmlNode;

namespace graphics {
class IResourceInputStore;
class IResourceOutputStore;
}  // namespace graphics

namespace authed::data {

/// What is encoded for the disc.
class CEncodable : public orlo::CObject {
public:
  virtual void WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& store) const;
  virtual void ReadFromXml(const wxXmlNode& node, graphics::IResourceInputStore& store);
};

}  // namespace authed::data
