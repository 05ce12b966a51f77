// Pages as an authoring tool shows them: painted by the document itself, in each of the view modes, and skins in each
// of their states.

#include "filter/StartUp.h"
#include "foundation/Cast.h"
#include "graphics/geometry/XmlParse.h"
#include "graphics/model/Base64Resources.h"
#include "graphics/model/GraphicDocument.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "graphics/skin/GraphicSkinButton.h"
#include "host/PageFile.h"
#include "tests/golden/Comparison.h"
#include "tests/golden/Golden.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <tuple>

namespace {

using host::Picture;
using host::PictureView;

orlo::P<graphics::CGraphicDocument> readDocument(const std::string& page) {
  const std::string text = host::readPage(page).xml;
  const graphics::xml::CParsed parsed =
      graphics::xml::Parse({reinterpret_cast<const unsigned char*>(text.data()), text.size()}, {256, 1'000'000});
  if (!parsed.document) throw std::runtime_error(parsed.problem);
  auto document = orlo::makeObject<graphics::CGraphicDocument>();
  const auto store = orlo::makeObject<graphics::CBase64Resources>();
  document->ReadFromXml(*parsed.document->GetRoot(), *store);
  return document;
}

PictureView viewOf(const graphics::CPixels& pixels) {
  return {pixels.data, pixels.stride, {pixels.width, pixels.height}};
}

Picture draw(graphics::CGraphicDocument& document, int viewMode) {
  const graphics::CDoubleRect rect = document.GetPageRect();

  wxBitmap bitmap = graphics::MakeAlphaBitmap(test::goldenSize.width, test::goldenSize.height);
  const graphics::CBitmapSurface surface(bitmap);
  const graphics::CPixels& pixels = surface.Pixels();
  const Picture background = test::goldenBackground(test::goldenSize);
  for (int y = 0; y < pixels.height; ++y) std::copy_n(background.view().row(y), background.stride(), pixels.Row(y));
  surface.MarkDirty();

  graphics::CBitmapEffectDC dc(bitmap);
  graphics::CPaintContext context(&dc, 0);
  context.rect = context.clip = {0, 0, static_cast<double>(pixels.width), static_cast<double>(pixels.height)};
  context.matrix = graphics::CMatrix::Scale(pixels.width / rect.width, pixels.height / rect.height);
  context.viewMode = viewMode;
  document.Paint(context);
  dc.Flush();
  surface.Flush();
  return test::copyOf(viewOf(pixels));
}

using PageAndMode = std::tuple<std::string, int>;

class GoldenView : public testing::TestWithParam<PageAndMode> {};

TEST_P(GoldenView, LooksAsItDid) {
  const auto& [page, mode] = GetParam();
  const graphics::CToolkitLock lock;
  authfilter::StartUp();
  const Picture output = draw(*readDocument(GOLDEN_VIEWS "/" + page + ".xml"), mode);
  test::expectGolden("views/" + page + ".view" + std::to_string(mode), output.view());
}

std::string nameOf(const testing::TestParamInfo<PageAndMode>& testCase) {
  const auto& [page, mode] = testCase.param;
  return test::testNameOf(page) + "_view" + std::to_string(mode);
}

INSTANTIATE_TEST_SUITE_P(View, GoldenView,
                         testing::Combine(testing::ValuesIn(test::pagesOf(GOLDEN_VIEWS)), testing::Values(1, 2, 5)),
                         nameOf);

using PageAndState = std::tuple<std::string, std::string>;

class GoldenState : public testing::TestWithParam<PageAndState> {};

TEST_P(GoldenState, LooksAsItDid) {
  const auto& [page, state] = GetParam();
  const graphics::CToolkitLock lock;
  authfilter::StartUp();
  const auto document = readDocument(GOLDEN_STATES "/" + page + ".xml");
  for (std::size_t index = 0; index < document->GetCount(); ++index)
    orlo::cast<graphics::skin::CGraphicSkinButton>(document->GetElement(index).get())->SetFixedState(state);
  test::expectGolden("states/" + page + "." + state, draw(*document, 0).view());
}

std::string nameOfState(const testing::TestParamInfo<PageAndState>& testCase) {
  const auto& [page, state] = testCase.param;
  return test::testNameOf(page) + "_" + state;
}

// The last one is none that a skin has.
INSTANTIATE_TEST_SUITE_P(View, GoldenState,
                         testing::Combine(testing::ValuesIn(test::pagesOf(GOLDEN_STATES)),
                                          testing::Values("normal", "hover", "hover_low", "down", "disabled",
                                                          "selected", "sleeping")),
                         nameOfState);

using GoldenHighlight = testing::TestWithParam<int>;

// The author's mouse is over all of them.
TEST_P(GoldenHighlight, LooksAsItDid) {
  const graphics::CToolkitLock lock;
  authfilter::StartUp();
  const auto document = readDocument(GOLDEN_VIEWS "/action-button.xml");
  for (std::size_t index = 0; index < document->GetCount(); ++index) document->GetElement(index)->SetFlag1(true);
  test::expectGolden("views/action-button.highlight" + std::to_string(GetParam()), draw(*document, GetParam()).view());
}

INSTANTIATE_TEST_SUITE_P(View, GoldenHighlight, testing::Values(1, 2, 5));

}  // namespace
