#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "graphics/model/GraphicElement.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace graphics {

/// A run of elements of one kind.
class CGraphicLayer : public orlo::CObject {
public:
  static constexpr std::int32_t kStatic = 0;
  static constexpr std::int32_t kExclusive = 1;

  std::size_t GetCount() const { return elements_.size(); }
  orlo::P<CGraphicElement> GetItem(std::size_t index) const { return elements_.at(index); }
  void Add(const orlo::P<CGraphicElement>& element) { elements_.push_back(element); }
  bool IsEmpty() const { return elements_.empty(); }
  std::int32_t GetKind() const { return kind_; }
  void SetKind(std::int32_t kind) { kind_ = kind; }

private:
  std::vector<orlo::P<CGraphicElement>> elements_;
  std::int32_t kind_ = kStatic;
};

/// The layers that the elements of a document are sorted into, bottom first.
class CGraphicLayers : public orlo::CObject {
public:
  std::size_t GetCount() const { return layers_.size(); }
  orlo::P<CGraphicLayer> GetItem(std::size_t index) const { return layers_.at(index); }
  void Add(const orlo::P<CGraphicLayer>& layer) { layers_.push_back(layer); }

  /// The layer that takes the next element of this kind: the last one if it has the kind, otherwise a new one.
  /// An exclusive layer takes one element only.
  orlo::P<CGraphicLayer> GetLayerFor(std::int32_t kind);

private:
  std::vector<orlo::P<CGraphicLayer>> layers_;
};

}  // namespace graphics
