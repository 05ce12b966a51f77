#include "authed/data/Error.h"
#include "backend/handler/ForeignErrors.h"
#include "backend/handler/VantraError.h"
#include "foundation/Error.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace authed::data {

namespace {

class CBackendError : public orlo::CObject, public virtual vantra::IError {
public:
  std::int32_t getCode() const override { return 7; }
  const char* getString() const override { return "broken \xC3\xA9"; }
  const char* getWhat() const override { return nullptr; }
  std::int32_t getAdditionalCode() const override { return -1; }
  const char* getXML() const override { return "<e/>"; }
};

class CRopError : public orlo::CObject, public virtual rop::IError {
public:
  std::int32_t getCode() const override { return 1; }
  const char* getString() const override { return "a"; }
  const char* getWhat() const override { return "b"; }
  const char* getXML() const override { return "c"; }
};

class CSulError : public orlo::CObject, public virtual sul::IError {
public:
  std::int32_t getErrorCode() const override { return 2; }
  const char* getErrorString() const override { return "a"; }
  const char* getAdditionalErrorString() const override { return "b"; }
  const char* getYenLog() const override { return "c"; }
  const char* getGraphXml() const override { return nullptr; }
};

template <class Thrown>
CError caught(const Thrown& thrown) {
  try {
    throw thrown;
  } catch (...) {
    return CError::OfCurrent();
  }
}

TEST(ForeignError, OfTheFoundationHasItsClassAndText) {
  const CError error = caught(orlo::CError("no room"));
  EXPECT_EQ(error.GetKind(), "orlo::CError");
  EXPECT_EQ(error.GetDetails(), "pErr->getType()\norlo::CError\npErr->getText()\nno room\n");
  EXPECT_EQ(error.GetMessage(), "no room");
  EXPECT_STREQ(error.what(), "no room");
}

TEST(ForeignError, OfTheHandlerHasNoInnerPartWithoutAnInnerError) {
  const CError error = caught(vantra::wx::handler::CVantraError(5, "text"));
  EXPECT_EQ(error.GetKind(), "CVantraError");
  EXPECT_TRUE(error.GetDetails().StartsWith("e.getCode()\n5\ne.getWhat()\n"));
  EXPECT_TRUE(error.GetDetails().EndsWith("e.getString()\ntext\ne.getXML()\n\n"));
  EXPECT_EQ(error.GetDetails().Find("included"), wxNOT_FOUND);
}

TEST(ForeignError, OfTheHandlerTellsOfTheInnerError) {
  const CError error =
      caught(vantra::wx::handler::CVantraError(5, "text", orlo::P<vantra::IError>(orlo::makeObject<CBackendError>())));
  EXPECT_TRUE(error.GetDetails().EndsWith(wxString::FromUTF8(
      "CVantraError included vantra::IError\npError->getCode()\n7\npError->getString()\nbroken \xC3\xA9\n"
      "pError->getWhat()\n\npError->getAdditionalCode()\n-1\npError->getXML()\n<e/>\n")));
}

TEST(ForeignError, OfTheBackendHasItsAccessors) {
  const CError error = caught(CBackendError());
  EXPECT_EQ(error.GetKind(), "vantra::IError");
  EXPECT_EQ(error.GetDetails(), wxString::FromUTF8("e.getCode()\n7\ne.getString()\nbroken \xC3\xA9\ne.getWhat()\n\n"
                                                   "e.getAdditionalCode()\n-1\ne.getXML()\n<e/>\n"));
}

TEST(ForeignError, OfOtherLibrariesHasTheirAccessors) {
  EXPECT_EQ(caught(CRopError()).GetDetails(), "e.getCode()\n1\ne.getString()\na\ne.getWhat()\nb\ne.getXML()\nc\n");
  EXPECT_EQ(caught(CRopError()).GetKind(), "rop::IError");
  EXPECT_EQ(caught(CSulError()).GetDetails(),
            "e.getErrorCode()\n2\ne.getErrorString()\na\ne.getAdditionalErrorString()\nb\ne.getYenLog()\nc\n"
            "e.getGraphXml()\n\n");
  EXPECT_EQ(caught(CSulError()).GetKind(), "sul::IError");
}

TEST(ForeignError, OfTheStandardLibraryHasItsText) {
  const CError error = caught(std::runtime_error("late"));
  EXPECT_EQ(error.GetKind(), "std::exception");
  EXPECT_EQ(error.GetDetails(), "pErr->what()\nlate\n");
}

TEST(ForeignError, ThatNobodyKnowsHasNoDetails) {
  const CError error = caught(42);
  EXPECT_EQ(error.GetKind(), "unknown exception");
  EXPECT_EQ(error.GetDetails(), "");
}

}  // namespace

}  // namespace authed::data
