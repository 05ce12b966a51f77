#include "filter/DocumentLayer.h"
#include "filter/ExclusiveLayer.h"
#include "foundation/Error.h"
#include "graphics/animation/Animation.h"
#include "graphics/animation/GraphicAnimationImage.h"
#include "tests/filter/AnimatedPage.h"
#include "tests/filter/PlainPainter.h"

#include <vector>

namespace authfilter {
namespace {

/// Counts how often it is painted, and fails as often as it is told to.
class CTestImage : public graphics::animation::CGraphicAnimationImage {
public:
  int paintings = 0;
  int failures = 0;

  void PaintStill(graphics::TEffectGraphicsContext& context, const graphics::CDoubleRect& rect) override {
    ++paintings;
    CGraphicAnimationImage::PaintStill(context, rect);
    if (failures > 0) {
      --failures;
      throw orlo::CError("No memory");
    }
  }
};

/// Pages that are painted on black as the filter does it, all of them each time.
class LayerPicture : public CAnimatedPage {
protected:
  using CImage = orlo::P<CTestImage>;

  static CImage ImageOf(int frames) {
    const graphics::CToolkitLock lock;
    const auto animation = orlo::makeObject<graphics::animation::CAnimation>(40);
    animation->SetLoop(true);
    for (int frame = 0; frame < frames; ++frame) {
      wxImage picture(3, 3);
      picture.SetRGB(wxRect(0, 0, 3, 3), static_cast<unsigned char>(50 * frame), 0, 200);
      animation->Append(wxBitmap(picture));
    }
    auto image = orlo::makeObject<CTestImage>();
    image->SetAnimation(animation);
    image->SetCenter({50, 40});
    image->SetSize({20, 10});
    return image;
  }
  template <class Layer, class... Arguments>
  void OpenWith(const std::vector<CImage>& images, Arguments... arguments) {
    store.noAlpha = true;
    Open("");
    for (const CImage& image : images) {
      const auto document = orlo::makeObject<graphics::CGraphicDocument>();
      document->Add(image);
      store.layers.push_back(orlo::makeObject<Layer>(document, arguments...));
      store.layers.back()->Open({}, {}, {});
    }
  }
  /// Empty if the frame is what a plain and full painting gives.
  std::string Difference(const std::vector<CImage>& images) {
    CPlainPainter plain(store);
    std::vector<int> before;
    for (const CImage& image : images) before.push_back(image->paintings);
    const std::string difference = DifferenceOf(store.BeginReadFrame(), plain.Paint());
    store.EndReadFrame();
    for (std::size_t index = 0; index < images.size(); ++index) images[index]->paintings -= 1;
    return difference;
  }
};

TEST_F(LayerPicture, OfAStaticLayerIsDrawnAgainAfterAnError) {
  const CImage image = ImageOf(1);
  OpenWith<CDocumentLayer>({image});
  image->failures = 1;
  EXPECT_THROW(store.BeginReadFrame(), orlo::CError);
  store.repaint = true;
  EXPECT_EQ(At(50, 40), (Pixel{200, 0, 0, 255}));
}

TEST_F(LayerPicture, OfAnAnimationIsDrawnAgainAfterAnError) {
  const CImage image = ImageOf(2);
  OpenWith<CExclusiveLayer>({image}, 25, 1);
  image->failures = 1;
  EXPECT_THROW(store.BeginReadFrame(), orlo::CError);
  EXPECT_FALSE(store.layers[0]->Hides(wxRect(45, 38, 5, 5)));
  store.repaint = true;
  EXPECT_EQ(At(50, 40), (Pixel{200, 0, 0, 255}));
  EXPECT_TRUE(store.layers[0]->Hides(wxRect(45, 38, 5, 5)));
}

}  // namespace
}  // namespace authfilter
