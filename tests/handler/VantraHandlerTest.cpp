#include "backend/handler/ForeignErrors.h"
#include "backend/handler/VantraError.h"
#include "backend/handler/VantraHandler.h"
#include "foundation/String.h"
#include "foundation/wxutil/WXError.h"
#include "tests/backend_script/ScriptedBackend.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace vantra::wx::handler {

namespace {

using script::EOperation;

orlo::P<CVantraHandler> MakeHandler() {
  return orlo::makeObject<CVantraHandler>();
}

/// The text of the error that a call throws.
std::string TextOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const wxutil::CWXError& error) {
    return orlo::toStdString(error.getMessage());
  }
  return "no error of the toolkit's kind";
}

TEST(VantraHandler, NamesTheLibraryThatIsMissing) {
  EXPECT_EQ(TextOf([] { MakeHandler(); }), "Could not load libvantraplugin.so");
}

TEST(VantraHandler, NamesTheFunctionThatTheLibraryLacks) {
  const std::string text = "Could not find function in dll: Functionname: Vantra_";
  {
    const CScriptedBackend backend("createMessage");
    EXPECT_EQ(TextOf([] { MakeHandler()->CreateMessage(1); }), text + "createMessage");
  }
  {
    const CScriptedBackend backend("createContext");
    EXPECT_EQ(TextOf([] { MakeHandler()->CreateContext(2); }), text + "createContext");
  }
  {
    const CScriptedBackend backend("getLastError");
    backend->GiveNull(EOperation::createContext);
    EXPECT_EQ(TextOf([] { MakeHandler()->CreateContext(2); }), text + "getLastError");
  }
  {
    const CScriptedBackend backend("getAnimationExtractor");
    const auto handler = MakeHandler();
    const auto context = handler->CreateContext(2);
    EXPECT_EQ(TextOf([&] { handler->GetAnimationExtractor({}, context.get(), 0, 1, 0); }),
              text + "getAnimationExtractor");
  }
}

TEST(VantraHandler, NeedsNoFunctionThatIsNotCalled) {
  const CScriptedBackend backend("createMessage");
  EXPECT_TRUE(MakeHandler()->CreateContext(2));
}

TEST(VantraHandler, TakesOneReferenceOnEachObject) {
  const CScriptedBackend backend;
  const auto handler = MakeHandler();
  auto message = handler->CreateMessage(1);
  auto context = handler->CreateContext(2);
  auto extractor = handler->GetAnimationExtractor({}, context.get(), 0, 1, 0);
  EXPECT_EQ(backend->GetLiving(), 3);
  message = nullptr;
  EXPECT_EQ(backend->GetLiving(), 2);
  // The extractor holds the context.
  context = nullptr;
  EXPECT_EQ(backend->GetLiving(), 2);
  extractor = nullptr;
  EXPECT_EQ(backend->GetLiving(), 0);
}

TEST(VantraHandler, HandsOnWhatMayBeNull) {
  const CScriptedBackend backend;
  backend->GiveNull(EOperation::createMessage);
  backend->GiveNull(EOperation::getAnimationExtractor);
  const auto handler = MakeHandler();
  EXPECT_FALSE(handler->CreateMessage(1));
  EXPECT_FALSE(handler->GetAnimationExtractor({}, handler->CreateContext(2).get(), 0, 1, 0));
  EXPECT_EQ(backend->GetLiving(), 0);
}

TEST(VantraHandler, TurnsAContextThatThereIsNotIntoTheCodeOfTheLastError) {
  const CScriptedBackend backend;
  backend->GiveNull(EOperation::createContext);
  backend->SetLastError(17);
  try {
    MakeHandler()->CreateContext(2);
    FAIL() << "nothing was thrown";
  } catch (const CVantraError& error) {
    EXPECT_EQ(error.getCode(), 17);
    EXPECT_STREQ(error.getString(), "");
    EXPECT_FALSE(error.getError());
  }
  EXPECT_EQ(backend->GetLiving(), 0) << "the error object has not been given back";
}

TEST(VantraHandler, CopesWithALastErrorThatThereIsNot) {
  const CScriptedBackend backend;
  backend->GiveNull(EOperation::createContext);
  try {
    MakeHandler()->CreateContext(2);
    FAIL() << "nothing was thrown";
  } catch (const CVantraError& error) {
    EXPECT_EQ(error.getCode(), 0);
  }
}

TEST(VantraHandler, HandsAllArgumentsOn) {
  const CScriptedBackend backend;
  const auto handler = MakeHandler();
  CExtractorParams params;
  params.frameRateNum = 30000;
  params.frameRateDen = 1001;
  params.animationDir = "file:///a";
  params.filterDir = "file:///f";
  params.themeDir = "file:///t";
  params.width = 320;
  params.height = 180;
  handler->GetAnimationExtractor(params, handler->CreateContext(2).get(), 5, 6, 7);
  const script::CGiven given = backend->GetGiven();
  EXPECT_EQ(given.params.frameRateNum, 30000);
  EXPECT_EQ(given.params.frameRateDen, 1001);
  EXPECT_EQ(given.params.one, 1);
  EXPECT_EQ(given.params.another, 1);
  EXPECT_EQ(given.params.width, 320);
  EXPECT_EQ(given.params.height, 180);
  EXPECT_EQ(given.animationDir, "file:///a");
  EXPECT_EQ(given.filterDir, "file:///f");
  EXPECT_EQ(given.themeDir, "file:///t");
  EXPECT_EQ(given.firstFrame, 5);
  EXPECT_EQ(given.flag, 6);
  EXPECT_EQ(given.reserved, 7);
}

TEST(VantraHandler, LetsGoOfTheLibraryAtItsEnd) {
  orlo::P<CVantraHandler> handler;
  {
    const CScriptedBackend backend;
    handler = MakeHandler();
    backend->SetPictures(7);
  }
  EXPECT_TRUE(handler->CreateMessage(1)) << "the handler keeps the library by itself";
  handler = nullptr;
  EXPECT_EQ(TextOf([] { MakeHandler(); }), "Could not load libvantraplugin.so");
}

// The last one: the handler of the process keeps the library.
TEST(VantraHandler, OfTheProcessLooksAgainForALibraryThatWasMissing) {
  EXPECT_EQ(TextOf([] { GetVantraHandler(); }), "Could not load libvantraplugin.so");
  const CScriptedBackend backend;
  EXPECT_TRUE(GetVantraHandler()->CreateMessage(1));
  EXPECT_EQ(GetVantraHandler().get(), GetVantraHandler().get());
}

}  // namespace

}  // namespace vantra::wx::handler
