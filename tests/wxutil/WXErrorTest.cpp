#include "foundation/wxutil/WXError.h"
#include "foundation/wxutil/WXString.h"

#include <gtest/gtest.h>

namespace wxutil {
namespace {

TEST(WXError, HasTheTextOfTheToolkit) {
  const CWXError error(wxString(L"Kein Gerät"));
  EXPECT_TRUE(error.getTitle() == orlo::String("Error"));
  EXPECT_TRUE(error.getMessage() == orlo::String(L"Kein Gerät"));
  EXPECT_EQ(error.getWxMessage(), wxString(L"Kein Gerät"));
}

TEST(WXError, KeepsAnEmptyText) {
  EXPECT_TRUE(CWXError(wxString()).getMessage().isEmpty());
}

TEST(WXError, IsCaughtAsAnyOtherErrorAndCloned) {
  try {
    throw CWXError("broken");
  } catch (const orlo::CError& error) {
    EXPECT_STREQ(error.what(), "broken");
    const orlo::P<orlo::CException> clone = error.clone();
    const auto* copy = dynamic_cast<const CWXError*>(clone.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->getWxMessage(), "broken");
  }
}

}  // namespace
}  // namespace wxutil
