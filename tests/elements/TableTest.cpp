#include "foundation/Cast.h"
#include "foundation/wxutil/WXError.h"
#include "graphics/art/SkinManager.h"
#include "graphics/elements/GraphicTable.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>
#include <wx/richtext/richtextbuffer.h>

#include <functional>
#include <limits>
#include <utility>
#include <vector>

namespace graphics::test {

namespace {

constexpr double kPixelsPerUnit = 96 / 25.4;

wxRichTextBuffer TextOf(const wxString& text) {
  wxRichTextBuffer buffer;
  buffer.AddParagraph(text);
  return buffer;
}

class Table : public testing::Test {
protected:
  Table() : page_(300, 200) { page_.context.matrix = CMatrix::Scale(kPixelsPerUnit, kPixelsPerUnit); }

  /// Placed with its top left corner at (5, 5).
  void Make(const std::vector<double>& rows, const std::vector<double>& cols, double height) {
    table_.ClearContent();
    for (const double row : rows) {
      table_.GetRows().push_back(orlo::makeObject<CTableRow>(&table_));
      table_.GetRows().back()->height = row;
      auto& cells = table_.GetCells().emplace_back();
      for (std::size_t i = 0; i < cols.size(); ++i) cells.push_back(orlo::makeObject<CTableCell>(&table_));
    }
    for (const double col : cols) {
      table_.GetCols().push_back(orlo::makeObject<CTableCol>(&table_));
      table_.GetCols().back()->width = col;
    }
    table_.SetSize({table_.GetSize().width, height});
    table_.SetTopLeft(5, 5);
  }
  void SetText(std::size_t row, std::size_t col, const wxString& text) {
    const wxRichTextBuffer buffer = TextOf(text);
    table_.FindCell(row, col)->SetBuffer(&buffer);
  }
  void Paint() {
    table_.Paint(page_.context);
    page_.dc.Flush();
  }
  static int At(double units) { return static_cast<int>(units * kPixelsPerUnit); }
  /// Where letters, which are black, have been drawn.
  wxRect Letters() const {
    wxRect bounds;
    for (int y = 0; y < 200; ++y)
      for (int x = 0; x < 300; ++x)
        if (const CPixel pixel = page_.At(x, y); pixel.alpha > 128 && pixel.red < 64) bounds.Union(wxRect(x, y, 1, 1));
    return bounds;
  }

  CPage page_;
  CGraphicTable table_;
};

wxString MessageOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const wxutil::CWXError& error) {
    return error.getWxMessage();
  }
  return "no error";
}

}  // namespace

TEST_F(Table, WithoutRowsPaintsNothing) {
  Place(table_, {5, 5, 40, 20});
  EXPECT_TRUE(table_.IsContentEmpty());
  Paint();
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(Table, WithoutRowsInvitesAnAuthor) {
  Make({}, {40}, 20);
  page_.context.viewMode = 1;
  Paint();
  const wxRect bounds = page_.Ink().bounds;
  EXPECT_EQ(bounds.GetTopLeft(), wxPoint(At(5), At(5)));
  EXPECT_EQ(page_.At(At(5), At(10)), kBlack);
}

TEST_F(Table, NoRowIsLowerThanFourUnits) {
  Make({1, 3.9, 10}, {20}, 30);
  Paint();
  EXPECT_EQ(table_.GetRows()[0]->actualHeight, 4.0);
  EXPECT_EQ(table_.GetRows()[1]->actualHeight, 4.0);
  EXPECT_EQ(table_.GetRows()[2]->actualHeight, 10.0);
  EXPECT_EQ(table_.GetRows()[0]->height, 1.0);
  EXPECT_EQ(table_.GetContentSize(), (CDoublePoint{20, 18}));
}

TEST_F(Table, ColumnsAreAtTheirRightEdgeAndRowsAtTheirLowerOne) {
  Make({5, 6}, {20, 30}, 11);
  Paint();
  EXPECT_EQ(table_.GetCols()[0]->position, (CDoublePoint{20, 0}));
  EXPECT_EQ(table_.GetCols()[1]->position, (CDoublePoint{50, 0}));
  EXPECT_EQ(table_.GetRows()[0]->position, (CDoublePoint{50, 5}));
  EXPECT_EQ(table_.GetRows()[1]->position, (CDoublePoint{50, 11}));
  table_.FindCell(1, 1)->margin = 2;
  table_.SetDirty();
  Paint();
  EXPECT_EQ(table_.FindCell(1, 1)->rect, (CDoubleRect{20, 5, 30, 6}));
  EXPECT_EQ(table_.FindCell(1, 1)->textRect, (CDoubleRect{22, 7, 26, 2}));
}

TEST_F(Table, RowsGrowWithTheirTextsAndTheElementDoesNot) {
  Make({5, 5}, {30, 30}, 10);
  SetText(0, 1, "a text that breaks into several lines in so narrow a column");
  table_.FindCell(0, 1)->margin = 1;
  Paint();
  const double grown = table_.GetRows()[0]->actualHeight;
  EXPECT_GT(grown, 10);
  EXPECT_EQ(grown, table_.FindCell(0, 1)->GetBuffer()->GetCachedSize().y / kPixelsPerUnit + 2);
  EXPECT_EQ(table_.GetContentSize().y, grown + 5);
  EXPECT_EQ(table_.GetSize(), (CDoubleSize{60, 10}));
}

TEST_F(Table, CutsWhatReachesOutOfTheFrame) {
  Make({5, 5}, {30, 30}, 10);
  table_.SetTopLeft(5, 20);
  SetText(0, 1, "a text that breaks into several lines in so narrow a column");
  Paint();
  EXPECT_GE(page_.Ink().bounds.y, At(20) - 1);
  EXPECT_LE(page_.Ink().bounds.GetBottom(), At(31) + 1);
  CPage all(300, 200);
  all.context.matrix = page_.context.matrix;
  all.context.viewMode = 5;
  table_.Paint(all.context);
  EXPECT_LT(all.Ink().bounds.y, At(20) - 5);
  EXPECT_GT(all.Ink().bounds.GetBottom(), At(31) + 5);
}

TEST_F(Table, HiddenColumnsTakeNoRoom) {
  Make({10}, {20, 30, 25}, 10);
  table_.GetCols()[1]->visible = false;
  SetText(0, 1, "a text that would make the row grow if it were seen at all");
  Paint();
  EXPECT_EQ(table_.GetSize(), (CDoubleSize{45, 10}));
  EXPECT_EQ(table_.GetContentSize(), (CDoublePoint{45, 10}));
  EXPECT_EQ(table_.FindCell(0, 2)->rect, (CDoubleRect{20, 0, 25, 10}));
  EXPECT_EQ(table_.GetCols()[1]->width, 30);
  EXPECT_TRUE(Letters().IsEmpty());
}

TEST_F(Table, ANewWidthIsSharedOutAmongAllColumns) {
  Make({10}, {20, 30, 20}, 10);
  table_.GetCols()[1]->visible = false;
  Paint();
  table_.SetSize({60, 12});
  EXPECT_EQ(table_.GetCols()[0]->width, 30);
  EXPECT_EQ(table_.GetCols()[1]->width, 45);
  EXPECT_EQ(table_.GetCols()[2]->width, 30);
  EXPECT_EQ(table_.GetSize(), (CDoubleSize{60, 12}));
  EXPECT_TRUE(table_.IsLayoutDirty());
}

TEST_F(Table, ANewHeightAloneIsOnlyStored) {
  Make({10}, {20, 30}, 10);
  Paint();
  table_.SetSize({50.00005, 20});
  EXPECT_FALSE(table_.IsLayoutDirty());
  EXPECT_EQ(table_.GetSize(), (CDoubleSize{50, 20}));
}

TEST_F(Table, WithoutAVisibleWidthColumnsKeepTheirs) {
  Make({10}, {20, 0}, 10);
  table_.GetCols()[0]->visible = false;
  table_.SetSize({60, 12});
  EXPECT_EQ(table_.GetCols()[0]->width, 20);
  EXPECT_EQ(table_.GetSize(), (CDoubleSize{0, 12}));
}

TEST_F(Table, TextsStandAtTheTopTheMiddleOrTheBottom) {
  std::vector<wxRect> letters;
  for (const std::int32_t align : {VerticalAlign::kTop, VerticalAlign::kCenter, VerticalAlign::kBottom}) {
    CPage page(300, 200);
    page.context.matrix = page_.context.matrix;
    Make({40}, {40}, 40);
    SetText(0, 0, "text");
    table_.FindCell(0, 0)->margin = 2;
    table_.FindCell(0, 0)->verticalAlign = align;
    table_.Paint(page.context);
    std::swap(page_.bitmap, page.bitmap);
    letters.push_back(Letters());
    std::swap(page_.bitmap, page.bitmap);
  }
  EXPECT_EQ(letters[0].height, letters[2].height);
  EXPECT_LT(letters[0].y, At(5 + 2) + 8);
  EXPECT_NEAR(letters[1].y - letters[0].y, letters[2].y - letters[1].y, 1);
  const double room =
      table_.FindCell(0, 0)->textRect.height * kPixelsPerUnit - table_.FindCell(0, 0)->GetBuffer()->GetCachedSize().y;
  EXPECT_NEAR(letters[2].y - letters[0].y, room, 1.5);
  EXPECT_LT(letters[2].GetBottom(), At(5 + 40 - 2));
}

TEST_F(Table, TextsTurnWithTheTable) {
  Make({20}, {40}, 20);
  SetText(0, 0, "a wide line");
  Paint();
  const wxRect upright = Letters();
  EXPECT_GT(upright.width, 2 * upright.height);
  CPage turned(300, 200);
  turned.context.matrix = page_.context.matrix;
  table_.SetRotation(90);
  table_.Paint(turned.context);
  std::swap(page_.bitmap, turned.bitmap);
  EXPECT_GT(Letters().height, 2 * Letters().width);
  std::swap(page_.bitmap, turned.bitmap);
}

TEST_F(Table, HasADottedGridAndShowsAllOfItInItsOwnView) {
  Make({10, 10}, {20, 20}, 20);
  Paint();
  const auto dots = [&](int y) {
    int count = 0;
    for (int x = At(5); x < At(45); ++x) count += page_.At(x, y).alpha > 100;
    return count;
  };
  for (const double y : {5, 15, 25}) {
    EXPECT_GT(dots(At(y)), At(40) / 4) << y;
    EXPECT_LT(dots(At(y)), At(40) * 3 / 4) << y;
  }
  EXPECT_LE(dots(At(10)), 4);
}

TEST_F(Table, LinesOfRowsBeyondTheFrameAreLeftOut) {
  // Five rows in a frame of three: one and a line's end on either side are out.
  Make({10, 10, 10, 10, 10}, {20}, 25);
  table_.SetTopLeft(5, 15);
  Paint();
  EXPECT_GE(page_.Ink().bounds.y, At(15) - 1);
  EXPECT_EQ(page_.At(At(10), At(2.5)), kClear);
}

TEST_F(Table, SelectedCellsStandOut) {
  Make({10}, {20, 20}, 10);
  table_.FindCell(0, 1)->selected = true;
  Paint();
  EXPECT_EQ(page_.At(At(35), At(10)), (CPixel{51, 153, 255, 255}));
  EXPECT_EQ(page_.At(At(15), At(10)), kClear);
}

TEST_F(Table, InvitesToEditIfAllowed) {
  EXPECT_EQ(table_.GetText(), "");
  table_.SetFlags(1U << 5);
  EXPECT_EQ(table_.GetText(), "Double click to edit table");
  Make({10}, {20}, 10);
  EXPECT_EQ(table_.GetText(), "Double click to edit table");
  table_.SetText("mine");
  EXPECT_EQ(table_.GetText(), "mine");
}

TEST_F(Table, ClonesHaveObjectsOfTheirOwn) {
  Make({10, 11}, {20, 30}, 21);
  SetText(1, 0, "text");
  table_.FindCell(1, 0)->margin = 3;
  table_.GetCols()[1]->name = "second";
  table_.GetCols()[1]->hiddenByTheme = true;
  table_.GetRows()[1]->contentId = "row";
  const auto cloned = table_.Clone();
  auto* const clone = orlo::cast<CGraphicTable>(cloned);
  EXPECT_EQ(XmlOf(*clone), XmlOf(table_));
  EXPECT_EQ(clone->GetRows()[0]->table, clone);
  EXPECT_NE(clone->FindCell(1, 0)->GetBuffer(), table_.FindCell(1, 0)->GetBuffer());
  clone->SetSize({100, 21});
  EXPECT_EQ(table_.GetSize().width, 50);
  EXPECT_EQ(clone->GetCols()[1]->width, 60);
  clone->Assign(*clone);
  EXPECT_EQ(clone->GetRows().size(), 2U);
}

TEST_F(Table, ObjectsMakeTheTableDirtyAndOutliveIt) {
  orlo::P<CTableRow> row;
  orlo::P<CTableCol> col;
  {
    const auto table = orlo::makeObject<CGraphicTable>();
    row = orlo::makeObject<CTableRow>(table.get());
    col = orlo::makeObject<CTableCol>(table.get());
    table->GetRows().push_back(row);
    table->GetCols().push_back(col);
    table->GetCells().resize(1);
    table->Paint(page_.context);
    EXPECT_FALSE(table->IsLayoutDirty());
    CTableRow other;
    other.height = 12;
    other.contentId = "id";
    row->Assign(other);
    EXPECT_TRUE(table->IsLayoutDirty());
    table->Paint(page_.context);
    col->Assign(CTableCol());
    EXPECT_TRUE(table->IsLayoutDirty());
    EXPECT_EQ(row->Clone()->table, nullptr);
  }
  EXPECT_EQ(row->table, nullptr);
  EXPECT_EQ(col->table, nullptr);
  EXPECT_EQ(row->height, 12);
  row->Assign(*col);
  EXPECT_EQ(row->contentId, "id");
}

TEST_F(Table, NumbersThatAreNoLengthsDrawNothingWorse) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const double number : {nan, infinity, -infinity, 1e300, -7.0, 0.0, 1e9, 1e-300}) {
    Make({10, number}, {20, number}, 20);
    for (const std::size_t i : {0U, 1U}) {
      SetText(i, i, "text of a cell");
      SetText(i, 1 - i, "text");
      table_.FindCell(i, 1 - i)->margin = number;
      table_.FindCell(i, i)->selected = true;
    }
    for (const int viewMode : {0, 2, 5}) {
      page_.context.viewMode = viewMode;
      table_.SetRotation(viewMode * 20);
      table_.SetDirty();
      Paint();
    }
  }
  page_.context.viewMode = 0;
  table_.SetRotation(0);
  Make({10}, {20}, 10);
  table_.FindCell(0, 0)->selected = true;
  Paint();
  EXPECT_EQ(page_.At(At(15), At(10)), (CPixel{51, 153, 255, 255}));
}

TEST_F(Table, MissingCellsAreEmptyOnes) {
  Make({10, 10}, {20, 20}, 20);
  table_.GetCells().pop_back();
  table_.GetCells()[0].pop_back();
  Paint();
  EXPECT_EQ(table_.FindCell(0, 1), nullptr);
  EXPECT_EQ(table_.FindCell(1, 0), nullptr);
  EXPECT_EQ(table_.FindCell(17, 17), nullptr);
  EXPECT_EQ(table_.GetContentSize(), (CDoublePoint{40, 20}));
}

TEST_F(Table, IsWrittenWithEveryProperty) {
  EXPECT_EQ(XmlOf(table_), R"(<element coloured="true" rotation="0" visible="true"><center x="0" y="0"/>)"
                           R"(<size width="0" height="0"/><cells/></element>)");
  Make({10.5}, {20, 30}, 12);
  table_.GetRows()[0]->contentId = "r";
  table_.GetCols()[0]->contentId = "c";
  table_.GetCols()[0]->name = "first";
  table_.GetCols()[1]->visible = false;
  table_.GetCols()[1]->hiddenByTheme = true;
  table_.FindCell(0, 0)->margin = 1.5;
  table_.FindCell(0, 0)->contentId = "x";
  table_.FindCell(0, 0)->verticalAlign = 2;
  table_.FindCell(0, 1)->verticalAlign = 17;
  const wxString xml = XmlOf(table_);
  EXPECT_TRUE(xml.Contains(R"(<rows><row height="10.5" content-id="r"/></rows>)")) << xml;
  EXPECT_TRUE(xml.Contains(R"(<cols><col width="20" visible="true" content-id="c" name="first"/>)"
                           R"(<col width="30" visible="false" name="" hidden-by-theme="true"/></cols>)"))
      << xml;
  EXPECT_TRUE(xml.Contains(R"(<cells><cell margin="1.5" content-id="x" vertical-align="bottom"/>)"
                           R"(<cell margin="0" vertical-align="unknown"/></cells>)"))
      << xml;
}

TEST_F(Table, IsTheSameAfterReadingAndWriting) {
  Make({10.5, 3}, {20, 30}, 12);
  SetText(1, 1, "some text");
  table_.FindCell(0, 1)->verticalAlign = 1;
  table_.FindCell(1, 1)->margin = 2;
  const auto read = Reloaded(table_);
  EXPECT_EQ(XmlOf(*read), XmlOf(table_));
  EXPECT_TRUE(read->IsLayoutDirty());
  ASSERT_TRUE(read->FindCell(1, 1));
  EXPECT_EQ(read->FindCell(1, 1)->GetBuffer()->GetText(), "some text");
  EXPECT_EQ(read->FindCell(0, 0)->GetBuffer(), nullptr);
  EXPECT_EQ(read->FindCell(0, 0)->table, read.get());
}

TEST_F(Table, ReadsAsManyCellsAsThereAreColumns) {
  ReadXml(
      table_,
      "<table><rows><row height='7'/><ROW/><other/><row height=''/></rows><cols><col width='20'/><col visible='0'/>"
      "</cols><cells><cell margin='1'/><cell margin='2' vertical-align='CENTER'/><cell margin='3'/></cells></table>");
  ASSERT_EQ(table_.GetRows().size(), 3U);
  ASSERT_EQ(table_.GetCols().size(), 2U);
  EXPECT_EQ(table_.GetRows()[0]->height, 7);
  EXPECT_FALSE(table_.GetCols()[1]->visible);
  EXPECT_EQ(table_.FindCell(0, 1)->margin, 2);
  EXPECT_EQ(table_.FindCell(0, 1)->verticalAlign, VerticalAlign::kCenter);
  EXPECT_EQ(table_.FindCell(1, 0)->margin, 3);
  EXPECT_EQ(table_.FindCell(1, 1)->margin, 0);
  EXPECT_EQ(table_.FindCell(2, 0), nullptr);
  Paint();
}

TEST_F(Table, TextsKeepTheStyleThatTheirFileNames) {
  ReadXml(table_, "<table><rows><row/></rows><cols><col/><col/></cols><cells><cell>" +
                      RichTextNode(" textcolor='#FF0000' fontpointsize='30'") + "</cell><cell>" + RichTextNode("") +
                      "</cell></cells></table>");
  wxRichTextAttr expected = CSkinManager::GetInstance().DefaultTextStyle();
  EXPECT_TRUE(table_.FindCell(0, 1)->GetBuffer()->GetBasicStyle() == expected);
  expected.SetTextColour(wxColour(255, 0, 0));
  expected.SetFontPointSize(30);
  EXPECT_TRUE(table_.FindCell(0, 0)->GetBuffer()->GetBasicStyle() == expected);
}

TEST_F(Table, CellsBeyondTheRowsAndColumnsAreLeftOut) {
  ReadXml(table_, "<table><rows><row/></rows><cols><col/></cols><cells><cell/><cell/><cell/></cells></table>");
  EXPECT_EQ(table_.GetCells().size(), 1U);
  EXPECT_EQ(table_.GetCells()[0].size(), 1U);
  ReadXml(table_, "<table><rows><row/></rows><cells><cell/></cells></table>");
  EXPECT_TRUE(table_.GetCells()[0].empty());
}

TEST_F(Table, MoreCellsThanTheLimitAreAnErrorThatNamesIt) {
  wxString xml = "<table><rows>";
  for (int i = 0; i < 1000; ++i) xml << "<row/>";
  xml << "</rows><cols>";
  for (int i = 0; i < 100; ++i) xml << "<col/>";
  ReadXml(table_, xml + "</cols></table>");
  EXPECT_EQ(table_.GetRows().size(), 1000U);
  EXPECT_EQ(MessageOf([&] { ReadXml(table_, xml + "<col/></cols></table>"); }),
            "A table may have at most 100000 cells");
}

TEST(VerticalAlignment, IsWrittenAsTextAndReadInAnyCase) {
  EXPECT_EQ(VerticalAlignToXml(0), "top");
  EXPECT_EQ(VerticalAlignToXml(1), "center");
  EXPECT_EQ(VerticalAlignToXml(2), "bottom");
  EXPECT_EQ(VerticalAlignToXml(3), "unknown");
  EXPECT_EQ(VerticalAlignToXml(-1), "unknown");
  for (const std::int32_t align : {0, 1, 2}) EXPECT_EQ(VerticalAlignFromXml(VerticalAlignToXml(align).Upper()), align);
}

TEST(VerticalAlignment, ThatIsUnknownIsAnError) {
  for (const char* text : {"unknown", "", "middle"})
    EXPECT_EQ(MessageOf([&] { VerticalAlignFromXml(text); }), "VerticalAlignFromXml. Unknown Align String");
  CPage page;
  CGraphicTable table;
  EXPECT_EQ(MessageOf([&] {
              ReadXml(table,
                      "<table><rows><row/></rows><cols><col/></cols><cells><cell vertical-align='left'/></cells>"
                      "</table>");
            }),
            "VerticalAlignFromXml. Unknown Align String");
}

}  // namespace graphics::test
