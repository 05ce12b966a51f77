#include "graphics/elements/Elements.h"

#include "graphics/elements/GraphicArrow.h"
#include "graphics/elements/GraphicCircle.h"
#include "graphics/elements/GraphicDimension.h"
#include "graphics/elements/GraphicDummy.h"
#include "graphics/elements/GraphicImage.h"
#include "graphics/elements/GraphicLabel.h"
#include "graphics/elements/GraphicLine.h"
#include "graphics/elements/GraphicMirror.h"
#include "graphics/elements/GraphicPaper.h"
#include "graphics/elements/GraphicPoint.h"
#include "graphics/elements/GraphicRectangle.h"
#include "graphics/elements/GraphicShape.h"
#include "graphics/elements/GraphicStateButton.h"
#include "graphics/elements/GraphicTable.h"
#include "graphics/elements/GraphicText.h"
#include "graphics/elements/GraphicTextCircle.h"
#include "graphics/model/ElementFactory.h"
#include "graphics/model/GraphicType.h"

namespace graphics {

namespace {

template <class Element>
void Register(std::int32_t type) {
  RegisterElementKind(type, []() -> orlo::P<CGraphicElement> { return orlo::makeObject<Element>(); });
}

}  // namespace

void RegisterElements() {
  Register<CGraphicPaper>(GraphicType::kPaper);
  Register<CGraphicImage>(GraphicType::kImage);
  Register<CGraphicText>(GraphicType::kText);
  Register<CGraphicTextCircle>(GraphicType::kTextCircle);
  Register<CGraphicTable>(GraphicType::kTable);
  Register<CGraphicLine>(GraphicType::kLine);
  Register<CGraphicPoint>(GraphicType::kPoint);
  Register<CGraphicCircle>(GraphicType::kCircle);
  Register<CGraphicRectangle>(GraphicType::kRectangle);
  Register<CGraphicShape>(GraphicType::kShape);
  Register<CGraphicArrow>(GraphicType::kArrow);
  Register<CGraphicDimension>(GraphicType::kDimension);
  Register<CGraphicDummy>(GraphicType::kDummy);
  Register<CGraphicStateButton>(GraphicType::kStateButton);
  Register<CGraphicMirror>(GraphicType::kMirror);
  Register<CGraphicLabel>(GraphicType::kLabel);
}

}  // namespace graphics
