#include "foundation/Error.h"
#include "graphics/skin/AnimationLayer.h"
#include "graphics/skin/CustomLayer.h"
#include "graphics/skin/ShapeSkin.h"
#include "graphics/skin/TextLayer.h"
#include "tests/skin/Sources.h"

#include <gtest/gtest.h>

namespace graphics::skin {

namespace {

class LayerXml : public testing::Test {
protected:
  LayerXml() { StartForTests(); }

  wxString Written(const CLayer& layer) {
    wxXmlNode node(wxXML_ELEMENT_NODE, "layer");
    layer.WriteToXml(node, *orlo::makeObject<CBase64Resources>());
    return ToText(node);
  }
  void Read(CLayer& layer, const wxString& text) { layer.ReadFromXml(*ParseXml(text)->GetRoot(), *store_); }
  void Read(CState& state, const wxString& text) { state.ReadFromXml(*ParseXml(text)->GetRoot(), *store_); }
  template <class Layer>
  orlo::P<Layer> Reloaded(const Layer& layer) {
    const auto copy = orlo::makeObject<Layer>();
    Read(*copy, Written(layer));
    return copy;
  }
  static std::vector<std::string> KindsOf(const CState& state) {
    std::vector<std::string> kinds;
    for (const auto& layer : state.GetLayers()) kinds.push_back(layer->GetLayerTypeName().utf8_string());
    return kinds;
  }

private:
  CToolkitLock lock_;

protected:
  const orlo::P<CBase64Resources> store_ = orlo::makeObject<CBase64Resources>();
};

constexpr const char* kNoMargins = R"(left="0" top="0" right="0" bottom="0" left-factor="0" top-factor="0" )"
                                   R"(right-factor="0" bottom-factor="0"/>)";

TEST_F(LayerXml, HoldsMarginsAndAlignmentFirst) {
  const auto layer = orlo::makeObject<CCustomLayer>();
  layer->contentMargins.left = 2.5;
  layer->horzAlign = 0.5;
  layer->id = "clock";
  EXPECT_EQ(Written(*layer),
            "<layer horzalign=\"0.5\" vertalign=\"0\" id=\"clock\">"
            "<content-margins left=\"2.5\" top=\"0\" right=\"0\" bottom=\"0\" left-factor=\"0\" "
            "top-factor=\"0\" right-factor=\"0\" bottom-factor=\"0\"/></layer>");
}

TEST_F(LayerXml, OfAPictureHoldsNoBitmapsThatThereAreNot) {
  const wxString margins(kNoMargins);
  EXPECT_EQ(Written(*orlo::makeObject<CAnimationLayer>()),
            "<layer horzalign=\"0\" vertalign=\"0\" scaling-enabled=\"true\" scaling-proportional=\"false\" "
            "uriprop=\"\"><content-margins " +
                margins + "<scale-margins " + margins + "</layer>");
}

TEST_F(LayerXml, OfAPictureComesBack) {
  // Opaque pictures are written as JPEG the second time.
  constexpr CPixel kFaint{100, 0, 0, 100};
  const auto layer = orlo::makeObject<CAnimationLayer>();
  layer->contentMargins = {1, 2, 3, 4, 0.5, 0.25, 0.125, 1};
  layer->horzAlign = 0.25;
  layer->vertAlign = 1.0;
  layer->scalingEnabled = false;
  layer->scalingProportional = true;
  layer->scaleMargins = {5, 6, 7, 8};
  layer->uriProp = "cover";
  layer->SetAttachmentBitmap(Filled(3, 2, kFaint));
  layer->SetProp("cover", Filled(5, 4, kFaint));
  layer->SetProp("back", Filled(1, 1, kFaint));
  const auto copy = Reloaded(*layer);
  EXPECT_EQ(copy->contentMargins, layer->contentMargins);
  EXPECT_EQ(copy->horzAlign, 0.25);
  EXPECT_EQ(copy->vertAlign, 1.0);
  EXPECT_FALSE(copy->scalingEnabled);
  EXPECT_TRUE(copy->scalingProportional);
  EXPECT_EQ(copy->scaleMargins, layer->scaleMargins);
  EXPECT_EQ(copy->uriProp, "cover");
  EXPECT_EQ(copy->GetAttachmentBitmap()->GetSize(), wxSize(3, 2));
  ASSERT_EQ(copy->GetProps().size(), 2U);
  EXPECT_EQ(copy->GetProps().at("cover")->GetSize(), wxSize(5, 4));
  EXPECT_EQ(Written(*copy).utf8_string(), Written(*layer).utf8_string());
}

TEST_F(LayerXml, OfAPictureNamesItsPropsByTheirKeys) {
  const auto layer = orlo::makeObject<CAnimationLayer>();
  layer->SetProp("cover", Filled(1, 1, kRed));
  EXPECT_TRUE(Written(*layer).Contains("<props><cover><prop-cover extension=\"png\">"));
}

TEST_F(LayerXml, OfAPictureHasNoPropWithoutABitmap) {
  const auto layer = orlo::makeObject<CAnimationLayer>();
  Read(*layer,
       R"(<layer><props>words<cover/><back><prop-back extension="png">AAAA</prop-back></back></props></layer>)");
  EXPECT_TRUE(layer->GetProps().empty());
}

TEST_F(LayerXml, OfAPictureLosesABitmapThatTheNodeHasNot) {
  const auto layer = orlo::makeObject<CAnimationLayer>();
  layer->SetAttachmentBitmap(Filled(1, 1, kRed));
  layer->scalingEnabled = false;
  Read(*layer, "<layer/>");
  EXPECT_EQ(layer->GetAttachmentBitmap(), nullptr);
  EXPECT_FALSE(layer->scalingEnabled);
}

TEST_F(LayerXml, OfATextComesBack) {
  const auto layer = orlo::makeObject<CTextLayer>();
  layer->font = wxFont(wxFontInfo(17).FaceName("DejaVu Sans").Bold().Italic());
  layer->color = wxColour(1, 2, 3, 4);
  layer->shadowColor = wxColour(5, 6, 7, 8);
  layer->shadowRelPosition = {1.5, -2};
  layer->haloEnabled = true;
  layer->multilineEnabled = true;
  layer->haloColor = wxColour(9, 10, 11, 12);
  layer->prop = "title";
  const auto copy = Reloaded(*layer);
  EXPECT_EQ(copy->font.GetNativeFontInfoDesc(), layer->font.GetNativeFontInfoDesc());
  EXPECT_EQ(copy->color, layer->color);
  EXPECT_EQ(copy->shadowColor, layer->shadowColor);
  EXPECT_EQ(copy->shadowRelPosition, layer->shadowRelPosition);
  EXPECT_TRUE(copy->haloEnabled);
  EXPECT_TRUE(copy->multilineEnabled);
  EXPECT_EQ(copy->haloColor, layer->haloColor);
  EXPECT_EQ(copy->prop, "title");
  EXPECT_EQ(Written(*copy).utf8_string(), Written(*layer).utf8_string());
}

TEST_F(LayerXml, OfATextHoldsItsNodesInTheirOrder) {
  const wxString text = Written(*orlo::makeObject<CTextLayer>());
  std::size_t last = 0;
  for (const char* const node :
       {"<content-margins ", "<font ", "<color ", "<shadow-color ", "<shadow-rel-position ", "<halo-color "}) {
    const std::size_t found = text.find(node);
    ASSERT_NE(found, wxString::npos) << node;
    EXPECT_GT(found, last) << node;
    last = found;
  }
  EXPECT_TRUE(text.Contains(R"(vertalign="0" halo-enabled="false" multiline-enabled="false" prop="")"));
}

TEST_F(LayerXml, OfACustomLayerHoldsItsShapeAsASharedResource) {
  const auto layer = orlo::makeObject<CCustomLayer>();
  const auto shape = orlo::makeObject<CShapeSkin>("oval");
  layer->SetShape(shape);
  EXPECT_TRUE(Written(*layer).Contains("type=\"shapeskin\" id=\"oval\"><states>"));
  const auto copy = Reloaded(*layer);
  ASSERT_TRUE(copy->GetShape());
  EXPECT_EQ(copy->GetShape()->GetId(), "oval");
  EXPECT_EQ(copy->GetShape()->GetUniqueId(), shape->GetUniqueId());
}

TEST_F(LayerXml, SharesAShapeAmongLayers) {
  const auto state = orlo::makeObject<CState>("normal");
  Read(*state, R"(<normal><layers><custom><shape unique="7" type="shapeskin" id="oval"/></custom>
                  <custom><shape unique="7" type="shapeskin"/></custom><custom/>
                  <custom><shape unique="8" type="carpet"/></custom></layers></normal>)");
  std::vector<orlo::P<CSkin>> shapes;
  for (const auto& layer : state->GetLayers())
    shapes.push_back(orlo::P<CSkin>(dynamic_cast<CCustomLayer&>(*layer).GetShape()));
  ASSERT_EQ(shapes.size(), 4U);
  EXPECT_TRUE(shapes[0]);
  EXPECT_EQ(shapes[0], shapes[1]);
  EXPECT_FALSE(shapes[2]);
  EXPECT_FALSE(shapes[3]);
}

TEST_F(LayerXml, RefusesAShapeThatHasItselfAsItsShape) {
  const auto state = orlo::makeObject<CState>("normal");
  const wxString inner = R"(<custom><shape unique="7" type="shapeskin"/></custom>)";
  EXPECT_THROW(Read(*state, R"(<normal><layers><custom><shape unique="7" type="shapeskin"><states><normal><layers>)" +
                                inner + "</layers></normal></states></shape></custom></layers></normal>"),
               orlo::CException);
}

TEST_F(LayerXml, IsReadByItsExactName) {
  const auto state = orlo::makeObject<CState>("normal");
  Read(*state, R"(<normal><layers><text/><image/><Text/>words<animation/><CUSTOM/><custom/></layers></normal>)");
  EXPECT_EQ(KindsOf(*state), (std::vector<std::string>{"text", "animation", "custom"}));
}

TEST_F(LayerXml, IsDoubledByReadingTwice) {
  const auto state = orlo::makeObject<CState>("normal");
  for (int i = 0; i < 2; ++i) Read(*state, "<normal><layers><text/><custom/></layers></normal>");
  EXPECT_EQ(KindsOf(*state), (std::vector<std::string>{"text", "custom", "text", "custom"}));
}

TEST_F(LayerXml, KeepsItsOrder) {
  const auto state = orlo::makeObject<CState>("normal");
  state->AddLayer(orlo::makeObject<CTextLayer>());
  state->AddLayer(orlo::makeObject<CAnimationLayer>());
  state->AddLayer(orlo::makeObject<CTextLayer>());
  wxXmlNode node(wxXML_ELEMENT_NODE, "normal");
  state->WriteToXml(node, *store_);
  const auto copy = orlo::makeObject<CState>("other");
  copy->ReadFromXml(node, *store_);
  EXPECT_EQ(copy->GetName(), "normal");
  EXPECT_EQ(KindsOf(*copy), (std::vector<std::string>{"text", "animation", "text"}));
}

TEST_F(LayerXml, IsPassedOverBeyondTheLimit) {
  wxString layers;
  for (std::size_t i = 0; i < kMostLayers + 5; ++i) layers += "<custom/>";
  const auto state = orlo::makeObject<CState>("normal");
  Read(*state, "<normal><layers>" + layers + "</layers></normal>");
  EXPECT_EQ(state->GetLayers().size(), kMostLayers);
}

}  // namespace

}  // namespace graphics::skin
