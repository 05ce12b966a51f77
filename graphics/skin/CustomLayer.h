#pragma once

#include "graphics/skin/Layer.h"
#include "graphics/skin/Skin.h"

#include <wx/bitmap.h>

#include <memory>

namespace graphics {
class CScaledCopy;
}

namespace graphics::skin {

/// What a custom painter draws, cut to the shape of another skin if there is one.
class CCustomLayer : public CLayer {
public:
  static constexpr const char* kTypeName = "custom";

  CCustomLayer();
  ~CCustomLayer() override;

  /// Its state normal is the outline. Must not be a skin that has this layer.
  void SetShape(const orlo::P<CSkin>& shape);
  const orlo::P<CSkin>& GetShape() const { return shape_; }

  void Paint(CPaintContext& context, TEffectGraphicsContext& target, const CDoubleRect& rect, ITextSource* texts,
             IAnimationSource* animations, ICustomLayerPainter* painter) override;
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;
  wxString GetLayerTypeName() const override { return kTypeName; }
  bool IsDeviceScaled() const override { return false; }
  std::uint32_t GetKindMask() const override { return LayerKind::kCustom; }

  /// Tells the custom painter what to paint.
  wxString id;

private:
  wxBitmap FindShapeMask(const CPaintContext& context, wxSize size);
  wxBitmap BuildShapeMask(const CPaintContext& context, wxSize size) const;
  void PaintContent(CPaintContext& context, TEffectGraphicsContext& target, const CDoubleRect& rect, ITextSource* texts,
                    IAnimationSource* animations, ICustomLayerPainter* painter);
  void PaintPlaceholder(TEffectGraphicsContext& target, const CDoubleRect& rect) const;

  orlo::P<CSkin> shape_;
  std::unique_ptr<CScaledCopy> shapeMask_;
};

}  // namespace graphics::skin
