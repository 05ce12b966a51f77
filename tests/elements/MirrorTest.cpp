#include "foundation/Error.h"
#include "graphics/elements/GraphicMirror.h"
#include "graphics/elements/GraphicRectangle.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics::test {

namespace {

orlo::P<CGraphicRectangle> Filled(const wxColour& colour, CDoubleRect frame) {
  const auto rectangle = orlo::makeObject<CGraphicRectangle>();
  rectangle->SetPen(*wxTRANSPARENT_PEN);
  rectangle->SetBrush(wxBrush(colour));
  Place(*rectangle, frame);
  return rectangle;
}

class Mirror : public testing::Test {
protected:
  /// Below row 150 of a picture that shows 150 rows of it.
  Mirror() : page_(40, 300), document_(orlo::makeObject<CGraphicDocument>()) {
    Place(mirror_, {0, 150, 40, 150});
    mirror_.SetDocument(document_);
  }

  CPage page_;
  CGraphicMirror mirror_;
  orlo::P<CGraphicDocument> document_;
};

}  // namespace

TEST_F(Mirror, WithoutADocumentPaintsNothing) {
  mirror_.SetDocument(nullptr);
  EXPECT_TRUE(mirror_.IsContentEmpty());
  mirror_.Paint(page_.context);
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(Mirror, ShowsAnAuthorItsFrame) {
  mirror_.SetDocument(nullptr);
  page_.context.viewMode = 1;
  mirror_.Paint(page_.context);
  const CInk frame = page_.Ink();
  EXPECT_EQ(frame.bounds, wxRect(0, 150, 40, 150));
  EXPECT_LT(frame.count, 2 * (40 + 150));
  EXPECT_EQ(page_.At(20, 200), kClear);
  for (int y = 150; y < 300; ++y) EXPECT_EQ(page_.At(0, y).red, 0) << y;
}

TEST_F(Mirror, ShowsWhatStandsAboveItUpsideDown) {
  document_->Add(Filled(*wxRED, {5, 140, 10, 9}));
  document_->Add(Filled(*wxBLUE, {20, 120, 9, 9}));
  mirror_.Paint(page_.context);
  // Ten rows above the mirror become the ten rows below its top.
  EXPECT_EQ(page_.At(10, 150).alpha, 100);
  EXPECT_EQ(page_.At(10, 158).alpha, 94);
  EXPECT_NE(page_.At(10, 159), kClear);
  EXPECT_EQ(page_.At(10, 160), kClear);
  EXPECT_GT(page_.At(10, 155).red, 90);
  EXPECT_EQ(page_.At(10, 155).blue, 0);
  EXPECT_EQ(page_.At(24, 169), kClear);
  EXPECT_GT(page_.At(24, 170).blue, 80);
  EXPECT_GT(page_.At(24, 179).blue, 75);
  EXPECT_EQ(page_.At(24, 180), kClear);
}

TEST_F(Mirror, FadesFromAlphaHundredToNothing) {
  document_->Add(Filled(*wxWHITE, {0, 0, 39, 149}));
  mirror_.Paint(page_.context);
  EXPECT_EQ(page_.At(20, 150), (CPixel{100, 100, 100, 100}));
  EXPECT_EQ(page_.At(20, 226).alpha, 49);
  for (int y = 151; y < 300; ++y) ASSERT_LE(page_.At(20, y).alpha, page_.At(20, y - 1).alpha);
  EXPECT_EQ(page_.At(20, 299), kClear);
}

TEST_F(Mirror, ASourcePixelFainterThanTheFadeKeepsItsAlpha) {
  document_->Add(Filled(wxColour(255, 255, 255, 40), {0, 0, 39, 149}));
  mirror_.Paint(page_.context);
  EXPECT_EQ(page_.At(20, 150), (CPixel{40, 40, 40, 40}));
  EXPECT_EQ(page_.At(20, 230).alpha, 40);
  EXPECT_EQ(page_.At(20, 280).alpha, 13);
}

TEST_F(Mirror, PassesOverInvisibleElements) {
  document_->Add(Filled(*wxRED, {5, 140, 10, 9}));
  document_->GetElement(0)->SetVisible(false);
  mirror_.Paint(page_.context);
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(Mirror, FollowsTheMatrixOfThePage) {
  page_.context.matrix = CMatrix::Scale(2, 2);
  Place(mirror_, {0, 50, 20, 50});
  document_->Add(Filled(*wxRED, {5, 40, 10, 9}));
  mirror_.Paint(page_.context);
  EXPECT_EQ(page_.Ink().bounds, wxRect(10, 101, 21, 19));
}

TEST_F(Mirror, WhatReachesOutOfThePictureIsTheSameAsAPartOfTheWhole) {
  document_->Add(Filled(*wxRED, {-20, 0, 50, 149}));
  document_->Add(Filled(wxColour(0, 0, 255, 90), {3, 60, 11, 70}));
  Place(mirror_, {-20, 150, 80, 200});
  CPage whole(120, 500);
  whole.context.matrix = CMatrix::Translation(40, 20);
  mirror_.Paint(whole.context);
  mirror_.Paint(page_.context);
  ASSERT_GT(page_.Ink().count, 1000);
  for (int y = 0; y < 300; ++y)
    for (int x = 0; x < 40; ++x) ASSERT_EQ(page_.At(x, y), whole.At(x + 40, y + 20)) << x << ' ' << y;
}

TEST_F(Mirror, SizesBeyondAnyPictureAllocateOnlyWhatIsSeen) {
  document_->Add(Filled(*wxRED, {0, 100, 39, 49}));
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double size : {1e9, 1e300, infinity, std::numeric_limits<double>::quiet_NaN(), -10.0, 0.0}) {
    Place(mirror_, {0, 150, size, size});
    mirror_.Paint(page_.context);
    Place(mirror_, {-size, -size, size, size});
    mirror_.Paint(page_.context);
  }
}

TEST_F(Mirror, DrawsOnItsOwnPictureEvenIfPaintersShareAContext) {
  CSmoothEffectDC smooth(page_.dc);
  const auto shared = smooth.CreateEffectContext();
  page_.context.effectContext = shared.get();

  class CProbe : public CGraphicRectangle {
  public:
    void Paint(CPaintContext& context) override { seen = context.effectContext; }
    TEffectGraphicsContext* seen = nullptr;
  };
  const auto probe = orlo::makeObject<CProbe>();
  probe->seen = shared.get();
  document_->Add(orlo::P<CGraphicElement>(probe.get()));
  mirror_.Paint(page_.context);
  EXPECT_EQ(probe->seen, nullptr);
}

TEST_F(Mirror, NestedTooDeepIsAnErrorThatNamesTheLimit) {
  const auto nested = [&](int depth) {
    orlo::P<CGraphicDocument> inner = document_;
    // Each one reaches ten rows into what the one outside of it shows.
    for (int level = depth - 1; level > 0; --level) {
      const auto mirror = orlo::makeObject<CGraphicMirror>();
      Place(*mirror, {0, 150.0 - 10 * level, 40, 150});
      mirror->SetDocument(inner);
      inner = orlo::makeObject<CGraphicDocument>();
      inner->Add(orlo::P<CGraphicElement>(mirror.get()));
    }
    return inner;
  };
  mirror_.SetDocument(nested(kMaxMirrorDepth));
  mirror_.Paint(page_.context);
  mirror_.SetDocument(nested(kMaxMirrorDepth + 1));
  try {
    mirror_.Paint(page_.context);
    FAIL();
  } catch (const orlo::CError& error) {
    EXPECT_STREQ(error.what(), "Mirrors may show mirrors at most 8 deep");
  }
  mirror_.SetDocument(nested(kMaxMirrorDepth));
  mirror_.Paint(page_.context);
}

TEST_F(Mirror, KeepsItsDocumentInFilesAndSharesItWithClones) {
  document_->SetContentBox({1, 2, 30, 40});
  const auto read = Reloaded(mirror_);
  ASSERT_TRUE(read->GetDocument());
  EXPECT_EQ(read->GetDocument()->GetPageRect(), (CDoubleRect{1, 2, 30, 40}));
  const auto clone = mirror_.Clone();
  EXPECT_EQ(orlo::cast<CGraphicMirror>(clone)->GetDocument(), document_);
  mirror_.ClearContent();
  EXPECT_FALSE(Reloaded(mirror_)->GetDocument());
}

}  // namespace graphics::test
