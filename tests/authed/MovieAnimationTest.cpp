#include "authed/data/Error.h"
#include "backend/handler/VantraError.h"
#include "backend/infilexml/Loop.h"
#include "backend/infilexml/Shader.h"
#include "foundation/wxutil/WXError.h"
#include "graphics/model/Base64Resources.h"
#include "tests/authed/Movies.h"

#include <limits>
#include <thread>

namespace authed::data {

namespace {

using graphics::CToolkitLock;

constexpr std::array kErrors = {EError::vantra, EError::rop,      EError::sul,
                                EError::orlo,   EError::standard, EError::unknown};

class MovieExtraction : public CWithBackend {
protected:
  /// The picture's number, -1 if the bitmap shows something else.
  static int PictureIn(const wxBitmap* bitmap) {
    if (!bitmap) return -1;
    for (int picture = 0; picture < 5; ++picture) {
      bool isIt = true;
      for (int y = 0; y < bitmap->GetHeight(); ++y)
        for (int x = 0; x < bitmap->GetWidth(); ++x)
          isIt = isIt && PixelIn(*bitmap, x, y) == script::PixelOf(picture, x, y);
      if (isIt) return picture;
    }
    return -1;
  }
};

TEST_F(MovieExtraction, ShowsOnePictureAfterTheOther) {
  const auto animation = Animation();
  EXPECT_FALSE(animation->IsStarted());
  EXPECT_EQ(animation->GetCurrentFrame(), nullptr);
  EXPECT_EQ(animation->GetWidth(), -1);
  EXPECT_EQ(animation->GetHeight(), -1);
  EXPECT_FALSE(animation->Next());

  EXPECT_TRUE(Extract(*animation));
  EXPECT_TRUE(animation->IsStarted());
  EXPECT_EQ(animation->GetWidth(), 16);
  EXPECT_EQ(animation->GetHeight(), 9);
  ASSERT_EQ(animation->GetCurrentFrame()->GetSize(), wxSize(16, 9));
  EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 0);
  EXPECT_TRUE(animation->Next());
  EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 1);
  EXPECT_TRUE(animation->Next());
  EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 2);
  EXPECT_FALSE(animation->Next());
  EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 2) << "the last picture stays";

  animation->Stop();
  EXPECT_FALSE(animation->IsStarted());
  EXPECT_EQ(animation->GetCurrentFrame(), nullptr);
  EXPECT_FALSE(animation->Next());
}

TEST_F(MovieExtraction, HasItsStillPictureFirst) {
  EXPECT_EQ(Animation()->GetFirstFrame(), nullptr);
  wxBitmap still = PictureOf(4, 3, {10, 20, 30, 255});
  const auto animation = Animation({}, &still);
  still = wxNullBitmap;
  ASSERT_NE(animation->GetFirstFrame(), nullptr);
  EXPECT_EQ(animation->GetFirstFrame()->GetSize(), wxSize(4, 3));
  EXPECT_EQ(PixelIn(*animation->GetFirstFrame(), 3, 2), (CBytes{10, 20, 30, 255}));
  EXPECT_TRUE(Extract(*animation));
  EXPECT_EQ(animation->GetFirstFrame()->GetSize(), wxSize(4, 3)) << "it is kept while the movie plays";
}

TEST_F(MovieExtraction, TellsTheBackendWhatToPlay) {
  CMovieAnimationSettings settings;
  settings.width = 320;
  settings.height = 180;
  const auto animation = Animation(settings);
  EXPECT_TRUE(animation->StartExtraction(30000, 1001, 7, 1, "file:///f", L"file:///\x00E4", "file:///t"));
  const script::CGiven given = backend->GetGiven();
  EXPECT_EQ(given.infile, ToText(*TenSecondMovie()->CreateInfile(25)));
  EXPECT_FALSE(given.interlace);
  EXPECT_EQ(given.params.frameRateNum, 30000);
  EXPECT_EQ(given.params.frameRateDen, 1001);
  EXPECT_EQ(given.filterDir, "file:///f");
  EXPECT_EQ(given.animationDir, "file:///\xC3\xA4");
  EXPECT_EQ(given.themeDir, "file:///t");
  EXPECT_EQ(given.params.one, 1);
  EXPECT_EQ(given.params.another, 1);
  EXPECT_EQ(given.params.width, 320);
  EXPECT_EQ(given.params.height, 180);
  EXPECT_EQ(given.params.maxWidth, 0);
  EXPECT_EQ(given.firstFrame, 7);
  EXPECT_EQ(given.flag, 1);
  EXPECT_EQ(given.reserved, 0);
  EXPECT_TRUE(given.seeks.empty());
  EXPECT_TRUE(given.speeds.empty());
  EXPECT_TRUE(given.hasMessage);
  EXPECT_EQ(backend->GetCalls(EOperation::start), 1);
}

TEST_F(MovieExtraction, CallsTheBackendInAFixedOrder) {
  CMovieAnimationSettings settings;
  settings.startTime = 2.5;
  const auto animation = Animation(settings);
  EXPECT_TRUE(Extract(*animation));
  std::vector<EOperation> order = backend->GetOrder();
  const std::vector<EOperation> expected = {EOperation::createContext,
                                            EOperation::setInfile,
                                            EOperation::getAnimationExtractor,
                                            EOperation::seek,
                                            EOperation::start,
                                            EOperation::advance,
                                            EOperation::getWidth,
                                            EOperation::getHeight,
                                            EOperation::createMessage,
                                            EOperation::setMessageTarget};
  ASSERT_GE(order.size(), expected.size());
  order.resize(expected.size());
  EXPECT_EQ(order, expected);
  EXPECT_EQ(backend->GetGiven().contextKind, 2);
  EXPECT_EQ(backend->GetGiven().messageKind, 1);
}

TEST_F(MovieExtraction, TellsTheBackendOfInterlacedPictures) {
  const auto infile = TenSecondMovie()->CreateInfile(25);
  infile->interlace = true;
  const auto animation = orlo::makeObject<CMovieAnimation>(infile, nullptr, CMovieAnimationSettings{});
  EXPECT_TRUE(Extract(*animation));
  EXPECT_TRUE(backend->GetGiven().interlace);
}

TEST_F(MovieExtraction, BoundsTheWidthThatNobodyAskedFor) {
  EXPECT_TRUE(Extract(*Animation()));
  EXPECT_EQ(backend->GetGiven().params.maxWidth, 400);
}

TEST_F(MovieExtraction, KeepsTheTextsOfItsFoldersForTheExtractor) {
  auto animation = Animation();
  EXPECT_TRUE(Extract(*animation));
  EXPECT_TRUE(animation->StartExtraction(25, 1, 0, 1, "file:///other", "file:///other", "file:///other"));
  // Each extractor tells its texts again at its end.
  animation = nullptr;
  EXPECT_TRUE(backend->WaitForNoneLiving());
  EXPECT_EQ(backend->GetGiven().filterDir.substr(0, 8), "file:///");
}

TEST_F(MovieExtraction, FitsRatesOf64BitsIntoThoseOf32) {
  const auto animation = Animation();
  const std::int64_t large = std::int64_t{1} << 40;
  EXPECT_TRUE(animation->StartExtraction(25 * large, large, 0, 1, "", "", ""));
  const auto params = backend->GetGiven().params;
  EXPECT_NEAR(static_cast<double>(params.frameRateNum) / params.frameRateDen, 25.0, 1e-6);
  EXPECT_TRUE(animation->StartExtraction(-1, std::numeric_limits<std::int64_t>::min(), 0, 1, "", "", ""));
  EXPECT_EQ(backend->GetGiven().params.frameRateNum, 0);
}

TEST_F(MovieExtraction, BeginsAtItsTime) {
  CMovieAnimationSettings settings;
  settings.startTime = 2.5;
  const auto animation = Animation(settings);
  EXPECT_TRUE(Extract(*animation));
  EXPECT_EQ(backend->GetGiven().seeks, std::vector<double>{2.5});
  EXPECT_EQ(backend->GetGiven().seekMode, 1);
  animation->Rewind();
  EXPECT_EQ(backend->GetGiven().seeks, (std::vector<double>{2.5, 2.5}));
  EXPECT_TRUE(animation->Next());
  EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 0);
}

TEST_F(MovieExtraction, MeasuresTheDelayBetweenPictures) {
  backend->SetPictures(5);
  const auto animation = Animation();
  EXPECT_EQ(animation->GetDelay(), 40);
  EXPECT_TRUE(animation->StartExtraction(10, 1, 0, 1, "", "", ""));
  EXPECT_EQ(animation->GetDelay(), 40);
  EXPECT_TRUE(animation->Next());
  EXPECT_EQ(animation->GetDelay(), 40) << "before the second picture nothing is known";
  EXPECT_TRUE(animation->Next());
  EXPECT_EQ(animation->GetDelay(), 100);
}

TEST_F(MovieExtraction, TellsTheDelayInWholeMilliseconds) {
  const auto animation = Animation();
  EXPECT_TRUE(animation->StartExtraction(30000, 1001, 0, 1, "", "", ""));
  animation->Next();
  animation->Next();
  EXPECT_EQ(animation->GetDelay(), 33);
}

TEST_F(MovieExtraction, MeasuresNoDelayWhereNoPictureComes) {
  backend->SetPictures(1);
  const auto animation = Animation();
  EXPECT_TRUE(animation->StartExtraction(10, 1, 0, 1, "", "", ""));
  for (int call = 0; call < 3; ++call) EXPECT_FALSE(animation->Next());
  EXPECT_EQ(animation->GetDelay(), 40);
}

TEST_F(MovieExtraction, ForgetsTheDelayWhenItBeginsAgain) {
  const auto animation = Animation();
  EXPECT_TRUE(animation->StartExtraction(10, 1, 0, 1, "", "", ""));
  animation->Next();
  animation->Next();
  EXPECT_EQ(animation->GetDelay(), 100);
  backend->Block(EOperation::getAnimationExtractor);
  animation->Start();
  EXPECT_EQ(animation->GetDelay(), 40);
  backend->LetGo(EOperation::getAnimationExtractor);
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  EXPECT_TRUE(animation->StartExtraction(5, 1, 0, 1, "", "", ""));
  animation->Next();
  EXPECT_EQ(animation->GetDelay(), 40);
  animation->Next();
  EXPECT_EQ(animation->GetDelay(), 200);
}

TEST_F(MovieExtraction, HoldsWhatIsInUseThoughItCanNotBeClosed) {
  const auto animation = Animation();
  EXPECT_TRUE(Extract(*animation));
  backend->Throw(EOperation::close, EError::standard);
  backend->Block(EOperation::createMessage);
  std::thread driver([&] { animation->NewThread(); });
  EXPECT_TRUE(backend->WaitForBlocked(EOperation::createMessage));
  const int living = backend->GetLiving();
  animation->Stop();
  EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
  EXPECT_EQ(backend->GetLiving(), living) << "taken from under the driver";
  backend->LetGo(EOperation::createMessage);
  driver.join();
}

TEST_F(MovieExtraction, NumbersThePicturesThatItShows) {
  const auto animation = Animation();
  std::uint64_t number = animation->GetPictureNumber();
  const auto changes = [&] { return std::exchange(number, animation->GetPictureNumber()) != number; };
  EXPECT_TRUE(Extract(*animation));
  EXPECT_TRUE(changes());
  EXPECT_FALSE(changes());
  animation->Next();
  EXPECT_TRUE(changes());
  animation->Next();
  EXPECT_TRUE(changes());
  animation->Next();
  EXPECT_FALSE(changes()) << "at the end the picture stays";
  animation->Stop();
  EXPECT_TRUE(changes());
}

TEST_F(MovieExtraction, WithoutAnExtractorIsFalse) {
  backend->GiveNull(EOperation::getAnimationExtractor);
  const auto animation = Animation();
  EXPECT_FALSE(Extract(*animation));
  EXPECT_FALSE(animation->IsStarted());
  EXPECT_FALSE(animation->Next());
  EXPECT_EQ(backend->GetLiving(), 0);
}

TEST_F(MovieExtraction, WithoutAMessagePlaysAllTheSame) {
  backend->GiveNull(EOperation::createMessage);
  const auto animation = Animation();
  EXPECT_TRUE(Extract(*animation));
  EXPECT_TRUE(animation->Next());
  EXPECT_FALSE(backend->GetGiven().hasMessage);
}

TEST_F(MovieExtraction, WithoutAnInfileAsksNoBackend) {
  const auto animation = orlo::makeObject<CMovieAnimation>(nullptr, nullptr, CMovieAnimationSettings{});
  EXPECT_FALSE(Extract(*animation));
  animation->Start();
  EXPECT_EQ(backend->GetCalls(EOperation::createContext), 0);
}

TEST_F(MovieExtraction, RaisesWhatTheHandlerRaises) {
  backend->GiveNull(EOperation::createContext);
  backend->SetLastError(9);
  const auto animation = Animation();
  try {
    Extract(*animation);
    FAIL() << "nothing was thrown";
  } catch (const vantra::wx::handler::CVantraError& error) {
    EXPECT_EQ(error.getCode(), 9);
  }
  EXPECT_FALSE(animation->IsStarted());
}

TEST_F(MovieExtraction, RaisesForeignErrorsInOneForm) {
  constexpr std::array kOperations = {EOperation::createContext,
                                      EOperation::setInfile,
                                      EOperation::createMessage,
                                      EOperation::getAnimationExtractor,
                                      EOperation::seek,
                                      EOperation::start,
                                      EOperation::advance,
                                      EOperation::getWidth,
                                      EOperation::setMessageTarget};
  CMovieAnimationSettings settings;
  settings.startTime = 1;
  for (const EOperation operation : kOperations) {
    backend->Reset();
    const auto animation = Animation(settings);
    std::vector<wxString> kinds;
    for (const EError error : kErrors) {
      backend->Throw(operation, error);
      try {
        Extract(*animation);
        kinds.push_back("nothing");
      } catch (const CError& caught) {
        kinds.push_back(caught.GetKind());
      } catch (const orlo::CError&) {
        kinds.push_back("itself");
      }
      EXPECT_FALSE(animation->IsStarted());
    }
    EXPECT_EQ(kinds, (std::vector<wxString>{"vantra::IError", "rop::IError", "sul::IError", "itself", "std::exception",
                                            "unknown exception"}))
        << static_cast<int>(operation);
    backend->Throw(operation, EError::none);
    EXPECT_TRUE(Extract(*animation)) << "the next attempt is a new one";
  }
}

TEST_F(MovieExtraction, TakesAnErrorForNoPicture) {
  for (const EOperation operation : {EOperation::advance, EOperation::getTime})
    for (const EError error : kErrors) {
      backend->Reset();
      const auto animation = Animation();
      ASSERT_TRUE(Extract(*animation));
      backend->Throw(operation, error);
      animation->Next();
      backend->Throw(operation, EError::none);
      EXPECT_TRUE(animation->IsStarted());
      if (operation == EOperation::advance) {
        EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 0);
        EXPECT_TRUE(animation->Next());
      }
      EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 1);
    }
}

TEST_F(MovieExtraction, LeavesThePictureWhenItCanNotBeCopied) {
  for (const EOperation operation : {EOperation::lockFrame, EOperation::getWidth, EOperation::getHeight})
    for (const EError error : kErrors) {
      backend->Reset();
      const auto animation = Animation();
      ASSERT_TRUE(Extract(*animation));
      backend->Throw(operation, error);
      EXPECT_TRUE(animation->Next()) << "there was a new picture, though";
      EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 0);
      backend->Throw(operation, EError::none);
      EXPECT_TRUE(animation->Next());
      EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 2);
    }
}

TEST_F(MovieExtraction, LeavesThePictureForOneThatIsNull) {
  const auto animation = Animation();
  ASSERT_TRUE(Extract(*animation));
  backend->GiveNull(EOperation::lockFrame);
  EXPECT_TRUE(animation->Next());
  EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 0);
  EXPECT_EQ(backend->GetCalls(EOperation::lockFrame), backend->GetCalls(EOperation::unlockFrame));
}

TEST_F(MovieExtraction, LeavesThePictureForRowsThatAreTooShort) {
  for (const std::int32_t stride : {63, 4, -64, std::numeric_limits<std::int32_t>::min()}) {
    backend->Reset();
    const auto animation = Animation();
    ASSERT_TRUE(Extract(*animation));
    backend->SetStride(stride);
    EXPECT_TRUE(animation->Next());
    EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 0) << stride;
  }
}

TEST_F(MovieExtraction, SurvivesAnUnlockThatThrows) {
  const auto animation = Animation();
  ASSERT_TRUE(Extract(*animation));
  backend->Throw(EOperation::unlockFrame, EError::unknown);
  EXPECT_TRUE(animation->Next());
  EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 1);
}

TEST_F(MovieExtraction, TakesASizeThatPicturesCanNotHaveForNothingToPlay) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  for (const auto& [width, height] : std::vector<std::pair<int, int>>{
           {0, 9}, {16, 0}, {-1, 9}, {16, std::numeric_limits<std::int32_t>::min()}, {kMost, kMost}, {16385, 1}}) {
    backend->Reset();
    backend->SetPictures(0);
    backend->SetSize(width, height);
    const auto animation = Animation();
    EXPECT_FALSE(Extract(*animation)) << width << " x " << height;
    EXPECT_FALSE(animation->IsStarted());
    EXPECT_EQ(animation->GetCurrentFrame(), nullptr);
  }
}

TEST_F(MovieExtraction, MayBeginAgain) {
  const auto animation = Animation();
  for (int round = 0; round < 3; ++round) {
    EXPECT_TRUE(Extract(*animation));
    EXPECT_EQ(PictureIn(animation->GetCurrentFrame()), 0);
    EXPECT_TRUE(animation->Next());
    if (round == 1) animation->Stop();
  }
  EXPECT_EQ(backend->GetCalls(EOperation::createContext), 3);
}

TEST_F(MovieExtraction, ClosesOnAnotherThread) {
  backend->Block(EOperation::close);
  const auto animation = Animation();
  EXPECT_TRUE(Extract(*animation));
  animation->Stop();
  EXPECT_FALSE(animation->IsStarted());
  EXPECT_TRUE(backend->WaitForBlocked(EOperation::close));
  EXPECT_TRUE(Extract(*animation)) << "nobody waits for the end of the one before";
  backend->LetGo(EOperation::close);
}

TEST_F(MovieExtraction, AnswersToANewThread) {
  const auto animation = Animation();
  animation->NewThread();
  EXPECT_EQ(backend->GetCalls(EOperation::createMessage), 0) << "there is nobody to answer";
  EXPECT_TRUE(Extract(*animation));
  EXPECT_EQ(backend->GetCalls(EOperation::setMessageTarget), 1);
  animation->NewThread();
  EXPECT_EQ(backend->GetCalls(EOperation::createMessage), 2);
  EXPECT_EQ(backend->GetCalls(EOperation::setMessageTarget), 2);
  backend->Throw(EOperation::setMessageTarget, EError::rop);
  EXPECT_THROW(animation->NewThread(), CError);
}

TEST_F(MovieExtraction, HasNoLoopAndIsNeverEmpty) {
  const auto animation = Animation();
  animation->SetLoop(true);
  animation->Clear();
  EXPECT_FALSE(animation->GetLoop());
  EXPECT_FALSE(animation->IsEmpty());
  EXPECT_EQ(animation->GetTypeName(), "movie");
  EXPECT_EQ(animation->CreateNew()->GetTypeName(), "movie");
  EXPECT_NE(animation->CreateNew().get(), animation.get());
}

TEST_F(MovieExtraction, KeepsItsLargestWidth) {
  const CToolkitLock lock;
  const auto store = orlo::makeObject<graphics::CBase64Resources>();
  wxXmlNode node(wxXML_ELEMENT_NODE, "animation");
  Animation()->WriteToXml(node, *store);
  EXPECT_EQ(graphics::ToText(node), "<animation max-width=\"400\"/>");
  const auto animation = Animation();
  animation->ReadFromXml(*graphics::ParseXml("<animation max-width=\"123\"/>")->GetRoot(), *store);
  EXPECT_TRUE(Extract(*animation));
  EXPECT_EQ(backend->GetGiven().params.maxWidth, 123);
}

TEST_F(MovieExtraction, MakesTheNamesOfShadersAbsolute) {
  using namespace vantra::infilexml;
  const auto infile = orlo::makeObject<CInfile>();
  const auto add = [&](const orlo::P<CTrackItem>& item) {
    const auto track = orlo::makeObject<CTrack>(0);
    track->item = item;
    infile->GetVideoTracklist()->AddTrack(track);
  };
  const auto shader = [](const char* uri) {
    const auto made = orlo::makeObject<CShader>();
    made->SetUri(uri);
    return made;
  };
  const auto relative = shader("a/b.fx"), absolute = shader("file:///c.fx"), empty = shader(""), inner = shader("d.fx");
  const auto loop = orlo::makeObject<CLoop>();
  loop->item = inner;
  for (const orlo::P<CTrackItem>& item : {orlo::P<CTrackItem>(relative), orlo::P<CTrackItem>(absolute),
                                          orlo::P<CTrackItem>(empty), orlo::P<CTrackItem>(loop)})
    add(item);
  const auto animation = orlo::makeObject<CMovieAnimation>(infile, nullptr, CMovieAnimationSettings{});
  EXPECT_TRUE(Extract(*animation));
  EXPECT_EQ(orlo::toStdString(relative->GetUri()), "file:///filters/a/b.fx");
  EXPECT_EQ(orlo::toStdString(absolute->GetUri()), "file:///c.fx");
  EXPECT_EQ(orlo::toStdString(empty->GetUri()), "");
  EXPECT_EQ(orlo::toStdString(inner->GetUri()), "file:///filters/d.fx");
  EXPECT_NE(backend->GetGiven().infile.find("file:///filters/a/b.fx"), std::string::npos);
}

}  // namespace

}  // namespace authed::data
