#pragma once

#include "backend/infilexml/FilterParam.h"
#include "backend/infilexml/TrackItem.h"
#include "foundation/URI.h"

#include <cstddef>
#include <vector>

namespace vantra::infilexml {

/// Pictures that a filter makes from its parameters.
class CFilter : public CTrackItem {
public:
  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;
  orlo::String GetElementName() const override { return "filter"; }

  void AddParam(const orlo::P<CFilterParam>& param) { params_.push_back(param); }
  std::size_t GetParamCount() const { return params_.size(); }
  const orlo::P<CFilterParam>& GetParam(std::size_t index) const { return params_[index]; }

  double duration = 0;
  orlo::PC<orlo::IURI> src;

private:
  std::vector<orlo::P<CFilterParam>> params_;
};

}  // namespace vantra::infilexml
