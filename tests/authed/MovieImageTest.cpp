#include "authed/data/GraphicElementFactory.h"
#include "authed/data/GraphicMovieImage.h"
#include "authed/data/MovieTheme.h"
#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "graphics/animation/Animation.h"
#include "graphics/model/GraphicType.h"
#include "graphics/skin/AnimationLayer.h"
#include "graphics/skin/ButtonSkin.h"
#include "graphics/skin/ShapeSkin.h"
#include "tests/authed/Movies.h"
#include "tests/skin/Sources.h"

namespace authed::data {

namespace {

using namespace graphics;
using namespace graphics::test;
using skin::CButtonSkin;
using skin::CCustomLayer;
using skin::Filled;

/// 25.4 page units are 300 pixels of the bitmap that a skin is drawn into.
constexpr double kInch = 25.4;

class MovieImage : public CWithBackend {
protected:
  MovieImage() : page_(60, 40) {
    const CToolkitLock lock;
    movie_->title = "Film";
    movie_->thumbnail.Set(std::make_unique<wxBitmap>(Filled(8, 8, kRed)).get());
    image_->SetMovie(movie_);
    Place(*image_, {10, 5, 40, 30});
  }
  /// Closing threads want the toolkit's lock, which the page holds.
  ~MovieImage() override { image_->SetAnimation(nullptr); }

  static orlo::P<CCustomLayer> AddLayer(skin::CSkin& skin, const char* state = "normal") {
    const auto layer = orlo::makeObject<CCustomLayer>();
    skin.FindState(state)->AddLayer(layer);
    return layer;
  }
  ::vantra::CExtractorParams ParamsOf(std::int32_t width, std::int32_t height) {
    EXPECT_TRUE(Extract(*image_->GetMovieAnimation(width, height)));
    return backend->GetGiven().params;
  }

  CPage page_;
  const orlo::P<CMovieFile> movie_ = TenSecondMovie();
  const orlo::P<CGraphicMovieImage> image_ = orlo::makeObject<CGraphicMovieImage>();
};

TEST_F(MovieImage, IsMadeByItsName) {
  const auto factory = orlo::makeObject<CGraphicElementFactory>();
  const auto element = factory->CreateElement("Movie-Image");
  const auto* const image = orlo::tryCast<CGraphicMovieImage>(element);
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->GetTypeName(), "movie-image");
  EXPECT_EQ(image->GetType(), 16);
  EXPECT_NE(orlo::tryCast<graphics::vantra::IElement>(element), nullptr);
  EXPECT_FALSE(image->GetMovie());
  EXPECT_FALSE(image->GetSkin());
  EXPECT_EQ(image->GetChapter(), 0);
  EXPECT_EQ(image->GetScaleMode(), EScaleMode::width);
}

TEST_F(MovieImage, HasTheTextOfItsMovie) {
  EXPECT_EQ(image_->GetText(), "Film");
  EXPECT_EQ(orlo::cast<skin::ITextSource>(image_.get())->GetText("any"), "Film");
  EXPECT_EQ(orlo::cast<skin::IAnimationSource>(image_.get())->GetBitmap("any"), nullptr);
  image_->SetMovie(nullptr);
  EXPECT_EQ(image_->GetText(), "Double click to load an animation");
}

TEST_F(MovieImage, IsEmptyWithoutAMovie) {
  EXPECT_FALSE(image_->IsContentEmpty());
  image_->SetMovie(nullptr);
  EXPECT_TRUE(image_->IsContentEmpty());
}

TEST_F(MovieImage, WritesNoMoreThanItHas) {
  const auto empty = orlo::makeObject<CGraphicMovieImage>();
  const wxString text = XmlOf(*empty);
  EXPECT_TRUE(text.Contains("scale-mode=\"scale-width\"")) << text;
  EXPECT_FALSE(text.Contains("chapter")) << text;
  EXPECT_FALSE(text.Contains("<skin")) << text;
  EXPECT_FALSE(text.Contains("<movie")) << text;
  EXPECT_FALSE(text.Contains("<animation")) << text;
  empty->SetChapter(-2);
  EXPECT_FALSE(XmlOf(*empty).Contains("chapter"));
}

TEST_F(MovieImage, WritesItsNodesInTheirOrder) {
  image_->SetChapter(3);
  image_->SetScaleMode(EScaleMode::fitting);
  image_->SetSkin(orlo::makeObject<CButtonSkin>("frame"));
  image_->GetMovieAnimation(10, 10);
  const wxString text = XmlOf(*image_);
  std::size_t last = 0;
  for (const char* const part : {"chapter=\"3\"", "scale-mode=\"scale-fitting\"", "<animation ", "<skin ", "<movie "}) {
    const std::size_t found = text.find(part);
    ASSERT_NE(found, wxString::npos) << part << " in " << text;
    EXPECT_GT(found, last) << part;
    last = found;
  }
  EXPECT_TRUE(text.Contains("<animation type=\"movie\" max-width=\"400\"/>")) << text;
  EXPECT_TRUE(text.Contains("type=\"movie-file\"")) << text;
}

TEST_F(MovieImage, BringsBackWhatWasWritten) {
  image_->SetChapter(3);
  image_->SetScaleMode(EScaleMode::height);
  const auto skin = orlo::makeObject<CButtonSkin>("frame");
  image_->SetSkin(skin);
  image_->GetMovieAnimation(10, 10);
  const auto copy = Reloaded(*image_);
  EXPECT_EQ(copy->GetChapter(), 3);
  EXPECT_EQ(copy->GetScaleMode(), EScaleMode::height);
  ASSERT_TRUE(copy->GetSkin());
  EXPECT_EQ(copy->GetSkin()->GetUniqueId(), skin->GetUniqueId());
  ASSERT_TRUE(copy->GetMovie());
  EXPECT_EQ(copy->GetMovie()->GetMovieType(), EMovieType::file);
  EXPECT_EQ(copy->GetMovie()->title, "Film");
  EXPECT_EQ(copy->GetMovie()->thumbnail.Get()->GetSize(), wxSize(8, 8));
  EXPECT_FALSE(copy->HasAnimation()) << "animations of movies are made from movies, not read";
}

TEST_F(MovieImage, SharesItsMovieWithOthersOfAPage) {
  const auto other = orlo::makeObject<CGraphicMovieImage>();
  other->SetMovie(movie_);
  const auto store = orlo::makeObject<CBase64Resources>();
  wxXmlNode first(wxXML_ELEMENT_NODE, "element"), second(wxXML_ELEMENT_NODE, "element");
  image_->WriteToXml(first, *store);
  other->WriteToXml(second, *store);
  const auto reader = orlo::makeObject<CBase64Resources>();
  image_->ReadFromXml(first, *reader);
  other->ReadFromXml(second, *reader);
  EXPECT_EQ(image_->GetMovie().get(), other->GetMovie().get());
  EXPECT_NE(image_->GetMovie().get(), static_cast<CMovie*>(movie_.get()));
}

TEST_F(MovieImage, ReadsWhatIsThere) {
  image_->SetChapter(5);
  image_->SetScaleMode(EScaleMode::fitting);
  ReadXml(*image_, "<element scale-mode=\"\"/>");
  EXPECT_EQ(image_->GetChapter(), 5);
  EXPECT_EQ(image_->GetScaleMode(), EScaleMode::fitting) << "an empty mode is none";
  EXPECT_TRUE(image_->GetMovie());
  ReadXml(*image_, "<element chapter=\"7\" scale-mode=\"scale-height\"/>");
  EXPECT_EQ(image_->GetChapter(), 7);
  EXPECT_EQ(image_->GetScaleMode(), EScaleMode::height);
  EXPECT_THROW(ReadXml(*image_, "<element scale-mode=\"scale-depth\"/>"), orlo::CException);
  EXPECT_THROW(ReadXml(*image_, "<element><movie unique=\"1\" type=\"film\"/></element>"), orlo::CException);
}

/// Gives every resource as the same one.
class COddStore : public CBase64Resources {
public:
  orlo::P<IReusableResource> ReadResource(const wxXmlNode&, const wxString&,
                                          const orlo::P<IReusableResource>&) override {
    return orlo::makeObject<CButtonSkin>("skin");
  }
};

TEST_F(MovieImage, HasNoMovieForAResourceThatIsNone) {
  const auto store = orlo::makeObject<COddStore>();
  image_->ReadFromXml(*ParseXml("<element><movie unique=\"1\" type=\"movie-file\"/></element>")->GetRoot(), *store);
  EXPECT_FALSE(image_->GetMovie());
}

TEST_F(MovieImage, SharesAllWithItsClone) {
  image_->SetChapter(2);
  image_->SetScaleMode(EScaleMode::fitting);
  image_->SetSkin(orlo::makeObject<CButtonSkin>("frame"));
  image_->GetMovieAnimation(10, 10);
  const auto clone = image_->Clone();
  auto* const copy = orlo::tryCast<CGraphicMovieImage>(clone);
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->GetMovie().get(), static_cast<CMovie*>(movie_.get()));
  EXPECT_EQ(copy->GetSkin().get(), image_->GetSkin().get());
  EXPECT_EQ(copy->GetAnimation().get(), image_->GetAnimation().get());
  EXPECT_EQ(copy->GetChapter(), 2);
  EXPECT_EQ(copy->GetScaleMode(), EScaleMode::fitting);
  EXPECT_EQ(copy->GetSize(), image_->GetSize());
}

TEST_F(MovieImage, PlaysWithinTheBoxThatItIsShownIn) {
  auto params = ParamsOf(320, 180);
  EXPECT_EQ(params.width, 320);
  EXPECT_EQ(params.height, 180);
  EXPECT_EQ(params.maxWidth, 0);
  image_->SetScaleMode(EScaleMode::height);
  params = ParamsOf(320, 180);
  EXPECT_EQ(params.width, 0);
  EXPECT_EQ(params.height, 180);
}

TEST_F(MovieImage, PlaysAsLargeAsItMustBeToFillItsBox) {
  image_->SetScaleMode(EScaleMode::fitting);
  // The thumbnail is square.
  auto params = ParamsOf(320, 180);
  EXPECT_EQ(params.width, 320);
  EXPECT_EQ(params.height, 0);
  params = ParamsOf(180, 320);
  EXPECT_EQ(params.width, 0);
  EXPECT_EQ(params.height, 320);
  // What the movie says of itself counts more.
  movie_->width = 1920;
  movie_->height = 800;
  params = ParamsOf(320, 180);
  EXPECT_EQ(params.width, 0);
  EXPECT_EQ(params.height, 180);
  // Without a word the width counts.
  movie_->width = 0;
  movie_->thumbnail.Set(nullptr);
  params = ParamsOf(180, 320);
  EXPECT_EQ(params.width, 180);
  EXPECT_EQ(params.height, 0);
}

TEST_F(MovieImage, PlaysWithoutASizeInTheProjectsOrTheUsualOne) {
  auto params = ParamsOf(0, 0);
  EXPECT_EQ(params.width, 600);
  EXPECT_EQ(params.height, 600);
  params = ParamsOf(-1, 100);
  EXPECT_EQ(params.width, 600);
  EXPECT_EQ(params.height, 100);
  CGraphicMovieImage::SetProjectSize({480, 270});
  params = ParamsOf(-1, -1);
  EXPECT_EQ(params.width, 480);
  EXPECT_EQ(params.height, 270);
  CGraphicMovieImage::SetProjectSize({0, 0});
  params = ParamsOf(std::numeric_limits<std::int32_t>::max(), 0);
  EXPECT_EQ(params.width, kLargestMovieEdge);
}

TEST_F(MovieImage, BeginsWithItsChapter) {
  for (const double time : {0.0, 4.5}) {
    movie_->chapters.push_back(orlo::makeObject<CChapter>());
    movie_->chapters.back()->SetTime(time);
  }
  const auto seeksOf = [&](std::int32_t chapter) {
    image_->SetChapter(chapter);
    backend->Reset();
    ParamsOf(16, 9);
    return backend->GetGiven().seeks;
  };
  EXPECT_EQ(seeksOf(2), std::vector<double>{4.5});
  for (const std::int32_t chapter : {0, 1, 3, -1, std::numeric_limits<std::int32_t>::max()})
    EXPECT_TRUE(seeksOf(chapter).empty()) << chapter;
}

TEST_F(MovieImage, DropsItsAnimationForANewOne) {
  const auto first = image_->GetMovieAnimation(16, 9);
  EXPECT_EQ(image_->GetAnimation().get(), static_cast<animation::IAnimation*>(first.get()));
  EXPECT_TRUE(image_->HasAnimation());
  const auto second = image_->GetMovieAnimation(16, 9);
  EXPECT_NE(first.get(), second.get());
  image_->SetMovie(nullptr);
  EXPECT_FALSE(image_->GetMovieAnimation(16, 9));
  EXPECT_FALSE(image_->HasAnimation());
}

TEST_F(MovieImage, HasNoAnimationForAMovieThatCanNotBeDescribed) {
  image_->SetMovie(CreateMovie(EMovieType::edited));
  EXPECT_FALSE(image_->GetMovieAnimation(16, 9));
}

TEST_F(MovieImage, PlaysAThemeInItsProportions) {
  const auto theme = orlo::makeObject<CMovieTheme>();
  theme->duration = 5;
  image_->SetMovie(theme);
  const auto params = ParamsOf(320, 320);
  EXPECT_EQ(params.width, 320);
  EXPECT_EQ(params.height, 180);
}

TEST_F(MovieImage, ShowsTheThumbnailWhileNothingPlays) {
  image_->Paint(page_.context);
  EXPECT_EQ(page_.At(30, 20), kRed);
  EXPECT_EQ(page_.At(12, 20), kBlack);
  EXPECT_EQ(page_.Ink().bounds, wxRect(10, 5, 40, 30));
}

TEST_F(MovieImage, ShowsNothingWithoutAMovieOrAThumbnail) {
  movie_->thumbnail.Set(nullptr);
  image_->Paint(page_.context);
  image_->SetMovie(nullptr);
  image_->SetAnimation(orlo::makeObject<CMovieAnimation>(nullptr, nullptr, CMovieAnimationSettings{}));
  image_->Paint(page_.context);
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(MovieImage, ShowsTheStillPictureUntilItPlays) {
  image_->SetScaleMode(EScaleMode::fitting);
  const auto animation = image_->GetMovieAnimation(40, 30);
  image_->Paint(page_.context);
  EXPECT_EQ(page_.At(30, 20), kRed);
  EXPECT_TRUE(Extract(*animation));
  image_->Paint(page_.context);
  EXPECT_NE(page_.At(30, 20), kRed);
  animation->Stop();
  image_->Paint(page_.context);
  EXPECT_EQ(page_.At(30, 20), kRed);
}

TEST_F(MovieImage, ShowsEachPictureAsItCame) {
  image_->SetScaleMode(EScaleMode::fitting);
  backend->SetSize(40, 30);
  const auto animation = image_->GetMovieAnimation(40, 30);
  EXPECT_TRUE(Extract(*animation));
  for (int picture = 0; picture < 3; ++picture) {
    image_->Paint(page_.context);
    for (int y = 0; y < 30; ++y)
      for (int x = 0; x < 40; ++x) {
        const auto bytes = script::PixelOf(picture, x, y);
        ASSERT_EQ(page_.At(10 + x, 5 + y), (CPixel{bytes[2], bytes[1], bytes[0], 255})) << picture << ' ' << x << y;
      }
    animation->Next();
  }
}

TEST_F(MovieImage, AsksAgainSoonWhileItsMovieOpens) {
  const auto animation = image_->GetMovieAnimation(40, 30);
  backend->Block(EOperation::getAnimationExtractor);
  image_->StartAnimation();
  image_->Paint(page_.context);
  EXPECT_EQ(page_.context.nextRepaint, 100);
  EXPECT_EQ(page_.At(30, 20), kRed);
  image_->StopAnimation();
  EXPECT_FALSE(image_->IsAnimationPlaying());
  backend->LetGo(EOperation::getAnimationExtractor);
}

TEST_F(MovieImage, IsShownWhereItsSkinHasACustomLayer) {
  const auto skin = orlo::makeObject<CButtonSkin>("frame");
  AddLayer(*skin)->contentMargins.left = 150;
  image_->SetSkin(skin);
  image_->SetScaleMode(EScaleMode::fitting);
  Place(*image_, {5, 5, kInch, kInch});
  image_->Paint(page_.context);
  EXPECT_EQ(page_.At(10, 15), kClear);
  EXPECT_EQ(page_.At(25, 15), kRed);
}

class CSkinWithoutStates : public skin::CSkin {
public:
  CSkinWithoutStates() : CSkin("none") {}
  wxString GetSkinTypeName() const override { return "none"; }
};

TEST_F(MovieImage, IsPlainWithoutTheStateNormal) {
  image_->SetSkin(orlo::makeObject<CSkinWithoutStates>());
  image_->Paint(page_.context);
  EXPECT_EQ(page_.At(30, 20), kRed);
  EXPECT_EQ(page_.Ink().bounds, wxRect(10, 5, 40, 30));
}

TEST_F(MovieImage, IsNothingInASkinWithoutACustomLayer) {
  image_->SetSkin(orlo::makeObject<CButtonSkin>("frame"));
  image_->Paint(page_.context);
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(MovieImage, IsCutToTheShapeOfItsCustomLayer) {
  const auto shape = orlo::makeObject<skin::CShapeSkin>("half");
  wxBitmap half = MakeAlphaBitmap(20, 20);
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 10; ++x) SetPixelOf(half, x, y, kWhite);
  const auto outline = orlo::makeObject<skin::CAnimationLayer>();
  outline->SetAttachmentBitmap(half);
  shape->FindState("normal")->AddLayer(outline);
  const auto skin = orlo::makeObject<CButtonSkin>("frame");
  AddLayer(*skin)->SetShape(shape);
  image_->SetSkin(skin);
  image_->SetScaleMode(EScaleMode::fitting);
  Place(*image_, {5, 5, kInch, kInch});
  const auto animation = image_->GetMovieAnimation(25, 25);
  EXPECT_TRUE(Extract(*animation));
  image_->Paint(page_.context);
  EXPECT_EQ(page_.At(10, 20).blue, script::PixelOf(0, 0, 0)[0]);
  EXPECT_EQ(page_.At(25, 20), kClear);
  animation->Next();
  image_->Paint(page_.context);
  EXPECT_EQ(page_.At(10, 20).blue, script::PixelOf(1, 0, 0)[0]);
}

TEST_F(MovieImage, HandsOnWhenItWantsToBePaintedAgainWithinItsSkin) {
  const auto skin = orlo::makeObject<CButtonSkin>("frame");
  AddLayer(*skin);
  image_->SetSkin(skin);
  image_->GetMovieAnimation(25, 25);
  backend->Block(EOperation::getAnimationExtractor);
  image_->StartAnimation();
  image_->Paint(page_.context);
  EXPECT_EQ(page_.context.nextRepaint, 100);
  image_->StopAnimation();
  backend->LetGo(EOperation::getAnimationExtractor);
}

}  // namespace

}  // namespace authed::data
