#pragma once

#include "filter/FPSAnimation.h"
#include "filter/Layer.h"
#include "filter/LayerPicture.h"
#include "filter/ShownFrames.h"

#include <map>
#include <vector>

namespace authfilter {

/// One element that changes, or that may show what changes. It is drawn when it shows what it hasn't shown before; the
/// pictures of an animation's frames are kept as far as there is room. Without drawing, a repaint takes no lock.
class CExclusiveLayer : public CLayer {
public:
  /// The rate is the host's frames a second, as a fraction.
  CExclusiveLayer(const orlo::P<graphics::CGraphicDocument>& document, std::int64_t frameRateNum,
                  std::int64_t frameRateDen);

  std::int32_t IsExclusive() const override { return 1; }
  void Paint(CFrame& frame) override;
  bool MayChange() const override { return !shown_.AreNone(); }
  bool HasChanged() const override { return shown_.HaveChanged(); }
  bool Hides(const wxRect& rect) const override;
  void PassOver(const wxRect& hidden, const CPageGeometry& geometry) override;
  /// Empty for an element that is invisible or lies outside of the frame.
  wxRect GetArea(const CPageGeometry& geometry) const override;
  /// True as long as an animation runs, also while its picture stays.
  bool NextFrame() override;
  void Open(const wxString& filterDir, const wxString& animationDir, const wxString& themeDir) override;
  void Close() override;

private:
  CLayerPicture* KeptPicture(CCanvas& canvas, const wxRect& area);

  std::vector<orlo::P<CFPSAnimation>> animations_;
  CShownFrames shown_;
  /// By the frame, if there is one animation.
  std::map<const wxObjectRefData*, CLayerPicture> pictures_;
  /// Whose picture was drawn last.
  const wxObjectRefData* painted_ = nullptr;
};

}  // namespace authfilter
