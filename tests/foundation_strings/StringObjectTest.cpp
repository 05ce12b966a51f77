#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "foundation/StringObject.h"
#include "tests/foundation_strings/TextSamples.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace samples;

namespace {

using Storage = CString::Storage;

unsigned char* newBytes(const std::string& content) {
  auto* result = new unsigned char[content.size()];
  std::memcpy(result, content.data(), content.size());
  return result;
}

TEST(StringObject, CopiesAndTerminatesTheCopy) {
  for (const CForm& form : forms()) {
    std::string source = content(form.convert("text")) + "garbage";
    const P<ICharEncoding> encoding = form.encoding();
    const int size = 4 * encoding->getEncodedSize('t');
    const P<IString> copy = makeObject<CString>(source.data(), size, Storage::copy, false, encoding);
    std::fill(source.begin(), source.end(), 'x');
    EXPECT_TRUE(copy->isTerminated()) << form.name;
    EXPECT_EQ(copy->getByteSize(), size);
    EXPECT_EQ(encoding->measureTerminated(copy->getData()), size);
    EXPECT_TRUE(copy->equals("text"));
    EXPECT_EQ(copy->length(), 4);
  }
}

TEST(StringObject, TerminatesACopyBehindItsLastWholeUnit) {
  const String odd = bytes(std::string("a\0b\0c", 5), getUTF16CharEncoding());
  EXPECT_EQ(odd.getByteSize(), 4);
  EXPECT_EQ(getUTF16CharEncoding()->measureTerminated(odd.getData()), 4);
  EXPECT_EQ(odd, "ab");
}

TEST(StringObject, AdoptsABufferAsItIs) {
  unsigned char* buffer = newBytes("textual");
  const P<IString> text = makeObject<CString>(buffer, 4, Storage::adopt, false, getLatin1CharEncoding());
  EXPECT_EQ(text->getData(), buffer);
  EXPECT_FALSE(text->isTerminated());
  EXPECT_TRUE(text->equals("text"));

  const P<IString> terminated =
      makeObject<CString>(newBytes(std::string("text\0", 5)), -1, Storage::adopt, true, getLatin1CharEncoding());
  EXPECT_TRUE(terminated->isTerminated());
  EXPECT_EQ(terminated->length(), 4);
}

TEST(StringObject, RefersToMemoryOfSomebodyElse) {
  static const char8_t source[] = u8"é!";
  const P<IString> text = makeObject<CUTF8String>(source);
  EXPECT_EQ(text->getData(), source);
  EXPECT_EQ(text->getByteSize(), 3);
  EXPECT_EQ(text->length(), 2);
}

TEST(StringObject, TakesALengthWithoutCounting) {
  const P<IString> text = makeObject<CString>("abc", 3, Storage::reference, true, getLatin1CharEncoding(), 2);
  EXPECT_EQ(text->length(), 2);
}

TEST(StringObject, IsEmptyWithoutAText) {
  for (const Storage storage : {Storage::copy, Storage::adopt, Storage::reference}) {
    const P<IString> text = makeObject<CString>(nullptr, -1, storage, true, getUTF32CharEncoding());
    EXPECT_TRUE(text->isEmpty());
    EXPECT_FALSE(text->isNull());
    EXPECT_EQ(getUTF32CharEncoding()->measureTerminated(text->getData()), 0);
  }
}

TEST(StringObject, GivesItselfTerminated) {
  const P<IString> terminated = makeObject<CLatin1String>("text");
  EXPECT_EQ(terminated->toTerminated(), terminated);
  const P<IString> cut = makeObject<CLatin1String>("textual", Storage::reference, 4, false);
  const P<IString> copy = cut->toTerminated();
  EXPECT_NE(copy, cut);
  EXPECT_STREQ(static_cast<const char*>(copy->getData()), "text");
}

TEST(StringObject, KeepsInvalidBytesButDoesNotCountThem) {
  const String text = bytes(
      "ab\xFF"
      "cd",
      getUTF8CharEncoding());
  EXPECT_EQ(text.getByteSize(), 5);
  EXPECT_EQ(text.length(), 4);
  EXPECT_EQ(content(text.toTerminated()),
            "ab\xFF"
            "cd");
}

TEST(StringObject, TellsItsEncoding) {
  const P<IString> text = makeObject<CWCharString>(u"x");
  EXPECT_EQ(text->getEncodingId(), kUTF16Tag);
  EXPECT_TRUE(text->hasEncoding(kUTF16Tag));
  EXPECT_FALSE(text->hasEncoding(kUTF8Tag));
  EXPECT_EQ(text->getEncoding(), getUTF16CharEncoding());
}

TEST(StringObject, ComparesWithOtherObjects) {
  const P<IComparable> text = makeObject<CLatin1String>("b");
  EXPECT_EQ(text->compare(P<IBase>(makeObject<CUTF8String>(u8"b"))), 0);
  EXPECT_GT(text->compare(P<IBase>(makeObject<CUTF8String>(u8"a"))), 0);
  EXPECT_LT(text->compare(P<IBase>(makeObject<CUTF8String>(u8"bb"))), 0);
  EXPECT_GT(text->compare(nullptr), 0);
  EXPECT_THROW(text->compare(P<IBase>(getUTF8CharEncoding())), CCastError);
}

TEST(StringObject, IsNullOnlyAsANullString) {
  const P<IString> null = makeObject<TNullString<char16_t, CWCharString>>();
  EXPECT_TRUE(null->isNull());
  EXPECT_TRUE(null->isEmpty());
  EXPECT_TRUE(null->isTerminated());
  EXPECT_EQ(getUTF16CharEncoding()->measureTerminated(null->getData()), 0);
  EXPECT_FALSE(makeObject<CWCharString>(u"")->isNull());
}

}  // namespace
