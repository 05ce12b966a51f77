#include "foundation/BoxedValue.h"
#include "foundation/Error.h"
#include "foundation/StringObject.h"
#include "foundation/ValueList.h"
#include "tests/foundation/Counted.h"
#include "tests/foundation/TextOf.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace orlo {
namespace {

using testing::UnorderedElementsAre;

std::vector<std::string> namesOf(const IValueList& list) {
  std::vector<std::string> names;
  for (const P<IConstEnum> walk = list.getNames(); walk->hasNext();)
    names.push_back(textOf(asString(walk->nextConst())));
  return names;
}

TEST(ValueList, GivesTheDefaultsOfNamesThatAreMissing) {
  const CCounted object;
  const CValueList list(true);
  EXPECT_EQ(list.getCount(), 0);
  EXPECT_FALSE(list.has("x"));
  EXPECT_FALSE(list.getObject("x"));
  EXPECT_EQ(list.getInt("x", 7), 7);
  EXPECT_EQ(list.getInt64("x", 7), 7);
  EXPECT_TRUE(list.getBool("x", true));
  EXPECT_EQ(list.getFloat("x", 7.5f), 7.5f);
  EXPECT_EQ(list.getDouble("x", 7.5), 7.5);
  EXPECT_EQ(textOf(list.getString("x", "seven")), "seven");
  EXPECT_TRUE(list.getString("x", nullptr).isNull());
  EXPECT_EQ(list.getObject("x", PC<IBase>(&object)).get(), &object);
}

TEST(ValueList, ReadsWhatWasWritten) {
  const CCounted object;
  CValueList list(true);
  EXPECT_TRUE(list.setInt("int", -42));
  EXPECT_TRUE(list.setInt64("int64", std::numeric_limits<std::int64_t>::min()));
  EXPECT_TRUE(list.setBool("bool", true));
  EXPECT_TRUE(list.setFloat("float", 0.1f));
  EXPECT_TRUE(list.setDouble("double", 0.1));
  EXPECT_TRUE(list.setString("string", ""));
  EXPECT_TRUE(list.setObject("object", &object));
  EXPECT_EQ(list.getCount(), 7);
  EXPECT_EQ(list.getInt("int", 0), -42);
  EXPECT_EQ(list.getInt64("int64", 0), std::numeric_limits<std::int64_t>::min());
  EXPECT_TRUE(list.getBool("bool", false));
  EXPECT_EQ(list.getFloat("float", 0), 0.1f);
  EXPECT_EQ(list.getDouble("double", 0), 0.1);
  EXPECT_EQ(textOf(list.getString("string", nullptr)), "");
  EXPECT_EQ(list.getObject("object").get(), &object);
}

TEST(ValueList, ReadsTextsAsNumbersAndNumbersAsTexts) {
  CValueList list(true);
  list.setString("x", "42");
  EXPECT_EQ(list.getInt("x", 0), 42);
  EXPECT_EQ(list.getInt64("x", 0), 42);
  EXPECT_EQ(list.getDouble("x", 0), 42.0);
  list.setInt("x", 42);
  EXPECT_EQ(textOf(list.getString("x", String())), "42");
  list.setInt64("x", 9007199254740993);
  EXPECT_EQ(textOf(list.getString("x", String())), "9007199254740993");
  list.setDouble("x", 1.5);
  EXPECT_EQ(textOf(list.getString("x", String())), "1.5");
  list.setFloat("x", 0.25f);
  EXPECT_EQ(textOf(list.getString("x", String())), "0.25");
}

TEST(ValueList, ConvertsNumbersToTheTypeThatIsAskedFor) {
  CValueList list(true);
  list.setDouble("x", -7.9);
  EXPECT_EQ(list.getInt("x", 0), -7);
  EXPECT_EQ(list.getInt64("x", 0), -7);
  EXPECT_EQ(list.getFloat("x", 0), -7.9f);
  list.setInt("x", 3);
  EXPECT_EQ(list.getDouble("x", 0), 3.0);
  EXPECT_EQ(list.getInt64("x", 0), 3);
  list.setInt64("x", 0x1'0000'0002);
  EXPECT_EQ(list.getInt("x", 0), 2);
}

TEST(ValueList, TakesTheNearestIntegerForNumbersThatAreTooLarge) {
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  CValueList list(true);
  list.setDouble("x", 1e10);
  EXPECT_EQ(list.getInt("x", 0), std::numeric_limits<std::int32_t>::max());
  list.setDouble("x", -kInfinite);
  EXPECT_EQ(list.getInt("x", 0), std::numeric_limits<std::int32_t>::min());
  list.setDouble("x", 9223372036854775808.0);
  EXPECT_EQ(list.getInt64("x", 0), std::numeric_limits<std::int64_t>::max());
  list.setFloat("x", 1e30f);
  EXPECT_EQ(list.getInt64("x", 0), std::numeric_limits<std::int64_t>::max());
  list.setDouble("x", std::nan(""));
  EXPECT_EQ(list.getInt("x", 5), 0);
}

TEST(ValueList, DoesNotTakeTruthValuesForNumbersOrTexts) {
  CValueList list(true);
  list.setBool("x", true);
  EXPECT_EQ(list.getInt("x", 0), 0);
  EXPECT_EQ(list.getInt("x", 9), 9);
  EXPECT_EQ(list.getDouble("x", 9), 9);
  EXPECT_EQ(textOf(list.getString("x", "none")), "none");
  list.setInt("x", 2);
  EXPECT_FALSE(list.getBool("x", false));
  EXPECT_TRUE(list.getBool("x", true));
  list.setString("x", "true");
  EXPECT_FALSE(list.getBool("x", false));
}

TEST(ValueList, GivesTheDefaultForObjectsOfOtherKinds) {
  CValueList list(true);
  list.setObject("x", makeObject<CCounted>());
  EXPECT_EQ(list.getInt("x", 3), 3);
  EXPECT_EQ(textOf(list.getString("x", "none")), "none");
  list.setObject("x", nullptr);
  EXPECT_TRUE(list.has("x"));
  EXPECT_EQ(list.getInt("x", 3), 3);
}

TEST(ValueList, ThrowsForTextsThatAreNoNumbers) {
  CValueList list(true);
  list.setString("x", "4 or 5");
  EXPECT_THROW(list.getInt("x", 0), CParseError);
  EXPECT_THROW(list.getInt64("x", 0), CParseError);
  list.setString("x", "none");
  EXPECT_THROW(list.getFloat("x", 0), CParseError);
  EXPECT_THROW(list.getDouble("x", 0), CParseError);
}

/// A number and a text, of which the number comes first.
class CNumberedText : public CString, public IDouble {
public:
  CNumberedText() : CString("42", -1, Storage::reference, true, getLatin1CharEncoding()) {}
  double getValue() const override { return 1.5; }
};

TEST(ValueList, TakesAnObjectForANumberBeforeItTakesItForAText) {
  CValueList list(true);
  list.setObject("x", PC<CObject>(makeObject<CNumberedText>()));
  EXPECT_EQ(list.getDouble("x", 0), 1.5);
  EXPECT_EQ(textOf(list.getString("x", nullptr)), "1.5");
}

TEST(ValueList, KnowsNamesByCaseOrNot) {
  CValueList exact(true);
  EXPECT_TRUE(exact.isCaseSensitive());
  EXPECT_TRUE(exact.setInt("Key", 1));
  EXPECT_TRUE(exact.setInt("KEY", 2));
  EXPECT_EQ(exact.getCount(), 2);
  EXPECT_EQ(exact.getInt("Key", 0), 1);
  EXPECT_FALSE(exact.has("key"));

  CValueList loose(false);
  EXPECT_FALSE(loose.isCaseSensitive());
  EXPECT_TRUE(loose.setInt("Key", 1));
  EXPECT_FALSE(loose.setInt("KEY", 2));
  EXPECT_TRUE(loose.setInt(u8"\u00C4", 3));
  EXPECT_EQ(loose.getInt("key", 0), 2);
  EXPECT_EQ(loose.getInt(u"\u00E4", 0), 3);
  EXPECT_THAT(namesOf(loose), UnorderedElementsAre("key", "\xC3\xA4"));
  EXPECT_TRUE(loose.remove("kEy"));
  EXPECT_FALSE(loose.has("Key"));
}

TEST(ValueList, LetsGoOfTheValuesThatItReplacesAndRemoves) {
  CCounted object;
  CValueList list(true);
  list.setObject("x", PC<CCounted>(&object));
  EXPECT_EQ(object.referenceCount(), 2);
  EXPECT_FALSE(list.setInt("x", 1));
  EXPECT_EQ(object.referenceCount(), 1);
  list.setObject("x", PC<CCounted>(&object));
  EXPECT_TRUE(list.remove("x"));
  EXPECT_EQ(object.referenceCount(), 1);
  EXPECT_FALSE(list.remove("x"));
  EXPECT_FALSE(list.remove("y"));
  list.setObject("x", PC<CCounted>(&object));
  list.removeAll();
  EXPECT_EQ(object.referenceCount(), 1);
  EXPECT_EQ(list.getCount(), 0);
}

TEST(ValueList, HasAnEnumeratorThatEndsAtOnceIfItIsEmpty) {
  const CValueList list(true);
  const P<IConstEnum> names = list.getNames();
  EXPECT_FALSE(names->hasNext());
  EXPECT_EQ(names->getCount(), 0);
  EXPECT_THROW(names->nextConst(), CEndOfEnumError);
}

TEST(ValueList, ListsEachNameOnce) {
  const P<CValueList> list = makeObject<CValueList>(true);
  std::vector<std::string> expected;
  for (int i = 0; i < 50; ++i) {
    expected.push_back("name " + std::to_string(i));
    list->setInt(fromUTF8(expected.back()), i);
  }
  EXPECT_THAT(namesOf(*list), testing::UnorderedElementsAreArray(expected));
  const P<IConstEnum> names = list->getNames();
  while (names->hasNext()) names->nextConst();
  EXPECT_THROW(names->nextConst(), CEndOfEnumError);
  names->reset();
  EXPECT_TRUE(names->hasNext());
  EXPECT_EQ(names->getCount(), 50);
}

TEST(ValueList, KeepsTheWalkOverItsNamesFromNamesThatHaveGone) {
  CValueList list(true);
  list.setInt("a", 1);
  list.setInt("b", 2);
  const P<IConstEnum> names = list.getNames();
  names->nextConst();
  list.setInt("a", 3);
  EXPECT_TRUE(names->hasNext());
  list.removeAll();
  EXPECT_THROW(names->hasNext(), CInvalidObjectStateError);
  EXPECT_THROW(names->nextConst(), CInvalidObjectStateError);
  names->reset();
  EXPECT_FALSE(names->hasNext());
}

TEST(ValueList, CopiesAnother) {
  const P<CValueList> other = makeObject<CValueList>(true);
  other->setInt("Number", 1);
  other->setString("Text", "t");
  CValueList list(false);
  list.setInt("number", 7);
  list.setInt("else", 8);
  list.setAll(other);
  EXPECT_THAT(namesOf(list), UnorderedElementsAre("number", "text", "else"));
  EXPECT_EQ(list.getInt("number", 0), 1);
  list.setAll(PC<IValueList>(&list));
  list.setAll(nullptr);
  EXPECT_EQ(list.getCount(), 3);
}

}  // namespace
}  // namespace orlo
