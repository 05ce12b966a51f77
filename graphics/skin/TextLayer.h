#pragma once

#include "graphics/geometry/DoublePoint.h"
#include "graphics/skin/Layer.h"

#include <wx/colour.h>
#include <wx/font.h>
#include <wx/gdicmn.h>

namespace graphics::skin {

class CLayerText;

/// A line or block of text of the text source, with a shadow or a halo if wanted.
class CTextLayer : public CLayer {
public:
  static constexpr const char* kTypeName = "text";

  void Paint(CPaintContext& context, TEffectGraphicsContext& target, const CDoubleRect& rect, ITextSource* texts,
             IAnimationSource* animations, ICustomLayerPainter* painter) override;
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;
  wxString GetLayerTypeName() const override { return kTypeName; }
  bool IsDeviceScaled() const override { return true; }
  /// Of the text that the source has under an empty key. Without a source only the margins count.
  CDoubleSize GetPreferredSize(TEffectGraphicsContext& context, ITextSource* texts,
                               IAnimationSource* animations) const override;
  CDoubleSize GetPreferredSizeForWidth(TEffectGraphicsContext& context, ITextSource* texts,
                                       IAnimationSource* animations, std::int32_t width) const override;
  std::uint32_t GetKindMask() const override { return LayerKind::kText; }

  wxFont font{*wxNORMAL_FONT};
  /// Colours are shown opaque, and black if they are undefined; the alpha counts in an alpha mask alone.
  wxColour color;
  wxColour shadowColor;
  /// No shadow unless one of both is above 0.
  CDoublePoint shadowRelPosition;
  bool haloEnabled = false;
  /// The text is broken into lines of the box's width.
  bool multilineEnabled = false;
  wxColour haloColor;
  /// Key for the text source.
  wxString prop;

private:
  /// In lines of the width if it may have several.
  CLayerText TextOf(ITextSource& texts, int width) const;
  CDoubleSize WithMargins(wxSize text) const;
};

}  // namespace graphics::skin
