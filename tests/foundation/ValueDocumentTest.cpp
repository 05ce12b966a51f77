#include "foundation/posix/ValueDocument.h"

#include <gmock/gmock.h>

#include <map>
#include <random>

namespace orlo::posix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string problemOf(const std::string& text) {
  try {
    const CValueDocument document(text);
  } catch (const CDocumentError& error) {
    return std::to_string(error.line) + ": " + error.reason;
  }
  return "none";
}

std::int32_t intAt(const CValueDocument& document, const CStorePath& path, const std::string& name) {
  const CStoredValue* value = document.findValue(path, name);
  return value && value->asInt() ? *value->asInt() : -1;
}

constexpr char kText[] =
    "# Settings\n"
    "width = 640   # pixels\n"
    "\n"
    "# Where the window stands\n"
    "[Window.Position]\n"
    "\tx=1\n"
    "  y  =  2\n"
    "\n"
    "[\"a.b\".'c d']\n"
    "z = 3\n";

TEST(ValueDocument, HasNothingAtFirst) {
  const CValueDocument document;
  EXPECT_EQ(document.getText(), "");
  EXPECT_TRUE(document.hasStore({}));
  EXPECT_FALSE(document.hasStore({"a"}));
  EXPECT_EQ(document.findValue({"a"}, "b"), nullptr);
  EXPECT_THAT(document.getValueNames({"a"}), IsEmpty());
}

TEST(ValueDocument, ReadsStoresWithinStores) {
  const CValueDocument document(kText);
  EXPECT_EQ(intAt(document, {}, "width"), 640);
  EXPECT_EQ(intAt(document, {"Window", "Position"}, "x"), 1);
  EXPECT_EQ(intAt(document, {"window", "POSITION"}, "Y"), 2);
  EXPECT_EQ(intAt(document, {"a.b", "c d"}, "z"), 3);
  EXPECT_TRUE(document.hasStore({"Window"}));
  EXPECT_THAT(document.getStoreNames({}), ElementsAre("a.b", "Window"));
  EXPECT_THAT(document.getValueNames({"Window", "Position"}), ElementsAre("x", "y"));
}

TEST(ValueDocument, StaysAsItWasWrittenByHand) {
  EXPECT_EQ(CValueDocument(kText).getText(), kText);
}

TEST(ValueDocument, ChangesNothingButTheValueThatIsSet) {
  CValueDocument document(kText);
  document.setValue({}, "WIDTH", {std::string("a # b")});
  document.setValue({"Window", "Position"}, "y", {20});
  EXPECT_EQ(document.getText(),
            "# Settings\n"
            "width = \"a # b\"   # pixels\n"
            "\n"
            "# Where the window stands\n"
            "[Window.Position]\n"
            "\tx=1\n"
            "  y  =  20\n"
            "\n"
            "[\"a.b\".'c d']\n"
            "z = 3\n");
}

TEST(ValueDocument, AddsValuesBehindTheLastOneOfTheirStore) {
  CValueDocument document(kText);
  document.setValue({}, "height", {480});
  document.setValue({"Window", "Position"}, "z", {3});
  document.setValue({"Window"}, "open", {true});
  EXPECT_EQ(document.getText(),
            "# Settings\n"
            "width = 640   # pixels\n"
            "height = 480\n"
            "\n"
            "# Where the window stands\n"
            "[Window.Position]\n"
            "\tx=1\n"
            "  y  =  2\n"
            "z = 3\n"
            "\n"
            "[\"a.b\".'c d']\n"
            "z = 3\n"
            "\n"
            "[Window]\n"
            "open = true\n");
}

TEST(ValueDocument, PutsTheFirstValueOfTheRootBeforeAllStores) {
  CValueDocument document("# All\n\n# Of x\n[x]\na = 1\n");
  document.setValue({}, "b", {2});
  EXPECT_EQ(document.getText(), "# All\n\nb = 2\n\n# Of x\n[x]\na = 1\n");
  CValueDocument bare("[x]\n");
  bare.setValue({}, "b", {2});
  EXPECT_EQ(bare.getText(), "b = 2\n\n[x]\n");
  const CValueDocument again(bare.getText());
  EXPECT_EQ(intAt(again, {}, "b"), 2);
}

TEST(ValueDocument, RemovesValuesAndLeavesTheirStore) {
  CValueDocument document(kText);
  EXPECT_TRUE(document.removeValue({"Window", "Position"}, "X"));
  EXPECT_FALSE(document.removeValue({"Window", "Position"}, "X"));
  EXPECT_FALSE(document.removeValue({"Door"}, "X"));
  EXPECT_TRUE(document.removeValue({"Window", "Position"}, "y"));
  const CValueDocument again(document.getText());
  EXPECT_TRUE(again.hasStore({"Window", "Position"}));
  EXPECT_THAT(again.getValueNames({"Window", "Position"}), IsEmpty());
}

TEST(ValueDocument, RemovesStoresWithAllThatIsInThem) {
  CValueDocument document(
      "a = 1\n\n[x]\nb = 2\n# of c\nc = 3\n\n[x.y]\nd = 4\n\n# of z\n[z]\ne = 5\n\n[x.y.w]\nf = 6\n");
  EXPECT_TRUE(document.removeStore({"X"}));
  EXPECT_FALSE(document.removeStore({"X"}));
  EXPECT_FALSE(document.removeStore({}));
  EXPECT_EQ(document.getText(), "a = 1\n\n# of z\n[z]\ne = 5\n");
}

TEST(ValueDocument, KeepsTheStoreAboveOneThatIsRemoved) {
  CValueDocument document("[a.b]\nc = 1\n");
  EXPECT_TRUE(document.removeStore({"a", "b"}));
  EXPECT_TRUE(CValueDocument(document.getText()).hasStore({"a"}));
}

TEST(ValueDocument, DoesNotGrowWhenStoresComeAndGo) {
  CValueDocument document("a = 1\n");
  for (int i = 0; i < 50; ++i) {
    document.makeStore({std::to_string(i)});
    if (i > 0) {
      EXPECT_TRUE(document.removeStore({std::to_string(i - 1)}));
    }
  }
  EXPECT_EQ(document.getText(), "a = 1\n\n[49]\n");
}

TEST(ValueDocument, TellsValuesFromStoresOfTheSameName) {
  CValueDocument document;
  document.setValue({}, "a", {1});
  document.setValue({"a"}, "a", {2});
  const CValueDocument again(document.getText());
  EXPECT_EQ(intAt(again, {}, "a"), 1);
  EXPECT_EQ(intAt(again, {"a"}, "a"), 2);
}

TEST(ValueDocument, TakesTheLineEndsThatTheFileHas) {
  CValueDocument document("\xEF\xBB\xBFwidth = 1\r\n[x]\r\ny = 2 # two\r\n");
  document.setValue({"x"}, "y", {3});
  document.setValue({"x"}, "z", {4});
  EXPECT_EQ(document.getText(), "width = 1\r\n[x]\r\ny = 3 # two\r\nz = 4\r\n");
}

TEST(ValueDocument, TellsTheLineOfWhatIsDamaged) {
  EXPECT_EQ(problemOf("a = 1\nb"), "2: '=' is missing");
  EXPECT_EQ(problemOf("\n\n= 1"), "3: a name is missing");
  EXPECT_EQ(problemOf("a = 1 2\n"), "1: there is more on the line than belongs there");
  EXPECT_EQ(problemOf("a = 1\n\nA = 2\n"), "3: A is there twice");
  EXPECT_EQ(problemOf("[a\n"), "1: ']' is missing");
  EXPECT_EQ(problemOf("[a] b\n"), "1: there is more on the line than belongs there");
  EXPECT_EQ(problemOf("[[a]]\n"), "1: a name is missing");
  EXPECT_EQ(problemOf("[]\n"), "1: a name is missing");
  EXPECT_EQ(problemOf("a = \"\n\""), "1: a text has no end");
  EXPECT_EQ(problemOf("a = 1\n# \xFF\n"), "2: this is not UTF-8");
  EXPECT_EQ(problemOf(std::string(100, '\0')), "1: there is a control character that is not escaped");
  EXPECT_EQ(problemOf("a = 1\r\rb = 2"), "1: there is a control character that is not escaped");
}

TEST(ValueDocument, HasLimits) {
  std::string deep = "[a";
  for (std::size_t i = 1; i < CValueDocument::kMostLevels; ++i) deep += ".a";
  EXPECT_EQ(problemOf(deep + "]"), "none");
  EXPECT_EQ(problemOf(deep + ".a]"), "1: stores are nested more than 32 deep");
  std::string many;
  for (std::size_t i = 0; i < CValueDocument::kMostEntries; ++i)
    many.append("k").append(std::to_string(i)).append("=1\n");
  CValueDocument full(many);
  EXPECT_THROW(full.setValue({}, "one more", {1}), CDocumentLimit);
  EXPECT_EQ(problemOf(many + "z=1\n"), "100001: there are more than 100000 values and stores");
}

/// Texts with all that could lead a reader astray.
std::string randomText(std::mt19937& random) {
  static const std::vector<std::string> kPieces = {"a",
                                                   "Z",
                                                   "9",
                                                   "_",
                                                   "-",
                                                   ".",
                                                   " ",
                                                   "\t",
                                                   "\n",
                                                   "\r",
                                                   "\"",
                                                   "'",
                                                   "\\",
                                                   "#",
                                                   "=",
                                                   "[",
                                                   "]",
                                                   "{",
                                                   "}",
                                                   "\x7F",
                                                   std::string(1, '\0'),
                                                   "\x01",
                                                   "\xC3\xA4",
                                                   "\xE2\x82\xAC",
                                                   "\xF0\x9F\x98\x80",
                                                   "\xED\xA0\x80",
                                                   "\xED\xBF\xBF",
                                                   "\xEF\xBB\xBF",
                                                   "\xE2\x80\xA8",
                                                   "\xC2\x85",
                                                   "\\u0041",
                                                   "\"\"\""};
  std::string text;
  for (std::size_t length = random() % 12; length > 0; --length) text += kPieces[random() % kPieces.size()];
  return text;
}

TEST(ValueDocument, IsReadBackAsItWasWritten) {
  std::mt19937 random(11);
  for (int round = 0; round < 100; ++round) {
    CValueDocument document;
    // Names differ by their number, whatever else is in them.
    std::map<std::pair<CStorePath, std::string>, std::string> peer;
    std::vector<CStorePath> paths = {{}};
    for (int i = 0; i < 4; ++i) {
      CStorePath path = paths[random() % paths.size()];
      path.push_back(std::to_string(i) + randomText(random));
      paths.push_back(path);
    }
    for (int step = 0; step < 60; ++step) {
      const CStorePath& path = paths[random() % paths.size()];
      const std::string name = std::to_string(random() % 5);
      if (random() % 4 == 0) {
        ASSERT_EQ(document.removeValue(path, name), peer.erase({path, name}) == 1);
      } else {
        const std::string text = randomText(random);
        document.setValue(path, name, {text});
        peer[{path, name}] = text;
      }
      if (step % 7 == 0) {
        const std::string text = document.getText();
        ASSERT_EQ(problemOf(text), "none") << text;
        document = CValueDocument(text);
        ASSERT_EQ(document.getText(), text);
      }
    }
    const CValueDocument again(document.getText());
    std::size_t count = 0;
    for (const CStorePath& path : paths) count += again.getValueNames(path).size();
    ASSERT_EQ(count, peer.size());
    for (const auto& [place, text] : peer) {
      const CStoredValue* value = again.findValue(place.first, place.second);
      ASSERT_TRUE(value && value->asText());
      ASSERT_EQ(*value->asText(), text);
    }
  }
}

TEST(ValueDocument, ReadsAnyBytesWithoutHarm) {
  std::mt19937 random(12);
  for (int round = 0; round < 20000; ++round) {
    std::string text = round % 2 == 0 ? kText : "";
    for (int i = 0; i < 6; ++i) {
      const std::string piece = randomText(random);
      text.insert(random() % (text.size() + 1), piece);
    }
    try {
      CValueDocument document(text);
      document.setValue({"Window"}, "x", {1});
      ASSERT_EQ(intAt(CValueDocument(document.getText()), {"Window"}, "x"), 1);
    } catch (const CDocumentError&) {
    }
  }
}

}  // namespace
}  // namespace orlo::posix
