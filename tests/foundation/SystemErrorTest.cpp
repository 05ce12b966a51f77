#include "foundation/posix/SystemError.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace orlo {
namespace {

template <class Error>
std::string messageThrown(int code, const String& message, const String& path = String()) {
  try {
    throwSystemError(code, message, path);
  } catch (const Error& error) {
    EXPECT_EQ(typeid(error), typeid(Error));
    return messageOf(error);
  }
}

TEST(SystemError, OfAPathThatLeadsNowhereIsAFileNotFound) {
  for (const int code : {ENOENT, ENOTDIR}) {
    EXPECT_EQ(messageThrown<CFileNotFoundError>(code, "any %ERRORDESC%", u8"/tmp/menü"),
              "The file 'file:///tmp/men%C3%BC' was not found.");
    EXPECT_EQ(messageThrown<CFileNotFoundError>(code, "any %ERRORDESC%"), "The file was not found.");
    EXPECT_EQ(messageThrown<CFileNotFoundError>(code, nullptr, nullptr), "The file was not found.");
  }
}

TEST(SystemError, IsTheSystemsTextWithoutAMessage) {
  EXPECT_EQ(messageThrown<CError>(EACCES, nullptr, "/tmp/x"), "Permission denied");
}

TEST(SystemError, FillsTheSystemsTextIntoTheMessage) {
  EXPECT_EQ(messageThrown<CError>(EACCES, "Error creating event (%ERRORDESC%).", "/tmp/x"),
            "Error creating event (Permission denied).");
  EXPECT_EQ(messageThrown<CError>(EACCES, "%ERRORDESC%, %ERRORDESC%"), "Permission denied, Permission denied");
  EXPECT_EQ(messageThrown<CError>(EACCES, "plain"), "plain");
}

TEST(SystemError, HasNoTextForACodeThatTheSystemDoesNotKnow) {
  EXPECT_EQ(messageThrown<CError>(987654, "failed (%ERRORDESC%)"), "failed ()");
  EXPECT_EQ(messageThrown<CError>(987654, nullptr), "");
}

}  // namespace
}  // namespace orlo
