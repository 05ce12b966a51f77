#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "tests/support/DecimalComma.h"

#include <gtest/gtest.h>

#include <limits>
#include <locale>
#include <memory>

namespace graphics::xml {
namespace {

class XmlValues : public testing::Test {
protected:
  wxString Property(const wxString& name) const { return node_.GetAttribute(name, "(missing)"); }

  wxXmlNode node_{wxXML_ELEMENT_NODE, "node"};
};

TEST_F(XmlValues, LeaveTheTargetAloneWhereThePropertyIsMissing) {
  bool flag = true;
  std::int32_t number = 7;
  std::int64_t large = 8;
  double real = 1.5;
  wxString text = "as it was";
  EXPECT_FALSE(ReadBool(node_, "value", flag));
  EXPECT_FALSE(ReadInt(node_, "value", number));
  EXPECT_FALSE(ReadInt64(node_, "value", large));
  EXPECT_FALSE(ReadDouble(node_, "value", real));
  EXPECT_FALSE(ReadText(node_, "value", text));
  EXPECT_TRUE(flag);
  EXPECT_EQ(number, 7);
  EXPECT_EQ(large, 8);
  EXPECT_EQ(real, 1.5);
  EXPECT_EQ(text, "as it was");
}

TEST_F(XmlValues, AreFoundWithoutRegardToCase) {
  node_.AddAttribute("Value", "7");
  std::int32_t number = 0;
  EXPECT_TRUE(ReadInt(node_, "vALUE", number));
  EXPECT_EQ(number, 7);
}

TEST_F(XmlValues, ReplaceAPropertyThatIsThereInWhateverCase) {
  node_.AddAttribute("VALUE", "7");
  WriteInt(node_, "value", 8);
  WriteInt(node_, "Value", 9);
  EXPECT_EQ(Property("VALUE"), "9");
  EXPECT_EQ(node_.GetAttributes()->GetNext(), nullptr);
}

TEST_F(XmlValues, ReadTrueOnlyFromTheWordInAnyCase) {
  for (const char* text : {"true", "TRUE", "True"}) {
    SetProperty(node_, "value", text);
    bool flag = false;
    EXPECT_TRUE(ReadBool(node_, "value", flag));
    EXPECT_TRUE(flag) << text;
  }
  for (const char* text : {"1", "yes", "", "false", " true"}) {
    SetProperty(node_, "value", text);
    bool flag = true;
    EXPECT_TRUE(ReadBool(node_, "value", flag));
    EXPECT_FALSE(flag) << text;
  }
}

TEST_F(XmlValues, WriteBooleansAsWords) {
  WriteBool(node_, "yes", true);
  WriteBool(node_, "no", false);
  EXPECT_EQ(Property("yes"), "true");
  EXPECT_EQ(Property("no"), "false");
}

TEST_F(XmlValues, LeaveTheTargetAloneForAnIntegerThatDoesNotParse) {
  for (const char* text : {"", "abc", "12x", "1.5", "0x10", "2147483648", "-2147483649", "99999999999999999999"}) {
    SetProperty(node_, "value", text);
    std::int32_t number = 7;
    EXPECT_FALSE(ReadInt(node_, "value", number)) << text;
    EXPECT_EQ(number, 7) << text;
  }
}

TEST_F(XmlValues, ReadIntegersInBase10UpToTheirRange) {
  SetProperty(node_, "value", "-2147483648");
  std::int32_t number = 0;
  EXPECT_TRUE(ReadInt(node_, "value", number));
  EXPECT_EQ(number, std::numeric_limits<std::int32_t>::min());
  SetProperty(node_, "value", "010");
  EXPECT_TRUE(ReadInt(node_, "value", number));
  EXPECT_EQ(number, 10);
  WriteInt64(node_, "value", std::numeric_limits<std::int64_t>::max());
  std::int64_t large = 0;
  EXPECT_TRUE(ReadInt64(node_, "value", large));
  EXPECT_EQ(large, std::numeric_limits<std::int64_t>::max());
}

TEST_F(XmlValues, KeepSixDigitsOfADouble) {
  WriteDouble(node_, "value", 1234567.5);
  EXPECT_EQ(Property("value"), "1.23457e+06");
  double real = 0;
  EXPECT_TRUE(ReadDouble(node_, "value", real));
  EXPECT_EQ(real, 1.23457e+06);
}

TEST_F(XmlValues, WriteDoublesAsShortAsTheyAre) {
  WriteDouble(node_, "value", 12.5);
  EXPECT_EQ(Property("value"), "12.5");
  WriteDouble(node_, "value", 100);
  EXPECT_EQ(Property("value"), "100");
  WriteDouble(node_, "value", -0.00001);
  EXPECT_EQ(Property("value"), "-1e-05");
}

TEST_F(XmlValues, ReadADecimalCommaAsAPoint) {
  SetProperty(node_, "value", "2,25");
  double real = 0;
  EXPECT_TRUE(ReadDouble(node_, "value", real));
  EXPECT_EQ(real, 2.25);
}

TEST_F(XmlValues, LeaveTheTargetAloneForAnEmptyDouble) {
  SetProperty(node_, "value", "");
  double real = 1.5;
  EXPECT_FALSE(ReadDouble(node_, "value", real));
  EXPECT_EQ(real, 1.5);
}

TEST_F(XmlValues, GiveZeroForADoubleThatDoesNotParse) {
  SetProperty(node_, "value", "wide");
  double real = 1.5;
  EXPECT_FALSE(ReadDouble(node_, "value", real));
  EXPECT_EQ(real, 0);
}

TEST_F(XmlValues, BringADoubleIntoItsBounds) {
  double real = 0;
  SetProperty(node_, "value", "5");
  EXPECT_TRUE(ReadDouble(node_, "value", real, 6, 8));
  EXPECT_EQ(real, 6);
  EXPECT_TRUE(ReadDouble(node_, "value", real, 1, 3));
  EXPECT_EQ(real, 3);
  EXPECT_TRUE(ReadDouble(node_, "value", real, -1, 3));
  EXPECT_EQ(real, 3);
  SetProperty(node_, "value", "-5");
  EXPECT_TRUE(ReadDouble(node_, "value", real, -1, -1));
  EXPECT_EQ(real, -5);
  EXPECT_TRUE(ReadDouble(node_, "value", real, 0, -1));
  EXPECT_EQ(real, 0);
}

TEST_F(XmlValues, DoNotDependOnTheLocaleOfTheProcess) {
  const CDecimalComma comma;
  ASSERT_TRUE(comma.IsOk());
  WriteDouble(node_, "value", 12.5);
  EXPECT_EQ(Property("value"), "12.5");
  double real = 0;
  EXPECT_TRUE(ReadDouble(node_, "value", real));
  EXPECT_EQ(real, 12.5);
}

TEST_F(XmlValues, DoNotDependOnTheStreamsLocaleEither) {
  struct CComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale former = std::locale::global(std::locale(std::locale(), new CComma));
  WriteDouble(node_, "value", 123456.0);
  WriteDouble(node_, "fraction", 0.25);
  WriteInt(node_, "integer", 1234567);
  std::locale::global(former);
  EXPECT_EQ(Property("value"), "123456");
  EXPECT_EQ(Property("fraction"), "0.25");
  EXPECT_EQ(Property("integer"), "1234567");
}

TEST_F(XmlValues, KeepAFileNameInTwoProperties) {
  WriteFileName(node_, "file", wxFileName("/menus/snow.white.png"));
  const wxXmlNode* child = FindChild(node_, "FILE");
  ASSERT_NE(child, nullptr);
  EXPECT_EQ(child->GetAttribute("path"), "/menus");
  EXPECT_EQ(child->GetAttribute("name"), "snow.white.png");
  wxFileName file;
  EXPECT_TRUE(ReadFileName(node_, "file", file));
  EXPECT_EQ(file.GetFullPath(), "/menus/snow.white.png");
  wxFileName other("kept.txt");
  EXPECT_FALSE(ReadFileName(node_, "missing", other));
  EXPECT_EQ(other.GetFullName(), "kept.txt");
}

TEST(XmlNode, FindsTheFirstChildElementOfAName) {
  wxXmlNode parent(wxXML_ELEMENT_NODE, "parent");
  parent.AddChild(new wxXmlNode(wxXML_TEXT_NODE, "wanted", "text"));
  wxXmlNode& first = AppendChild(parent, "Wanted");
  AppendChild(parent, "wanted");
  EXPECT_EQ(FindChild(parent, "WANTED"), &first);
  EXPECT_EQ(FindChild(parent, "other"), nullptr);
}

TEST(XmlNode, AppendsBehindWhatIsThere) {
  wxXmlNode parent(wxXML_ELEMENT_NODE, "parent");
  AppendChild(parent, "a");
  CChildAppender children(parent);
  children.Append("b");
  children.Append("c");
  AppendChild(parent, "d");
  wxString order;
  for (const wxXmlNode* child = parent.GetChildren(); child; child = child->GetNext()) {
    order += child->GetName();
    EXPECT_EQ(child->GetParent(), &parent);
  }
  EXPECT_EQ(order, "abcd");
}

}  // namespace
}  // namespace graphics::xml
