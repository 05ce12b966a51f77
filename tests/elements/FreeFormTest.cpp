#include "foundation/wxutil/WXError.h"
#include "graphics/elements/BuiltInFreeForms.h"
#include "graphics/elements/FreeFormManager.h"
#include "graphics/elements/GraphicPoint.h"
#include "graphics/elements/GraphicRectangle.h"
#include "graphics/paint/Toolkit.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>

namespace graphics::test {

namespace {

class FreeForm : public testing::Test {
protected:
  static orlo::P<CGraphicPoint> PointAt(double x, double y) {
    auto point = orlo::makeObject<CGraphicPoint>();
    point->SetCenter({x, y});
    return point;
  }

private:
  CToolkitLock lock_;
};

}  // namespace

TEST_F(FreeForm, IsCentredOnTheOrigin) {
  const auto document = orlo::makeObject<CGraphicDocument>();
  document->Add(PointAt(10, 20));
  document->Add(PointAt(30, 60));
  const CFreeForm form("freeform.own", document);
  EXPECT_EQ(form.GetOutline(), (std::vector<CDoublePoint>{{-10, -20}, {10, 20}}));
  EXPECT_EQ(form.GetDocument(), document);
  EXPECT_EQ(form.GetDisplayName(), "freeform.own");
}

TEST_F(FreeForm, MovesAPointThatItHasTwiceOnce) {
  const auto document = orlo::makeObject<CGraphicDocument>();
  const auto first = PointAt(10, 10);
  document->Add(first);
  document->Add(PointAt(20, 30));
  document->Add(first);
  const CFreeForm form("freeform.own", document);
  EXPECT_EQ(form.GetOutline(), (std::vector<CDoublePoint>{{-5, -10}, {5, 10}, {-5, -10}}));
}

TEST_F(FreeForm, OutlinesConsistOfPointsAlone) {
  const auto document = orlo::makeObject<CGraphicDocument>();
  const auto rectangle = orlo::makeObject<CGraphicRectangle>();
  Place(*rectangle, {-40, -40, 80, 80});
  document->Add(PointAt(3, 4));
  document->Add(rectangle);
  const CFreeForm form("freeform.own", document);
  EXPECT_EQ(form.GetOutline(), (std::vector<CDoublePoint>{{3, 4}}));
}

TEST_F(FreeForm, ClonesHavePointsOfTheirOwn) {
  const auto document = orlo::makeObject<CGraphicDocument>();
  document->Add(PointAt(-1, 0));
  document->Add(PointAt(1, 0));
  const CFreeForm form("freeform.own", document);
  const auto clone = form.Clone();
  EXPECT_EQ(clone->GetName(), "freeform.own");
  EXPECT_EQ(clone->GetOutline(), form.GetOutline());
  document->GetElement(0)->SetCenter({5, 5});
  EXPECT_EQ(clone->GetOutline().front(), (CDoublePoint{-1, 0}));
}

TEST_F(FreeForm, WithTooManyPointsIsAnErrorThatNamesTheLimit) {
  const auto document = orlo::makeObject<CGraphicDocument>();
  const auto point = PointAt(1, 1);
  for (std::size_t i = 0; i < kMaxFreeFormPoints; ++i) document->Add(point);
  const CFreeForm form("freeform.own", document);
  document->Add(point);
  try {
    const CFreeForm tooLong("freeform.own", document);
    FAIL();
  } catch (const wxutil::CWXError& error) {
    EXPECT_EQ(error.getWxMessage(), "A free form may have at most 1000 points");
  }
}

TEST_F(FreeForm, FourAreBuiltIn) {
  const auto& forms = CFreeFormManager::GetInstance().GetForms();
  ASSERT_EQ(forms.size(), 4U);
  const char* const names[] = {"freeform.star", "freeform.trapeze", "freeform.triangle", "freeform.parallelogram"};
  const char* const displayNames[] = {"Star", "Trapeze", "Triangle", "Parallelogram"};
  const std::size_t points[] = {11, 5, 4, 5};
  const CDoubleSize sizes[] = {{309, 312}, {2, 2}, {2, 2}, {1, 1}};
  for (std::size_t i = 0; i < forms.size(); ++i) {
    EXPECT_EQ(forms[i]->GetName(), names[i]);
    EXPECT_EQ(forms[i]->GetDisplayName(), displayNames[i]);
    const auto outline = forms[i]->GetOutline();
    EXPECT_EQ(outline.size(), points[i]);
    EXPECT_EQ(outline.front(), outline.back());
    EXPECT_EQ(forms[i]->GetDocument()->GetBoundingBox(), CDoubleRect::FromCenter({0, 0}, sizes[i]));
    EXPECT_EQ(forms[i]->Clone()->GetDisplayName(), displayNames[i]);
    EXPECT_EQ(forms[i]->Clone()->GetOutline(), outline);
    EXPECT_EQ(CFreeFormManager::GetInstance().Find(names[i]), forms[i]);
  }
  EXPECT_FALSE(CFreeFormManager::GetInstance().Find("freeform.own"));
}

TEST_F(FreeForm, BuiltInOnesHaveThePointsThatTheyAreKnownBy) {
  const auto expect = [](const CFreeForm& form, CDoublePoint middle, const std::vector<CDoublePoint>& points) {
    const auto outline = form.GetOutline();
    ASSERT_EQ(outline.size(), points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
      EXPECT_DOUBLE_EQ(outline[i].x, points[i].x - middle.x) << form.GetName() << ' ' << i;
      EXPECT_DOUBLE_EQ(outline[i].y, points[i].y - middle.y) << form.GetName() << ' ' << i;
    }
  };
  expect(CFreeFormStar(), {154.5, 156},
         {{0, 117},
          {117, 117},
          {154, 0},
          {191, 117},
          {309, 117},
          {213, 192},
          {250, 312},
          {154, 239},
          {59, 312},
          {94, 192},
          {0, 117}});
  expect(CFreeFormTrapeze(), {0, 0}, {{-0.6, -1}, {0.6, -1}, {1, 1}, {-1, 1}, {-0.6, -1}});
  expect(CFreeFormTriangle(), {0, 0}, {{0, -1}, {1, 1}, {-1, 1}, {0, -1}});
  expect(CFreeFormParallelogram(), {0.5, 0.5}, {{0, 0}, {0.8, 0}, {1, 1}, {0.2, 1}, {0, 0}});
}

TEST_F(FreeForm, OfABuiltInNameKeepsTheOutlineThatItIsGiven) {
  const auto document = orlo::makeObject<CGraphicDocument>();
  document->Add(PointAt(-2, 0));
  document->Add(PointAt(2, 0));
  const auto form = MakeFreeForm("freeform.triangle", document);
  EXPECT_EQ(form->GetDisplayName(), "Triangle");
  EXPECT_EQ(form->GetOutline().size(), 2U);
}

}  // namespace graphics::test
