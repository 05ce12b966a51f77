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
    const auto animation = orlo::makeObject<graphics::animation::CAnimation>(1);
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
  /// How often the images are drawn in six rounds of four frames, where as many bytes of pictures may be kept. Each
  /// frame is compared with a plain painting.
  int PaintingsWith(std::int64_t keptBytes, const std::vector<CImage>& images) {
    CPlainPainter plain(store);
    CCanvas canvas({store.pageTransform.GetCurrent(), wxRect(0, 0, kWidth, kHeight)}, keptBytes);
    const std::vector<std::uint32_t> black(kWidth, 0xFF000000u);
    const CDirtyRegion whole(canvas.Geometry().frame);
    int paintings = 0;
    for (int frame = 0; frame < 24; ++frame) {
      store.NextFrame();
      for (const CImage& image : images) image->paintings = 0;
      {
        CFrame painted(store.pageSurface->Pixels(), {reinterpret_cast<const std::uint8_t*>(black.data()), 0}, whole,
                       canvas);
        for (const auto& layer : store.layers) layer->Paint(painted);
      }
      for (const CImage& image : images) paintings += image->paintings;
      EXPECT_EQ(DifferenceOf(store.pageSurface->Pixels(), plain.Paint()), "") << keptBytes << ", frame " << frame;
    }
    return paintings;
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

TEST_F(LayerPicture, IsKeptForEachFrameAsFarAsThereIsRoom) {
  constexpr std::int64_t kOne = 256 + 10 * (24 + 4 * 20);
  const struct {
    std::int64_t bytes;
    int paintings;
  } cases[] = {{CCanvas::kMaxKeptBytes, 4}, {4 * kOne, 4},  // no more than one a frame
               {4 * kOne - 1, 4 + 5 * 2},                   // the last place is for two frames in turn
               {2 * kOne, 4 + 5 * 3},       {kOne, 24},    {kOne - 1, 24}, {0, 24}};
  for (const auto& [bytes, paintings] : cases) {
    const CImage image = ImageOf(4);
    store.layers.clear();
    OpenWith<CExclusiveLayer>({image}, 25, 1);
    EXPECT_EQ(PaintingsWith(bytes, {image}), paintings) << bytes;
  }
}

TEST_F(LayerPicture, IsDrawnForEachRepaintInLayersThatGetNoRoom) {
  constexpr std::int64_t kOne = 256 + 10 * (24 + 4 * 20);
  const std::vector<CImage> images{ImageOf(4), ImageOf(4), ImageOf(1), ImageOf(1)};
  OpenWith<CExclusiveLayer>(images, 25, 1);
  // The first two keep one each, which changes each time; of the others one is drawn once.
  EXPECT_EQ(PaintingsWith(3 * kOne, images), 24 + 24 + 1 + 24);
}

TEST_F(LayerPicture, OfAStaticLayerIsDrawnForEachRepaintWithoutRoom) {
  const CImage image = ImageOf(1);
  OpenWith<CDocumentLayer>({image});
  EXPECT_EQ(PaintingsWith(100, {image}), 24);
  EXPECT_EQ(PaintingsWith(10'000, {image}), 1);
}

TEST(Canvas, CountsWhatANarrowPictureTakesBesideItsPixels) {
  CCanvas canvas({{}, wxRect(0, 0, 1, 1000)}, 1'000'000);
  int kept = 0;
  while (canvas.MayKeep({1, 1000})) ++kept;
  EXPECT_GT(kept, 10);
  const std::size_t each = 1000 * (4 + sizeof(CCoverage::CRun) + sizeof(std::size_t));
  EXPECT_LE(kept * each, 1'000'000u);
}

}  // namespace
}  // namespace authfilter
