#pragma once

#include "backend/infilexml/TrackItem.h"
#include "foundation/URI.h"

#include <cstddef>
#include <vector>

namespace vantra::infilexml {

/// Pictures that a shader file makes from numbers.
class CShader : public CTrackItem {
public:
  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;
  orlo::String GetElementName() const override { return "shader"; }

  /// Empty for none.
  virtual orlo::String GetUri() const { return uri_; }
  virtual void SetUri(const orlo::String& uri) { uri_ = uri; }
  virtual void AddParameter(double value) { parameters_.push_back(value); }
  virtual double GetParameter(std::size_t index) const { return parameters_[index]; }
  virtual std::size_t GetParameterCount() const { return parameters_.size(); }

private:
  orlo::String uri_;
  std::vector<double> parameters_;
};

}  // namespace vantra::infilexml
