#include "foundation/wxutil/WXError.h"
#include "graphics/elements/BuiltInFreeForms.h"
#include "graphics/elements/Elements.h"
#include "graphics/elements/GraphicShape.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>
#include <wx/regex.h>

namespace graphics::test {

namespace {

class ShapeXml : public testing::Test {
protected:
  ShapeXml() { RegisterElements(); }

  static orlo::P<CGraphicDocument> ReadPage(const wxString& text) {
    const auto page = orlo::makeObject<CGraphicDocument>();
    const auto store = orlo::makeObject<CBase64Resources>();
    page->ReadFromXml(*ParseXml(text)->GetRoot(), *store);
    return page;
  }

  CGraphicShape shape_;

private:
  CToolkitLock lock_;
};

constexpr char kPlainShape[] =
    R"(<element coloured="true" rotation="0" visible="true" shape="rectangle" corner-radius="5">)"
    R"(<center x="0" y="0"/><size width="0" height="0"/>)"
    R"(<gradient ok="false"><start red="0" green="0" blue="0" alpha="0"/>)"
    R"(<end red="0" green="0" blue="0" alpha="0"/></gradient>)"
    R"(<brush style="106"><color red="0" green="0" blue="0" alpha="255"/></brush>)"
    R"(<pen style="100" width="1"><color red="0" green="0" blue="0" alpha="255"/></pen></element>)";

wxString WithoutNumbers(wxString text) {
  wxRegEx(" unique=\"[0-9]+\"").ReplaceAll(&text, wxString());
  return text;
}

}  // namespace

TEST_F(ShapeXml, HasEveryPropertyAtItsDefault) {
  EXPECT_EQ(XmlOf(shape_), kPlainShape);
}

TEST_F(ShapeXml, IsTheSameAfterReadingAndWriting) {
  EXPECT_EQ(XmlOf(*Reloaded(shape_)), XmlOf(shape_));
  Place(shape_, {1.5, 2.5, 30, 40});
  shape_.SetName("mine");
  shape_.SetRotation(45);
  shape_.SetMirror(1, true);
  shape_.SetColoured(false);
  shape_.SetPen(wxPen(wxColour(1, 2, 3, 4), 5, wxPENSTYLE_DOT));
  shape_.SetBrush(wxBrush(wxColour(6, 7, 8, 9), wxBRUSHSTYLE_CROSS_HATCH));
  shape_.SetGradient({wxColour(10, 11, 12), wxColour(13, 14, 15, 16), true});
  shape_.SetCornerRadius(2.25);
  shape_.SetLineWidth(3);
  for (const std::int32_t type : {0, 1, 2, 3}) {
    shape_.SetShapeType(type);
    const auto read = Reloaded(shape_);
    EXPECT_EQ(XmlOf(*read), XmlOf(shape_));
    EXPECT_EQ(read->GetShapeType(), type);
    EXPECT_EQ(read->GetPen(), shape_.GetPen());
    EXPECT_EQ(read->GetBrush(), shape_.GetBrush());
    EXPECT_EQ(read->GetGradient().end, wxColour(13, 14, 15, 16));
    EXPECT_EQ(read->GetCornerRadius(), 2.25);
    // The line width is not stored.
    EXPECT_EQ(read->GetLineWidth(), 0.0);
  }
}

TEST_F(ShapeXml, KeepsFreeFormsWithTheirOutline) {
  for (const auto& form : {orlo::P<CFreeForm>(orlo::makeObject<CFreeFormStar>()),
                           orlo::P<CFreeForm>(orlo::makeObject<CFreeFormParallelogram>())}) {
    shape_.SetFreeForm(form);
    const auto read = Reloaded(shape_);
    ASSERT_TRUE(read->GetFreeForm());
    EXPECT_EQ(read->GetFreeForm()->GetName(), form->GetName());
    EXPECT_EQ(read->GetFreeForm()->GetDisplayName(), form->GetDisplayName());
    EXPECT_EQ(read->GetFreeForm()->GetOutline().size(), form->GetOutline().size());
    // Numbers of shared elements are addresses.
    EXPECT_EQ(WithoutNumbers(XmlOf(*read)), WithoutNumbers(XmlOf(shape_)));
  }
}

TEST_F(ShapeXml, ReadsFreeFormsOffTheOriginAndCentresThem) {
  ReadXml(shape_,
          "<shape shape='FREE-FORM'><free-form name='freeform.own'><graphic-document>"
          "<point><center x='10' y='10'/></point><point><center x='20' y='40'/></point>"
          "</graphic-document></free-form></shape>");
  EXPECT_EQ(shape_.GetShapeType(), ShapeType::kFreeForm);
  ASSERT_TRUE(shape_.GetFreeForm());
  EXPECT_EQ(shape_.GetFreeForm()->GetDisplayName(), "freeform.own");
  EXPECT_EQ(shape_.GetFreeForm()->GetOutline(), (std::vector<CDoublePoint>{{-5, -15}, {5, 15}}));
}

TEST_F(ShapeXml, FreeFormsLeaveThePointsThatThePageHasAsWellWhereTheyAre) {
  const auto page = ReadPage(
      "<page><point unique='5'><center x='10' y='20'/></point>"
      "<shape><free-form name='freeform.own'><graphic-document>"
      "<point unique='5'/><point><center x='20' y='40'/></point></graphic-document></free-form></shape>"
      "<shape><free-form name='freeform.own'><graphic-document>"
      "<point unique='5'/><point><center x='0' y='0'/></point></graphic-document></free-form></shape></page>");
  ASSERT_EQ(page->GetCount(), 3U);
  EXPECT_EQ(page->GetElement(0)->GetCenter(), (CDoublePoint{10, 20}));
  const auto outlineOf = [&](std::size_t index) {
    return orlo::cast<CGraphicShape>(page->GetElement(index))->GetFreeForm()->GetOutline();
  };
  EXPECT_EQ(outlineOf(1), (std::vector<CDoublePoint>{{-5, -10}, {5, 10}}));
  EXPECT_EQ(outlineOf(2), (std::vector<CDoublePoint>{{5, 10}, {-5, -10}}));
}

TEST_F(ShapeXml, FreeFormsWithinFreeFormsAreAnError) {
  EXPECT_THROW(ReadXml(shape_,
                       "<shape><free-form><graphic-document><shape><free-form/></shape></graphic-document>"
                       "</free-form></shape>"),
               wxutil::CWXError);
  ReadXml(shape_, "<shape><free-form><graphic-document><shape/></graphic-document></free-form></shape>");
  EXPECT_EQ(shape_.GetFreeForm()->GetDocument()->GetCount(), 1U);
}

TEST_F(ShapeXml, FreeFormsKeepThePageBoxOfTheirDocument) {
  ReadXml(shape_,
          "<shape><free-form><graphic-document><content-box x='1' y='2' width='3' height='4'/>"
          "</graphic-document></free-form></shape>");
  for (const auto& form : {shape_.GetFreeForm(), shape_.GetFreeForm()->Clone()})
    EXPECT_EQ(form->GetDocument()->GetPageRect(), (CDoubleRect{1, 2, 3, 4}));
}

TEST_F(ShapeXml, AFreeFormWithoutADocumentHasNoOutline) {
  ReadXml(shape_, "<shape><free-form/></shape>");
  ASSERT_TRUE(shape_.GetFreeForm());
  EXPECT_TRUE(shape_.GetFreeForm()->GetOutline().empty());
}

TEST_F(ShapeXml, WhatIsMissingOrNoValueStaysAsItIs) {
  shape_.SetShapeType(ShapeType::kEllipse);
  shape_.SetCornerRadius(7);
  const wxString before = XmlOf(shape_);
  ReadXml(shape_, "<shape/>");
  EXPECT_EQ(XmlOf(shape_), before);
  ReadXml(shape_, "<shape corner-radius=''><brush style='4711'/><pen style='-1' width='x'/><something/></shape>");
  EXPECT_EQ(XmlOf(shape_), before);
}

TEST_F(ShapeXml, AnUnknownShapeIsAnError) {
  EXPECT_THROW(ReadXml(shape_, "<shape shape='hexagon'/>"), wxutil::CWXError);
}

}  // namespace graphics::test
