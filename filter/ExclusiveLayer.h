#pragma once

#include "filter/FPSAnimation.h"
#include "filter/Layer.h"

#include <vector>

namespace authfilter {

/// One element that changes, or that shows what changes below it. It is drawn anew at each repaint.
class CExclusiveLayer : public CLayer {
public:
  /// The rate is the host's frames a second, as a fraction.
  CExclusiveLayer(const orlo::P<graphics::CGraphicDocument>& document, std::int64_t frameRateNum,
                  std::int64_t frameRateDen);

  std::int32_t IsExclusive() const override { return 1; }
  void Paint(CFrame& frame) override { GetDocument()->Paint(frame.Draw()); }
  /// True as long as an animation runs, also while its picture stays.
  bool NextFrame() override;
  void Open(const wxString& filterDir, const wxString& animationDir, const wxString& themeDir) override;
  void Close() override;

private:
  std::vector<orlo::P<CFPSAnimation>> animations_;
};

}  // namespace authfilter
