#pragma once

#include "authed/data/GraphicMovieImage.h"
#include "filter/FPSAnimation.h"
#include "filter/Layer.h"
#include "filter/LayerPicture.h"
#include "filter/ShownFrames.h"

#include <map>
#include <optional>
#include <vector>

namespace authfilter {

/// One element that changes, or that may show what changes. It is drawn when it shows what it hasn't shown before; the
/// pictures of an animation's frames are kept as far as there is room, of a movie the last one. Without drawing, a
/// repaint takes no lock.
class CExclusiveLayer : public CLayer {
public:
  /// The rate is the host's frames a second, as a fraction. Throws orlo::CCastError for a movie image without a movie.
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
  /// True as long as an animation runs, also while its picture stays, and if a movie has a new picture.
  bool NextFrame() override;
  /// Waits until the movies are open. Throws what CMovieAnimation::StartExtraction does.
  void Open(const wxString& filterDir, const wxString& animationDir, const wxString& themeDir) override;
  void Close() override;
  void NewThread() override;

private:
  void AddMovie(authed::data::CGraphicMovieImage& image);
  void MeasureSkin(CCanvas& canvas);
  CLayerPicture* KeptPicture(CCanvas& canvas, const wxRect& area);
  const CLayerPicture* UpToDatePicture() const;

  std::int64_t frameRateNum_;
  std::int64_t frameRateDen_;
  std::vector<orlo::P<authed::data::CMovieAnimation>> movieAnimations_;
  std::vector<orlo::P<CFPSAnimation>> animations_;
  CShownFrames shown_;
  /// By the frame, if it lasts; otherwise there is one picture.
  std::map<const wxObjectRefData*, CLayerPicture> pictures_;
  /// Whose picture was drawn last.
  const wxObjectRefData* painted_ = nullptr;
  /// Where an element paints that has a skin, once that is known.
  std::optional<wxRect> skinArea_;
};

}  // namespace authfilter
