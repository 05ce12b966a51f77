#include "graphics/art/SkinManager.h"
#include "graphics/paint/Toolkit.h"

#include <gtest/gtest.h>
#include <wx/richtext/richtextbuffer.h>

namespace graphics {

namespace {

TEST(SkinManager, IsOneOfTheProcess) {
  EXPECT_EQ(&CSkinManager::GetInstance(), &CSkinManager::GetInstance());
}

TEST(SkinManager, MakesTextsOfOneEmptyParagraphInTheDefaultStyle) {
  const CToolkitLock lock;
  const auto buffer = CSkinManager::GetInstance().CreateTextBuffer(nullptr);
  EXPECT_EQ(buffer->GetParagraphCount(), 1);
  EXPECT_EQ(buffer->GetText(), "");
  EXPECT_EQ(buffer->GetBasicStyle().GetTextColour(), *wxBLACK);
}

}  // namespace

}  // namespace graphics
