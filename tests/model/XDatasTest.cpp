#include "foundation/Cast.h"
#include "graphics/model/Base64Resources.h"
#include "graphics/model/XDatas.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

namespace graphics {
namespace {

wxString Write(const CXDatas& datas) {
  CBase64Resources store;
  wxXmlNode node(wxXML_ELEMENT_NODE, "xdata");
  datas.WriteToXml(node, store);
  return ToText(node);
}

void Read(CXDatas& datas, const wxString& text) {
  CBase64Resources store;
  datas.ReadFromXml(*ParseXml(text)->GetRoot(), store);
}

TEST(XDatas, AreWrittenInTheOrderOfTheirNames) {
  CXDatas datas;
  datas.Set("b", orlo::makeObject<CIntXData>(-5));
  datas.Set("a", orlo::makeObject<CStringXData>("text"));
  datas.Set("Z", orlo::makeObject<CRectXData>(CDoubleRect{1, 2, 3, 4.5}));
  EXPECT_EQ(Write(datas),
            "<xdata><Z type=\"rect\"><value x=\"1\" y=\"2\" width=\"3\" height=\"4.5\"/></Z>"
            "<a type=\"string\" value=\"text\"/><b type=\"int\" value=\"-5\"/></xdata>");
}

TEST(XDatas, ComeBackAsTheyWereWritten) {
  CXDatas datas;
  datas.Set("a", orlo::makeObject<CStringXData>("text"));
  datas.Set("b", orlo::makeObject<CIntXData>(-5));
  datas.Set("c", orlo::makeObject<CRectXData>(CDoubleRect{1, 2, 3, 4.5}));
  CXDatas read;
  Read(read, Write(datas));
  EXPECT_EQ(orlo::cast<CStringXData>(read.Get("a"))->value, "text");
  EXPECT_EQ(orlo::cast<CIntXData>(read.Get("b"))->value, -5);
  EXPECT_EQ(orlo::cast<CRectXData>(read.Get("c"))->value, (CDoubleRect{1, 2, 3, 4.5}));
}

TEST(XDatas, KeepAnEntryWithoutAnObjectInMemoryOnly) {
  CXDatas datas;
  EXPECT_TRUE(datas.IsEmpty());
  datas.Set("nothing", nullptr);
  EXPECT_TRUE(datas.IsEmpty());
  EXPECT_EQ(Write(datas), "<xdata/>");
  datas.Set("something", orlo::makeObject<CIntXData>());
  EXPECT_FALSE(datas.IsEmpty());
  EXPECT_EQ(datas.Get("nothing"), nullptr);
}

TEST(XDatas, AreAddedToThoseThatAreThere) {
  CXDatas datas;
  datas.Set("old", orlo::makeObject<CIntXData>(1));
  datas.Set("replaced", orlo::makeObject<CIntXData>(2));
  Read(datas, "<xdata><replaced type='string' value='new'/></xdata>");
  EXPECT_EQ(orlo::cast<CIntXData>(datas.Get("old"))->value, 1);
  EXPECT_EQ(orlo::cast<CStringXData>(datas.Get("replaced"))->value, "new");
}

TEST(XDatas, SkipTypesThatNobodyKnows) {
  CXDatas datas;
  Read(datas, "<xdata><a type='String' value='x'/><b value='x'/><c type='float' value='1'/></xdata>");
  EXPECT_TRUE(datas.IsEmpty());
}

TEST(XDatas, AreClonedValueByValue) {
  CXDatas datas;
  datas.Set("number", orlo::makeObject<CIntXData>(1));
  datas.Set("nothing", nullptr);
  const orlo::P<CXDatas> copy = datas.Clone();
  orlo::cast<CIntXData>(datas.Get("number"))->value = 2;
  EXPECT_EQ(orlo::cast<CIntXData>(copy->Get("number"))->value, 1);
}

TEST(XData, IsMadeByItsTypeNameWithCase) {
  EXPECT_EQ(CXData::Create("string")->GetTypeName(), "string");
  EXPECT_EQ(CXData::Create("rect")->GetTypeName(), "rect");
  EXPECT_EQ(CXData::Create("int")->GetTypeName(), "int");
  EXPECT_EQ(CXData::Create("Int"), nullptr);
  EXPECT_EQ(CXData::Create(""), nullptr);
}

TEST(XData, IsEmptyByItsOwnRule) {
  EXPECT_TRUE(CStringXData().IsEmpty());
  EXPECT_FALSE(CStringXData("x").IsEmpty());
  EXPECT_TRUE(CRectXData(CDoubleRect{0, 1, 2, 3}).IsEmpty());
  EXPECT_TRUE(CRectXData(CDoubleRect{1, 1, 2, 0}).IsEmpty());
  EXPECT_FALSE(CRectXData(CDoubleRect{1, 1, 2, 3}).IsEmpty());
  EXPECT_FALSE(CIntXData(0).IsEmpty());
}

}  // namespace
}  // namespace graphics
