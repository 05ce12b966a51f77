#pragma once

#include "foundation/Object.h"
#include "graphics/model/ReusableResource.h"

namespace authed::data {

/// What is encoded for the disc.
class CEncodable : public orlo::CObject, public virtual graphics::IReusableResource {
public:
  void WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, graphics::IResourceInputStore& store) override;
};

}  // namespace authed::data
