#pragma once

#include "graphics/skin/Layer.h"

#include <wx/bitmap.h>

#include <map>
#include <memory>

namespace graphics {
class CScaledCopy;
}

namespace graphics::skin {

/// A bitmap: one fixed to the layer, one from the animation source, or one of the layer's named ones.
class CAnimationLayer : public CLayer {
public:
  static constexpr const char* kTypeName = "animation";

  CAnimationLayer();
  ~CAnimationLayer() override;

  /// A copy, or none for a bitmap that isn't ok.
  void SetAttachmentBitmap(const wxBitmap& bitmap);
  const wxBitmap* GetAttachmentBitmap() const { return attachmentBitmap_.get(); }
  /// The key must be the name of an XML element. A copy; a bitmap that isn't ok takes the entry away.
  void SetProp(const wxString& key, const wxBitmap& bitmap);
  const std::map<wxString, std::unique_ptr<wxBitmap>>& GetProps() const { return props_; }

  /// What is shown, null for nothing. The source may be null.
  const wxBitmap* GetContentBitmap(IAnimationSource* source) const;

  void Paint(CPaintContext& context, TEffectGraphicsContext& target, const CDoubleRect& rect, ITextSource* texts,
             IAnimationSource* animations, ICustomLayerPainter* painter) override;
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;
  wxString GetLayerTypeName() const override { return kTypeName; }
  bool IsDeviceScaled() const override { return false; }
  CDoubleSize GetPreferredSize(TEffectGraphicsContext& context, ITextSource* texts,
                               IAnimationSource* animations) const override;
  std::uint32_t GetKindMask() const override { return LayerKind::kAnimation; }

  /// The bitmap is stretched into the box, or else drawn at its own size.
  bool scalingEnabled = true;
  /// Stretched with its aspect ratio kept.
  bool scalingProportional = false;
  /// The borders of the bitmap that keep their size where it is stretched.
  CMargins scaleMargins;
  /// Key for the animation source and the named bitmaps.
  wxString uriProp;

private:
  struct CAlphaCopy {
    wxBitmap source;
    wxBitmap copy;
  };

  const wxBitmap& MaskToAlpha(const wxBitmap& bitmap);
  void PaintStretched(TEffectGraphicsContext& target, const wxRect& place, const wxBitmap& bitmap);

  std::unique_ptr<wxBitmap> attachmentBitmap_;
  std::map<const wxBitmap*, CAlphaCopy> alphaCache_;
  std::map<wxString, std::unique_ptr<wxBitmap>> props_;
  /// What was stretched last, to which size, and the result if it was the same the time before.
  wxBitmap stretchedFrom_;
  wxSize stretchedTo_;
  std::unique_ptr<CScaledCopy> stretched_;
};

}  // namespace graphics::skin
