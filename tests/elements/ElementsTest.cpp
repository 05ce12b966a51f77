#include "graphics/elements/Elements.h"
#include "graphics/model/ElementFactory.h"
#include "graphics/model/GraphicType.h"
#include "graphics/paint/Toolkit.h"

#include <gtest/gtest.h>

namespace graphics::test {

TEST(Elements, AreMadeByTheirNamesOnceRegistered) {
  const CToolkitLock lock;
  RegisterElements();
  RegisterElements();
  for (const std::int32_t type :
       {GraphicType::kPaper, GraphicType::kLine, GraphicType::kPoint, GraphicType::kCircle, GraphicType::kRectangle,
        GraphicType::kArrow, GraphicType::kDimension, GraphicType::kDummy, GraphicType::kStateButton,
        GraphicType::kMirror, GraphicType::kLabel, GraphicType::kShape, GraphicType::kTable}) {
    const auto element = NewInstance(GraphicTypeToXml(type));
    ASSERT_TRUE(element);
    EXPECT_EQ(element->GetType(), type);
    EXPECT_EQ(element->Clone()->GetType(), type);
    EXPECT_EQ(element->GetTypeName(), "");
  }
}

}  // namespace graphics::test
