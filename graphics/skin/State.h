#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "graphics/geometry/DoubleSize.h"
#include "graphics/skin/Layer.h"

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace graphics::skin {

/// Layers that a state reads from files; further ones are passed over.
constexpr std::size_t kMostLayers = 100;

/// One of the looks of a skin, "normal" or "hover" for instance: layers drawn one above the other.
class CState : public orlo::CObject {
public:
  explicit CState(const wxString& name) : name_(name) {}

  virtual void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const;
  /// The name of the node replaces the state's own. Layers that are there stay, and those of the node come behind
  /// them.
  virtual void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store);
  /// In pixels, the largest of its layers on each axis. Either source may be null.
  virtual CDoubleSize GetPreferredSize(TEffectGraphicsContext& context, ITextSource* texts,
                                       IAnimationSource* animations) const;
  /// The same with texts broken into lines of the width.
  virtual CDoubleSize GetPreferredSizeForWidth(TEffectGraphicsContext& context, ITextSource* texts,
                                               IAnimationSource* animations, std::int32_t width) const;

  const wxString& GetName() const { return name_; }
  /// The first is at the bottom.
  const std::vector<orlo::P<CLayer>>& GetLayers() const { return layers_; }
  void AddLayer(const orlo::P<CLayer>& layer) { layers_.push_back(layer); }

private:
  void ReadLayers(const wxXmlNode& node, IResourceInputStore& store);

  std::vector<orlo::P<CLayer>> layers_;
  wxString name_;
};

}  // namespace graphics::skin
