#include "foundation/wxutil/WXString.h"
#include "graphics/art/ArtNames.h"
#include "graphics/art/SkinManager.h"
#include "graphics/elements/GraphicImage.h"
#include "graphics/geometry/MeasuringUnit.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/model/GraphicListener.h"
#include "graphics/paint/native/ImageConversion.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>
#include <wx/image.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <limits>
#include <vector>

namespace graphics::test {

namespace {

constexpr CPixel kGreen{0, 255, 0, 255};

/// Red, green, blue and white quarters, clockwise from the top left: red, green, white, blue.
wxBitmap Quarters(int width, int height) {
  wxImage image(width, height);
  image.SetRGB({0, 0, width / 2, height / 2}, 255, 0, 0);
  image.SetRGB({width / 2, 0, width - width / 2, height / 2}, 0, 255, 0);
  image.SetRGB({0, height / 2, width / 2, height - height / 2}, 0, 0, 255);
  image.SetRGB({width / 2, height / 2, width - width / 2, height - height / 2}, 255, 255, 255);
  return BitmapOf(image);
}

class CCounter : public IGraphicListener {
public:
  void OnGraphicChanged(CGraphicBase&) override { ++count; }
  int count = 0;
};

class Image : public testing::Test {
protected:
  Image() : page_(120, 80) {
    wxInitAllImageHandlers();
    Place(image_, {20, 20, 40, 20});
  }

  void Paint() { image_.Paint(page_.context); }
  /// What a fresh page shows.
  wxBitmap Painted() {
    const CBitmapSurface surface(page_.bitmap);
    for (int y = 0; y < surface.Pixels().height; ++y)
      std::fill_n(surface.Pixels().Row(y), surface.Pixels().stride, std::uint8_t{0});
    surface.MarkDirty();
    Paint();
    return page_.bitmap;
  }

  CPage page_;
  CGraphicImage image_;
};

}  // namespace

TEST_F(Image, WithoutABitmapPaintsNothingInTheFinalOutput) {
  EXPECT_TRUE(image_.IsContentEmpty());
  Paint();
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(Image, OfABitmapThatIsNotOkPaintsNothing) {
  image_.SetBitmap(wxBitmap());
  EXPECT_FALSE(image_.IsContentEmpty());
  for (page_.context.viewMode = 0; page_.context.viewMode < 3; ++page_.context.viewMode) Paint();
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(Image, PaintsNothingWhereThereIsNoSurface) {
  wxBitmap none;
  CBitmapEffectDC dc(none);
  CPaintContext context(&dc, 0);
  context.matrix = CMatrix::Identity();
  image_.SetBitmap(Quarters(10, 10));
  for (const double margin : {0.0, 2.0}) {
    image_.SetScaleMargins({.top = margin, .left = margin});
    for (const double angle : {0.0, 30.0}) {
      image_.SetRotation(angle);
      for (context.viewMode = 0; context.viewMode < 3; ++context.viewMode) image_.Paint(context);
    }
  }
  EXPECT_FALSE(dc.GetGraphicsContext());
}

TEST_F(Image, IsScaledToItsFrameWithHardEdges) {
  image_.SetBitmap(Quarters(10, 10));
  Paint();
  EXPECT_EQ(page_.Ink().bounds, wxRect(20, 20, 40, 20));
  EXPECT_EQ(page_.At(39, 29), kRed);
  EXPECT_EQ(page_.At(40, 29), kGreen);
  EXPECT_EQ(page_.At(39, 30), kBlue);
  EXPECT_EQ(page_.At(40, 30), kWhite);
}

TEST_F(Image, IsPlacedOnWholePixelsWhereItIsNotTurned) {
  Place(image_, {20.7, 20.9, 40.9, 20.9});
  image_.SetBitmap(Quarters(4, 2));
  Paint();
  EXPECT_EQ(page_.Ink().bounds, wxRect(20, 20, 40, 20));
  EXPECT_EQ(page_.Ink().count, 800);
  EXPECT_EQ(page_.At(20, 20), kRed);
}

TEST_F(Image, IsTheSameAtASmallTurnButForItsPlace) {
  Place(image_, {20.5, 20, 40, 20});
  image_.SetBitmap(Quarters(40, 20));
  wxXmlNode node(wxXML_ELEMENT_NODE, "image");
  node.AddAttribute("rotation", "0.0005");
  const auto store = orlo::makeObject<CBase64Resources>();
  image_.ReadFromXml(node, *store);
  ASSERT_EQ(image_.GetRotation(), 0.0005);
  Paint();
  // Half a pixel off, so that the edges are soft, but without a turn: every row is the same.
  EXPECT_EQ(page_.Ink().bounds, wxRect(20, 20, 41, 20));
  EXPECT_LT(page_.At(20, 25).alpha, 200);
  for (int y = 20; y < 30; ++y) EXPECT_EQ(page_.At(20, y), page_.At(20, 20));
}

TEST_F(Image, IgnoresItsMirroringWhereItIsNotTurned) {
  image_.SetBitmap(Quarters(4, 2));
  image_.SetMirror(0, true);
  image_.SetMirror(1, true);
  Paint();
  EXPECT_EQ(page_.At(25, 25), kRed);
  EXPECT_EQ(page_.At(55, 35), kWhite);
}

TEST_F(Image, IsMirroredFirstAndThenTurned) {
  image_.SetBitmap(Quarters(40, 20));
  image_.SetRotation(180);
  Paint();
  EXPECT_EQ(page_.At(25, 25), kWhite);
  EXPECT_EQ(page_.At(55, 25), kBlue);
  image_.SetMirror(0, true);
  Paint();
  EXPECT_EQ(page_.At(25, 25), kBlue);
  EXPECT_EQ(page_.At(55, 25), kWhite);
  image_.SetRotation(90);
  const wxBitmap turned = Painted();
  // Upright now. Mirrored along x: green red / white blue; turned clockwise: white green / blue red.
  EXPECT_EQ(PixelOf(turned, 35, 15), kWhite);
  EXPECT_EQ(PixelOf(turned, 45, 15), kGreen);
  EXPECT_EQ(PixelOf(turned, 35, 45), kBlue);
  EXPECT_EQ(PixelOf(turned, 45, 45), kRed);
}

TEST_F(Image, FollowsTheMatrixOfThePage) {
  page_.context.matrix = CMatrix::Scale(2, 1) * CMatrix::Translation(-40, 3);
  image_.SetBitmap(Quarters(4, 2));
  Paint();
  EXPECT_EQ(page_.Ink().bounds, wxRect(0, 23, 80, 20));
}

TEST_F(Image, KeepsTheAlphaOfItsPicture) {
  Place(image_, {20, 20, 2, 1});
  wxImage image(2, 1);
  image.SetRGB(0, 0, 255, 0, 0);
  image.SetRGB(1, 0, 0, 0, 255);
  image.InitAlpha();
  image.SetAlpha(0, 0, 128);
  image.SetAlpha(1, 0, 0);
  image_.SetBitmap(BitmapOf(image));
  Paint();
  EXPECT_EQ(page_.At(20, 20), (CPixel{128, 0, 0, 128}));
  EXPECT_EQ(page_.Ink().count, 1);
}

TEST_F(Image, ShowsThroughWhereItsPictureIsMasked) {
  Place(image_, {20, 20, 32, 20});
  wxImage image(2, 1);
  image.SetRGB(0, 0, 255, 0, 0);
  image.SetRGB(1, 0, 255, 0, 255);
  image.SetMaskColour(255, 0, 255);
  for (const bool coloured : {true, false}) {
    image_.SetColoured(coloured);
    image_.SetBitmap(wxBitmap(image));
    Painted();
    EXPECT_EQ(page_.Ink().bounds, wxRect(20, 20, 16, 20)) << coloured;
  }
}

TEST_F(Image, IsGreyOnlyInItsCopy) {
  image_.SetColoured(false);
  image_.SetBitmap(Quarters(4, 2));
  Paint();
  EXPECT_EQ(page_.At(25, 25), (CPixel{76, 76, 76, 255}));
  EXPECT_EQ(page_.At(25, 35), (CPixel{29, 29, 29, 255}));
  EXPECT_EQ(page_.At(55, 35), kWhite);
  EXPECT_EQ(ImageOf(*image_.GetBitmap()).GetRed(0, 0), 255);
  EXPECT_EQ(ImageOf(*image_.GetBitmap()).GetGreen(0, 0), 0);
}

TEST_F(Image, KeepsItsAlphaInGrey) {
  wxImage image(1, 1);
  image.SetRGB(0, 0, 255, 255, 255);
  image.InitAlpha();
  image.SetAlpha(0, 0, 100);
  image_.SetColoured(false);
  image_.SetBitmap(BitmapOf(image));
  Paint();
  EXPECT_EQ(page_.At(25, 25), (CPixel{100, 100, 100, 100}));
}

TEST_F(Image, ShowsNewColoursAtOnce) {
  image_.SetBitmap(Quarters(4, 2));
  Paint();
  image_.SetColoured(false);
  Paint();
  EXPECT_NE(page_.At(25, 25), kRed);
  image_.SetColoured(true);
  Paint();
  EXPECT_EQ(page_.At(25, 25), kRed);
  image_.SetBitmap(Quarters(2, 2).GetSubBitmap({1, 1, 1, 1}));
  Paint();
  EXPECT_EQ(page_.At(25, 25), kWhite);
}

TEST_F(Image, KeepsACopyForEachDeviceAndQualityUntilItChanges) {
  const std::size_t before = CScaledCopy::BytesInUse();
  const auto kept = [&] { return (CScaledCopy::BytesInUse() - before) / 4; };
  image_.SetBitmap(Quarters(4, 2));
  Paint();
  Paint();
  EXPECT_EQ(kept(), 40U * 20);
  page_.context.highQuality = true;
  Paint();
  EXPECT_EQ(kept(), 2U * 40 * 20);
  CPaintContext otherDevice(&page_.dc, page_.context.cacheKey + 1);
  otherDevice.matrix = CMatrix::Identity();
  image_.Paint(otherDevice);
  EXPECT_EQ(kept(), 3U * 40 * 20);
  Place(image_, {20, 20, 30, 20});
  Paint();
  EXPECT_EQ(kept(), 2U * 40 * 20 + 30 * 20) << "in the place of the one in the former size";
  image_.SetMirror(0, true);
  for (const auto& change :
       std::vector<std::function<void()>>{[&] { image_.SetBitmap(Quarters(2, 2)); }, [&] { image_.SetRotation(20); },
                                          [&] { image_.SetMirror(1, true); }, [&] { image_.SetColoured(false); }}) {
    Paint();
    EXPECT_EQ(kept(), 30U * 20);
    change();
    EXPECT_EQ(kept(), 0U);
  }
}

TEST_F(Image, TellsItsListenersOfChanges) {
  CCounter counter;
  image_.AddListener(&counter);
  for (const auto& change :
       std::vector<std::function<void()>>{[&] { image_.SetBitmap(Quarters(2, 2)); }, [&] { image_.SetRotation(20); },
                                          [&] { image_.SetMirror(1, true); }, [&] { image_.SetColoured(false); }}) {
    const int before = counter.count;
    change();
    EXPECT_GT(counter.count, before);
  }
}

TEST_F(Image, WithNoScaleIsPaintedAtItsNaturalSizeWhereTheOutputScales) {
  image_.SetBitmap(Quarters(10, 6));
  image_.SetNoScale(true);
  image_.SetColoured(false);
  Paint();
  EXPECT_EQ(page_.Ink().bounds, wxRect(20, 20, 40, 20)) << "no effect in output mode 0";
  page_.context.outputMode = 1;
  Painted();
  EXPECT_EQ(page_.Ink().bounds, wxRect(20, 20, 10, 6));
  EXPECT_EQ(page_.At(21, 21), kRed) << "in its own colours";
}

TEST_F(Image, WithNoScaleLiesAtTheCornerOfItsTurnedFramesBox) {
  image_.SetBitmap(Quarters(10, 6));
  image_.SetNoScale(true);
  image_.SetRotation(90);
  page_.context.outputMode = 1;
  Paint();
  EXPECT_EQ(page_.Ink().bounds, wxRect(30, 10, 10, 6));
}

TEST_F(Image, WithMarginsIsScaledInSpiteOfNoScale) {
  image_.SetBitmap(Quarters(10, 30));
  image_.SetNoScale(true);
  image_.SetScaleMargins({.top = 2});
  page_.context.outputMode = 1;
  Paint();
  EXPECT_EQ(page_.Ink().bounds, wxRect(20, 20, 40, 20));
}

TEST_F(Image, KeepsItsMarginsInAFrameThatIsSmallerAlongOneAxis) {
  // A border of 3 pixels, blue, round red.
  wxImage picture(30, 30);
  picture.SetRGB({0, 0, 30, 30}, 0, 0, 255);
  picture.SetRGB({3, 3, 24, 24}, 255, 0, 0);
  image_.SetBitmap(BitmapOf(picture));
  image_.SetScaleMargins({.top = 3, .left = 3, .right = 3, .bottom = 3});
  Paint();
  EXPECT_EQ(page_.Ink().bounds, wxRect(20, 20, 40, 20));
  for (const int x : {20, 22, 57, 59}) EXPECT_EQ(page_.At(x, 30), kBlue) << x;
  for (const int x : {23, 56}) EXPECT_EQ(page_.At(x, 30), kRed) << x;
  for (const int y : {20, 22, 37, 39}) EXPECT_EQ(page_.At(40, y), kBlue) << y;
  for (const int y : {23, 36}) EXPECT_EQ(page_.At(40, y), kRed) << y;
}

TEST_F(Image, WithMarginsIsStretchedAsAWholeAndInColourInALargerFrame) {
  wxImage picture(10, 10);
  picture.SetRGB({0, 0, 10, 10}, 0, 0, 255);
  picture.SetRGB({2, 2, 6, 6}, 255, 0, 0);
  image_.SetBitmap(BitmapOf(picture));
  image_.SetColoured(false);
  image_.SetScaleMargins({.top = 2, .left = 2, .right = 2, .bottom = 2});
  Paint();
  EXPECT_EQ(page_.Ink().bounds, wxRect(20, 20, 40, 20));
  EXPECT_EQ(page_.At(25, 30), kBlue);
  EXPECT_EQ(page_.At(32, 30), kRed);
}

TEST_F(Image, WithMarginsIsGreyInASmallerFrame) {
  image_.SetBitmap(Quarters(60, 60));
  image_.SetColoured(false);
  image_.SetScaleMargins({.top = 2, .left = 2, .right = 2, .bottom = 2});
  Paint();
  EXPECT_EQ(page_.At(21, 21), (CPixel{76, 76, 76, 255}));
}

TEST_F(Image, WithMarginsIsMirroredEvenWhereItIsNotTurned) {
  image_.SetBitmap(Quarters(60, 60));
  image_.SetScaleMargins({.top = 2, .left = 2, .right = 2, .bottom = 2});
  image_.SetMirror(0, true);
  Paint();
  EXPECT_EQ(page_.At(21, 21), kGreen);
}

TEST_F(Image, DrawsOnAGraphicsContextThatPaintersShareAndLeavesItsTransformThere) {
  CSmoothEffectDC smooth(page_.dc);
  const auto shared = smooth.CreateEffectContext();
  page_.context.effectContext = shared.get();
  shared->SetTransform(shared->CreateMatrix(1, 0, 0, 1, 30, 0));
  image_.SetBitmap(Quarters(40, 20));
  image_.SetRotation(180);
  Paint();
  EXPECT_EQ(page_.Ink().bounds, wxRect(50, 20, 40, 20));
  double a = 0;
  shared->GetTransform().Get(&a);
  EXPECT_NEAR(a, -1, 1e-9);
}

TEST_F(Image, TakesFramesWithoutAnExtent) {
  image_.SetBitmap(Quarters(4, 4));
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const CMargins& margins : {CMargins{}, CMargins{.top = 1, .left = 1, .right = 1, .bottom = 1}}) {
    image_.SetScaleMargins(margins);
    for (const double angle : {0.0, 30.0}) {
      image_.SetRotation(angle);
      for (const double size : {0.0, 0.5, -10.0, -kInfinity, std::numeric_limits<double>::quiet_NaN()}) {
        Place(image_, {10, 10, size, size});
        Paint();
        Place(image_, {10, 10, size, 5});
        Paint();
      }
    }
  }
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(Image, FarLargerThanThePageIsPaintedWithoutACopyOfThatSize) {
  const std::size_t before = CScaledCopy::BytesInUse();
  image_.SetBitmap(Quarters(40, 20));
  for (const double scale : {100.0, 2000.0, 1e5, 1e9, 1e300, std::numeric_limits<double>::infinity()}) {
    for (const double angle : {0.0, 90.0}) {
      image_.SetRotation(angle);
      Place(image_, {60 - 20 * scale, 40 - 10 * scale, 40 * scale, 20 * scale});
      Paint();
      EXPECT_EQ(CScaledCopy::BytesInUse(), before);
    }
  }
}

TEST_F(Image, PaintsWithoutACopyWhatItPaintsWithOne) {
  image_.SetBitmap(Quarters(41, 301));
  for (const bool coloured : {true, false}) {
    for (const double angle : {0.0, 30.0}) {
      for (const double margin : {0.0, 5.0}) {
        image_.SetColoured(coloured);
        image_.SetRotation(angle);
        image_.SetScaleMargins({.top = margin, .left = margin, .right = margin, .bottom = margin});
        Place(image_, {-240, -110, 600, 300});
        CPage larger(600, 300);
        larger.context.matrix = CMatrix::Translation(240, 110);
        image_.Paint(larger.context);
        Painted();
        int differing = 0;
        for (int y = 0; y < 80; ++y)
          for (int x = 0; x < 120; ++x) differing += page_.At(x, y) != larger.At(x + 240, y + 110);
        EXPECT_GT(page_.Ink().count, 1000);
        // Turned copies are smooth where their pixels meet.
        EXPECT_LE(differing, angle == 0.0 ? 0 : 400) << coloured << ' ' << angle << ' ' << margin;
      }
    }
  }
}

TEST_F(Image, IsWrittenWithItsMarginsAndReadBack) {
  image_.SetScaleMargins({.top = 1, .left = 2, .right = 3, .bottom = 4});
  image_.SetNoScale(true);
  image_.SetBitmap(Quarters(6, 4));
  const auto read = Reloaded(image_);
  EXPECT_EQ(read->GetScaleMargins(), image_.GetScaleMargins());
  EXPECT_TRUE(read->IsNoScale());
  ASSERT_TRUE(read->GetBitmap());
  EXPECT_EQ(read->GetBitmap()->GetSize(), wxSize(6, 4));
  EXPECT_FALSE(read->GetFileName().IsOk());
}

TEST_F(Image, WritesOnlyItsMarginsWhereThereIsNoMore) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "image");
  const auto store = orlo::makeObject<CBase64Resources>();
  image_.WriteToXml(node, *store);
  EXPECT_TRUE(xml::FindChild(node, "scale-margins"));
  EXPECT_FALSE(xml::FindChild(node, "attachment-bitmap"));
  EXPECT_FALSE(node.HasAttribute("noscale"));
  EXPECT_FALSE(node.HasAttribute("filename"));
  image_.SetFileName(wxFileName("/pictures/holiday.jpg"));
  image_.SetBitmap(Quarters(6, 4));
  image_.WriteToXml(node, *store);
  EXPECT_EQ(node.GetAttribute("filename"), "/pictures/holiday.jpg");
  EXPECT_TRUE(xml::FindChild(node, "attachment-bitmap"));
}

TEST_F(Image, HandsItsFileNameToTheStore) {
  const wxString path = wxFileName::CreateTempFileName("mfilter");
  Quarters(6, 4).ConvertToImage().SaveFile(path, wxBITMAP_TYPE_PNG);
  wxXmlNode node(wxXML_ELEMENT_NODE, "image");
  node.AddAttribute("filename", path);
  const auto store = orlo::makeObject<CBase64Resources>();
  store->SetUseFiles(true);
  CGraphicImage fromFile;
  fromFile.ReadFromXml(node, *store);
  ASSERT_TRUE(fromFile.GetBitmap());
  EXPECT_EQ(fromFile.GetFileName().GetFullPath(), path);
  wxRemoveFile(path);
  CGraphicImage gone;
  gone.ReadFromXml(node, *store);
  EXPECT_TRUE(gone.IsContentEmpty());
}

TEST_F(Image, WithoutAPictureInTheStoreIsEmpty) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "image");
  const auto store = orlo::makeObject<CBase64Resources>();
  image_.ReadFromXml(node, *store);
  EXPECT_TRUE(image_.IsContentEmpty());
}

TEST_F(Image, GivesItsClonesAllItHas) {
  image_.SetBitmap(Quarters(6, 4));
  image_.SetFileName(wxFileName("/pictures/holiday.jpg"));
  image_.SetScaleMargins({.left = 3});
  image_.SetNoScale(true);
  const auto element = image_.Clone();
  auto* const clone = orlo::cast<CGraphicImage>(element);
  ASSERT_TRUE(clone->GetBitmap());
  EXPECT_EQ(clone->GetBitmap()->GetSize(), wxSize(6, 4));
  EXPECT_EQ(clone->GetFileName().GetFullPath(), "/pictures/holiday.jpg");
  EXPECT_EQ(clone->GetScaleMargins(), CMargins{.left = 3});
  EXPECT_TRUE(clone->IsNoScale());
  EXPECT_EQ(clone->GetType(), GraphicType::kImage);
  clone->Assign(CGraphicImage());
  EXPECT_TRUE(clone->GetBitmap()) << "an empty image leaves the bitmap";
  EXPECT_FALSE(clone->IsNoScale());
  clone->Assign(*clone);
  EXPECT_TRUE(clone->GetBitmap()->IsOk());
}

TEST_F(Image, ForgetsItsPictureAndWhereItCameFrom) {
  image_.SetBitmap(Quarters(6, 4));
  image_.SetFileName(wxFileName("/pictures/holiday.jpg"));
  image_.ClearContent();
  EXPECT_TRUE(image_.IsContentEmpty());
  EXPECT_FALSE(image_.GetFileName().IsOk());
}

TEST_F(Image, TellsWhereItLiesIfHintsAreAllowed) {
  EXPECT_EQ(image_.GetText(), "");
  image_.SetFlags(1U << 5);
  EXPECT_EQ(image_.GetText(), "Double click to load an image");
  image_.SetName("50 %WIDTH%");
  image_.SetBitmap(Quarters(6, 4));
  const wxString unit = ' ' + GetUnitName(orlo::getMeasurementSystem(), false);
  EXPECT_EQ(image_.GetText(),
            "50 %WIDTH% bounds: 40.00" + unit + ",30.00" + unit + " (40.00" + unit + " x 20.00" + unit + ")");
  image_.SetText("My own");
  EXPECT_EQ(image_.GetText(), "My own");
}

namespace {

class EmptyImage : public Image {};

}  // namespace

TEST_F(EmptyImage, ShowsAnAuthorItsFrameAndAHint) {
  Place(image_, {10, 10, 100, 60});
  for (page_.context.viewMode = 1; page_.context.viewMode <= 2; ++page_.context.viewMode) {
    Painted();
    EXPECT_EQ(page_.Ink().bounds, wxRect(10, 10, 101, 61));
    EXPECT_EQ(page_.At(60, 10), kBlack);
    EXPECT_GT(page_.Ink().count, 320) << "the frame and some letters";
  }
  page_.context.viewMode = 5;
  Painted();
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(EmptyImage, ShowsAnAuthorThePictureOfTheArtDirectoryOverItsHint) {
  const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "empty_image_art";
  std::filesystem::create_directories(folder);
  wxImage icon(22, 22);
  icon.SetRGB({0, 0, 22, 22}, 0, 0, 255);
  ASSERT_TRUE(icon.SaveFile((folder / ArtName::kClickImage).string(), wxBITMAP_TYPE_PNG));
  const auto& provider = CSkinManager::GetInstance().GetArtProvider();
  const wxFileName former = provider->GetPath();
  provider->SetPath(wxFileName::DirName(folder.string()));
  Place(image_, {10, 10, 100, 60});
  Paint();
  EXPECT_EQ(page_.Ink().count, 0);
  page_.context.viewMode = 1;
  Paint();
  provider->SetPath(former);
  std::filesystem::remove_all(folder);
  int blue = 0;
  for (int y = 0; y < 80; ++y)
    for (int x = 0; x < 120; ++x) blue += page_.At(x, y) == kBlue;
  EXPECT_EQ(blue, 22 * 22);
  EXPECT_EQ(page_.At(49, 25), kBlue);
  EXPECT_EQ(page_.At(70, 25), kBlue);
}

TEST_F(EmptyImage, TurnsItsFrameWithIt) {
  Place(image_, {40, 30, 40, 20});
  image_.SetRotation(90);
  page_.context.viewMode = 1;
  Paint();
  EXPECT_EQ(page_.Ink().bounds, wxRect(50, 20, 21, 41));
}

TEST_F(EmptyImage, HasItsFrameWhereTheFlagsSaySo) {
  Place(image_, {10, 10, 5, 5});  // too small for the hint
  page_.context.viewMode = 1;
  image_.SetFlags(1U << 2);
  Paint();
  EXPECT_EQ(page_.Ink().count, 0);
  image_.SetFlags(1U << 2 | 1U << 4);
  Paint();
  EXPECT_EQ(page_.Ink().count, 20);
}

TEST_F(Image, ShowsAnAuthorItsMarginsAsADottedLine) {
  Place(image_, {10, 10, 100, 60});
  image_.SetBitmap(Quarters(200, 200));
  image_.SetScaleMargins({.top = 5, .left = 10, .right = 20, .bottom = 7});
  page_.context.viewMode = 1;
  Painted();
  EXPECT_EQ(page_.At(10, 10), kRed) << "no frame round a picture";
  EXPECT_EQ(page_.At(20, 15), kRed);
  page_.context.viewMode = 2;
  Painted();
  EXPECT_EQ(page_.At(10, 10), kRed);
  EXPECT_EQ(page_.At(25, 16), kRed);
  const auto isDark = [&](int x, int y) { return page_.At(x, y).red + page_.At(x, y).green < 200; };
  EXPECT_TRUE(isDark(20, 15));
  int dark = 0;
  for (int x = 20; x < 90; ++x) dark += isDark(x, 15);
  EXPECT_GT(dark, 20);
  EXPECT_LT(dark, 50);
}

}  // namespace graphics::test
