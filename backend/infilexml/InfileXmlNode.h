#pragma once

#include "foundation/Base.h"

class TiXmlElement;

namespace vantra::infilexml {

/// A node of a timeline description: it reads itself from an XML element and writes itself to one. Attributes that are
/// missing leave what they stand for as it is. Texts are UTF-8 on the XML side, times are seconds.
class IInfileXmlNode : public virtual orlo::IBase {
public:
  virtual void Read(const TiXmlElement& element) = 0;
  virtual void Write(TiXmlElement& element) const = 0;
};

}  // namespace vantra::infilexml
