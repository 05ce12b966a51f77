#include "foundation/StringObject.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace orlo {
namespace {

TEST(TextHash, IsMadeOfOneCharacterAfterTheOther) {
  std::mt19937 random(5);
  for (int length = 0; length < 200; ++length) {
    std::string bytes;
    for (int i = 0; i < length; ++i) bytes += static_cast<char>(random());
    std::int32_t expected = 0;
    for (const char byte : bytes) {
      const std::int32_t c = static_cast<unsigned char>(byte);
      expected = ((expected & 0x0FFFFFFF) << 3) ^ (((expected >> 2) ^ c) & 0x7FFFFFFF);
    }
    const String latin1 =
        P<IString>(makeObject<CLatin1String>(bytes.data(), CString::Storage::copy, static_cast<int>(bytes.size())));
    EXPECT_EQ(latin1.getHash(), expected) << length;
    EXPECT_EQ(toUTF8(latin1).getHash(), expected) << length;
    EXPECT_EQ(toWide(latin1).getHash(), expected) << length;
    EXPECT_EQ(toUTF32(latin1).getHash(), expected) << length;
  }
}

}  // namespace
}  // namespace orlo
