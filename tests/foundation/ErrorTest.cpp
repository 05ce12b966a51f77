#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "tests/foundation/Counted.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <typeinfo>

namespace orlo {

class CFoo : public CCounted {};

namespace {

const String kNull(nullptr);

TEST(Exception, HasTheTextsGiven) {
  EXPECT_EQ(titleOf(CException("text", "title")), "title");
  EXPECT_EQ(messageOf(CException("text", "title")), "text");
  EXPECT_EQ(titleOf(CException("text")), "Error");
}

TEST(Error, TakesItsDefaultsForNullTexts) {
  const CError error(kNull, kNull);
  EXPECT_EQ(titleOf(error), "Error");
  EXPECT_EQ(messageOf(error), "Unspecified error");
  EXPECT_EQ(messageOf(CError()), "Unspecified error");
  EXPECT_EQ(titleOf(CError("text")), "Error");
}

TEST(Error, KeepsEmptyTextsThatAreNotNull) {
  const CError error("", "");
  EXPECT_EQ(titleOf(error), "");
  EXPECT_EQ(messageOf(error), "");
}

TEST(Error, SharesItsTextsWithItsCopies) {
  const CError error("text", "title");
  const CError copy(error);  // NOLINT(performance-unnecessary-copy-initialization)
  EXPECT_EQ(copy.getMessage().getObject(), error.getMessage().getObject());
  EXPECT_EQ(copy.getTitle().getObject(), error.getTitle().getObject());
}

TEST(NoSuchObjectError, SaysSo) {
  EXPECT_EQ(titleOf(CNoSuchObjectError()), "Error");
  EXPECT_EQ(messageOf(CNoSuchObjectError()), "No such object.");
}

TEST(ParseError, HasATitleOfItsOwn) {
  EXPECT_EQ(titleOf(CParseError("Error parsing integer.")), "Parse error");
  EXPECT_EQ(messageOf(CParseError("Error parsing integer.")), "Error parsing integer.");
}

TEST(ObjectDescription, IsTheClassNameOfTheObject) {
  CFoo foo;
  EXPECT_EQ(textOf(foo.getDescription()), "orlo::CFoo object");
}

TEST(ObjectError, OfNothingIsAboutAnUnknownObject) {
  const CObjectError error(nullptr, nullptr, kNull);
  EXPECT_EQ(titleOf(error), "Object error");
  EXPECT_EQ(messageOf(error), "unknown object");
  EXPECT_EQ(messageOf(CObjectError(nullptr, nullptr, "%OBJECTDESC% failed")), "unknown object failed");
}

TEST(ObjectError, FillsInTheDescriptionOfItsObject) {
  CFoo foo;
  EXPECT_EQ(messageOf(CObjectError(&foo, nullptr, "%OBJECTDESC% failed")), "object: orlo::CFoo object failed");
  EXPECT_EQ(messageOf(CObjectError(&foo, &typeid(int), kNull)), "object: orlo::CFoo object");
  EXPECT_EQ(messageOf(CObjectError(&foo, nullptr, "%OBJECTDESC%, %OBJECTDESC%, %objectdesc%")),
            "object: orlo::CFoo object, object: orlo::CFoo object, %objectdesc%");
}

TEST(ObjectError, FillsInTheClassIfThereIsNoObject) {
  EXPECT_EQ(messageOf(CObjectError(nullptr, &typeid(CFoo), "%OBJECTDESC% failed")), "object class: orlo::CFoo failed");
}

TEST(ObjectError, KeepsItsObjectAndTakesTheClassFromIt) {
  CFoo foo;
  const CObjectError error(&foo, nullptr, "text", "title");
  EXPECT_EQ(titleOf(error), "title");
  EXPECT_EQ(foo.referenceCount(), 2);
  ASSERT_NE(error.getObjectClass(), nullptr);
  EXPECT_EQ(*error.getObjectClass(), typeid(CFoo));
  EXPECT_EQ(*CObjectError(&foo, &typeid(CCounted), "text").getObjectClass(), typeid(CCounted));
  EXPECT_EQ(CObjectError(nullptr, nullptr, "text").getObjectClass(), nullptr);
}

TEST(CastError, NamesTheClassOfTheObjectAndTheTarget) {
  CFoo foo;
  try {
    cast<ICountedFace>(static_cast<IBase*>(&foo));
    FAIL();
  } catch (const CCastError& error) {
    EXPECT_EQ(titleOf(error), "Cast error");
    EXPECT_EQ(messageOf(error), "Error casting a 'orlo::CFoo' object to 'ICountedFace'.");
    EXPECT_EQ(error.getObject().get(), static_cast<IBase*>(&foo));
  }
}

TEST(InvalidArgError, NamesMethodObjectAndArgument) {
  CFoo foo;
  const CInvalidArgError error(&foo, nullptr, "run", "speed < 0");
  EXPECT_EQ(titleOf(error), "Object error");
  EXPECT_EQ(messageOf(error),
            "An invalid argument was passed to method 'run' of 'object: orlo::CFoo object': speed < 0");
  EXPECT_EQ(textOf(error.getMethod()), "run");
  EXPECT_EQ(textOf(error.getArgument()), "speed < 0");
}

TEST(InvalidArgError, SaysWhatIsUnspecified) {
  EXPECT_EQ(messageOf(CInvalidArgError(nullptr, nullptr, kNull, kNull)),
            "An invalid argument was passed to method 'unspecified method' of '': unspecified argument");
}

TEST(InvalidObjectStateError, TellsObjectAndState) {
  CFoo foo;
  const CInvalidObjectStateError error("not open", &foo, nullptr);
  EXPECT_EQ(titleOf(error), "Object error");
  EXPECT_EQ(messageOf(error), "The object is in an invalid state (object: orlo::CFoo object): not open");
  EXPECT_EQ(messageOf(CInvalidObjectStateError("not open", nullptr, nullptr)),
            "The object is in an invalid state (): not open");
}

TEST(EndOfEnumError, IsAnInvalidState) {
  EXPECT_EQ(messageOf(CEndOfEnumError(nullptr, &typeid(CFoo))),
            "The object is in an invalid state (object class: orlo::CFoo): end of enumeration already reached");
}

TEST(MethodNotImplementedError, NamesTheMethod) {
  CFoo foo;
  const CMethodNotImplementedError error(&foo, nullptr, "findLast");
  EXPECT_EQ(titleOf(error), "Object error");
  EXPECT_EQ(messageOf(error), "Method not implemented (object: orlo::CFoo object): findLast.");
  EXPECT_EQ(messageOf(CMethodNotImplementedError(nullptr, nullptr, kNull)),
            "Method not implemented (): unspecified method.");
}

TEST(URIError, FillsInTheLocation) {
  const P<IURI> uri = createURI("file:///a.xml");
  const CURIError error("bad %URI%: %URI%", "title", uri);
  EXPECT_EQ(titleOf(error), "title");
  EXPECT_EQ(messageOf(error), "bad file:///a.xml: file:///a.xml");
  EXPECT_TRUE(error.getURI() == uri);
}

TEST(URIError, SaysThatTheLocationIsUnknownIfItIsNull) {
  EXPECT_EQ(messageOf(CURIError("bad %URI%", kNull, nullptr)), "bad <uri unknown>");
}

TEST(URIError, TakesTheDefaultsForNullTexts) {
  const CFileError error(kNull, kNull, createURI("x"));
  EXPECT_EQ(titleOf(error), "Error");
  EXPECT_EQ(messageOf(error), "Unspecified error");
}

TEST(FileNotFoundError, IsGeneralWithoutALocation) {
  EXPECT_EQ(titleOf(CFileNotFoundError()), "Error");
  EXPECT_EQ(messageOf(CFileNotFoundError()), "The file was not found.");
  EXPECT_EQ(messageOf(CFileNotFoundError(nullptr)), "The file was not found.");
}

TEST(FileNotFoundError, PutsTheLocationBetweenQuotes) {
  const P<IURI> uri = createURI(u"/映画 \U0001F3AC/menü.xml");
  EXPECT_EQ(messageOf(CFileNotFoundError(uri)), "The file '/映画 \U0001F3AC/menü.xml' was not found.");
  EXPECT_TRUE(CFileNotFoundError(uri).getURI() == uri);
}

TEST(ErrorTree, IsCaughtByItsBases) {
  static_assert(std::is_base_of_v<std::exception, CException>);
  static_assert(std::is_base_of_v<CObject, CException>);
  static_assert(std::is_base_of_v<CException, CError>);
  static_assert(std::is_base_of_v<CInvalidObjectStateError, CEndOfEnumError>);
  static_assert(std::is_base_of_v<CFileError, CFileNotFoundError>);
  static_assert(std::is_base_of_v<CURIError, CFileError>);
  EXPECT_THROW(throw CFileNotFoundError(), CURIError);
  EXPECT_THROW(throw CEndOfEnumError(nullptr, nullptr), CObjectError);
  EXPECT_THROW(throw CParseError("text"), std::exception);
}

template <class T>
void expectCloned(const T& error) {
  P<CException> clone;
  try {
    throw error;
  } catch (const CException& caught) {
    clone = caught.clone();
  }
  EXPECT_EQ(typeid(*clone), typeid(T));
  EXPECT_EQ(titleOf(*clone), titleOf(error));
  EXPECT_EQ(messageOf(*clone), messageOf(error));
}

TEST(ErrorClone, IsOfTheSameClassWithTheSameTexts) {
  CFoo foo;
  const P<IURI> uri = createURI("x");
  expectCloned(CException("text", "title"));
  expectCloned(CError("text", "title"));
  expectCloned(CNoSuchObjectError());
  expectCloned(CParseError("text"));
  expectCloned(CObjectError(&foo, nullptr, "text"));
  expectCloned(CCastError(&foo, typeid(int)));
  expectCloned(CInvalidArgError(&foo, nullptr, "run", "x"));
  expectCloned(CInvalidObjectStateError("text", &foo, nullptr));
  expectCloned(CEndOfEnumError(&foo, nullptr));
  expectCloned(CMethodNotImplementedError(&foo, nullptr, "run"));
  expectCloned(CURIError("text %URI%", "title", uri));
  expectCloned(CFileError("text %URI%", "title", uri));
  expectCloned(CFileNotFoundError(uri));
  EXPECT_EQ(foo.referenceCount(), 1);
}

TEST(ErrorClone, IsAnOrdinaryCountedObjectEvenOfAClone) {
  CFoo foo;
  {
    const P<CException> clone = CObjectError(&foo, nullptr, "text").clone();
    const P<CException> another = clone;
    const P<CException> ofClone = clone->clone();
    EXPECT_EQ(foo.referenceCount(), 3);
  }
  EXPECT_EQ(foo.referenceCount(), 1);
}

}  // namespace
}  // namespace orlo
