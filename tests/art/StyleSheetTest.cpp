#include "graphics/art/SkinManager.h"
#include "graphics/art/StyleSheet.h"
#include "graphics/paint/Toolkit.h"

#include <gtest/gtest.h>
#include <wx/richtext/richtextbuffer.h>
#include <wx/richtext/richtextstyles.h>

#include <string>
#include <vector>

namespace graphics {

namespace {

class StyleSheet : public testing::Test {
private:
  CToolkitLock lock_;

protected:
  const std::unique_ptr<wxRichTextStyleSheet> sheet_ = MakeStyleSheet();
};

TEST_F(StyleSheet, HoldsItsStylesInOrder) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < sheet_->GetParagraphStyleCount(); ++i)
    names.push_back(sheet_->GetParagraphStyle(i)->GetName().utf8_string());
  for (std::size_t i = 0; i < sheet_->GetCharacterStyleCount(); ++i)
    names.push_back(sheet_->GetCharacterStyle(i)->GetName().utf8_string());
  for (std::size_t i = 0; i < sheet_->GetListStyleCount(); ++i)
    names.push_back(sheet_->GetListStyle(i)->GetName().utf8_string());
  EXPECT_EQ(names,
            (std::vector<std::string>{"Normal", "Indented", "Red Bold Indented", "First Line Indented", "Bold",
                                      "Italic", "Red Bold", "Bullet List 1", "Numbered List 1", "Outline List 1"}));
}

TEST_F(StyleSheet, HasAFontOfTwelvePointsForEveryStyle) {
  const wxString face = wxFont(wxFontInfo(12).Family(wxFONTFAMILY_ROMAN)).GetFaceName();
  EXPECT_FALSE(face.empty());
  for (const char* const name : {"Normal", "Indented", "Red Bold Indented", "First Line Indented", "Bold", "Italic",
                                 "Red Bold", "Bullet List 1", "Numbered List 1", "Outline List 1"}) {
    const wxRichTextAttr& style = sheet_->FindStyle(name)->GetStyle();
    EXPECT_EQ(style.GetFontFaceName(), face) << name;
    EXPECT_EQ(style.GetFontSize(), 12) << name;
    EXPECT_TRUE(style.GetFont().IsOk()) << name;
  }
}

TEST_F(StyleSheet, IndentsParagraphs) {
  const auto leftOf = [&](const char* name) { return sheet_->FindParagraphStyle(name)->GetStyle().GetLeftIndent(); };
  const auto restOf = [&](const char* name) { return sheet_->FindParagraphStyle(name)->GetStyle().GetLeftSubIndent(); };
  EXPECT_EQ(leftOf("Normal"), 0);
  EXPECT_EQ(leftOf("Indented"), 60);
  EXPECT_EQ(restOf("Indented"), 0);
  EXPECT_EQ(leftOf("Red Bold Indented"), 60);
  EXPECT_EQ(leftOf("First Line Indented"), 60);
  EXPECT_EQ(restOf("First Line Indented"), -60);
}

TEST_F(StyleSheet, SetsWhatItsNamesSay) {
  EXPECT_EQ(sheet_->FindCharacterStyle("Bold")->GetStyle().GetFontWeight(), wxFONTWEIGHT_BOLD);
  EXPECT_EQ(sheet_->FindCharacterStyle("Italic")->GetStyle().GetFontStyle(), wxFONTSTYLE_ITALIC);
  for (const char* const name : {"Red Bold", "Red Bold Indented"}) {
    EXPECT_EQ(sheet_->FindStyle(name)->GetStyle().GetTextColour(), *wxRED) << name;
    EXPECT_EQ(sheet_->FindStyle(name)->GetStyle().GetFontWeight(), wxFONTWEIGHT_BOLD) << name;
  }
  EXPECT_FALSE(sheet_->FindParagraphStyle("Normal")->GetStyle().HasFontWeight());
}

TEST_F(StyleSheet, TakesTurnsWithTheBulletsOfALevel) {
  wxRichTextListStyleDefinition* const list = sheet_->FindListStyle("Bullet List 1");
  for (int level = 0; level < 10; ++level) {
    const wxRichTextAttr& attributes = *list->GetLevelAttributes(level);
    EXPECT_EQ(attributes.GetBulletStyle(), wxTEXT_ATTR_BULLET_STYLE_STANDARD) << level;
    EXPECT_EQ(attributes.GetBulletName(), level % 2 == 0 ? "standard/circle" : "standard/square") << level;
    EXPECT_EQ(attributes.GetLeftIndent(), 60 * (level + 1)) << level;
    EXPECT_EQ(attributes.GetLeftSubIndent(), 60) << level;
  }
}

TEST_F(StyleSheet, NumbersAndOutlines) {
  const wxRichTextAttr& number = *sheet_->FindListStyle("Numbered List 1")->GetLevelAttributes(1);
  EXPECT_EQ(number.GetBulletStyle(), wxTEXT_ATTR_BULLET_STYLE_ARABIC | wxTEXT_ATTR_BULLET_STYLE_PERIOD);
  EXPECT_EQ(number.GetLeftIndent(), 120);
  const wxRichTextAttr& outline = *sheet_->FindListStyle("Outline List 1")->GetLevelAttributes(1);
  EXPECT_EQ(outline.GetBulletStyle(), wxTEXT_ATTR_BULLET_STYLE_OUTLINE | wxTEXT_ATTR_BULLET_STYLE_PERIOD);
  EXPECT_EQ(outline.GetLeftIndent(), 240);
  EXPECT_EQ(outline.GetLeftSubIndent(), 120);
}

TEST_F(StyleSheet, GivesNewTextsTheStyleNormalInBlack) {
  CSkinManager& manager = CSkinManager::GetInstance();
  const wxRichTextAttr style = manager.DefaultTextStyle();
  EXPECT_EQ(style.GetTextColour(), *wxBLACK);
  EXPECT_EQ(style.GetFontFaceName(), manager.GetStyleSheet()->FindStyle("Normal")->GetStyle().GetFontFaceName());
  EXPECT_EQ(style.GetFontSize(), 12);
}

TEST_F(StyleSheet, GivesNewTextsOneEmptyParagraph) {
  const auto text = CSkinManager::GetInstance().CreateTextBuffer(nullptr);
  EXPECT_EQ(text->GetParagraphCount(), 1);
  EXPECT_EQ(text->GetText(), "");
  EXPECT_TRUE(text->GetBasicStyle() == CSkinManager::GetInstance().DefaultTextStyle());
}

TEST_F(StyleSheet, GivesCopiesOfATextTheDefaultStyle) {
  wxRichTextBuffer source;
  source.AddParagraph("one");
  source.AddParagraph("two");
  const auto copy = CSkinManager::GetInstance().CreateTextBuffer(&source);
  EXPECT_EQ(copy->GetParagraphCount(), 2);
  EXPECT_EQ(copy->GetText(), source.GetText());
  EXPECT_TRUE(copy->GetBasicStyle() == CSkinManager::GetInstance().DefaultTextStyle());
}

}  // namespace

}  // namespace graphics
