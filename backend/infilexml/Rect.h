#pragma once

#include "backend/infilexml/InfileXmlNode.h"
#include "foundation/Object.h"

#include <cstdint>

namespace vantra::infilexml {

/// In pixels. Its owner names the element.
class CRect : public orlo::CObject, public virtual IInfileXmlNode {
public:
  CRect() = default;
  CRect(std::int32_t left, std::int32_t top, std::int32_t wide, std::int32_t high)
      : x(left), y(top), width(wide), height(high) {}

  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;

  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
};

}  // namespace vantra::infilexml
