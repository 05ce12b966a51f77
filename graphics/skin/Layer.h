#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "graphics/geometry/DoubleRect.h"
#include "graphics/geometry/DoubleSize.h"
#include "graphics/geometry/Margins.h"

#include <wx/gdicmn.h>
#include <wx/string.h>

#include <cstdint>

class wxXmlNode;

namespace graphics {
struct CPaintContext;
class IResourceInputStore;
class IResourceOutputStore;
class TEffectGraphicsContext;
}  // namespace graphics

namespace graphics::skin {

class IAnimationSource;
class ICustomLayerPainter;
class ITextSource;

/// The bits of the kinds of layers.
namespace LayerKind {
constexpr std::uint32_t kAnimation = 1;
constexpr std::uint32_t kText = 2;
constexpr std::uint32_t kCustom = 4;
}  // namespace LayerKind

/// One thing that a state of a skin draws into its rectangle. Rectangles and sizes are in pixels. Painting fills caches
/// and nothing else.
class CLayer : public orlo::CObject {
public:
  /// Any of the sources and the painter may be null.
  virtual void Paint(CPaintContext& context, TEffectGraphicsContext& target, const CDoubleRect& rect,
                     ITextSource* texts, IAnimationSource* animations, ICustomLayerPainter* painter) = 0;
  virtual void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const;
  virtual void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store);
  /// The name of its node.
  virtual wxString GetLayerTypeName() const = 0;
  /// True for what keeps its size on the page at every scale of the page.
  virtual bool IsDeviceScaled() const = 0;
  /// What the content wants, margins included. Either source may be null.
  virtual CDoubleSize GetPreferredSize(TEffectGraphicsContext& context, ITextSource* texts,
                                       IAnimationSource* animations) const;
  virtual CDoubleSize GetPreferredSizeForWidth(TEffectGraphicsContext& context, ITextSource* texts,
                                               IAnimationSource* animations, std::int32_t width) const;
  /// One bit of LayerKind.
  virtual std::uint32_t GetKindMask() const = 0;

  /// What the margins leave of the rectangle.
  CDoubleRect CalcContentRect(const CDoubleRect& rect) const;

  CMargins contentMargins;
  /// Where the content lies in the box that the margins leave: 0.0 left to 1.0 right, and 0.0 top to 1.0 bottom.
  double horzAlign = 0.0;
  double vertAlign = 0.0;

protected:
  /// The top left corner of content in a box, in whole pixels.
  wxPoint AlignIn(const CDoubleRect& box, CDoubleSize content) const;
};

/// An empty layer of the kind that a node name stands for: "animation", "text" or "custom", exactly so. Null for any
/// other name.
orlo::P<CLayer> CreateLayer(const wxString& name);

}  // namespace graphics::skin
