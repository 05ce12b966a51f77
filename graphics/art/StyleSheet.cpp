#include "graphics/art/StyleSheet.h"

#include <wx/font.h>
#include <wx/gdicmn.h>
#include <wx/richtext/richtextbuffer.h>
#include <wx/richtext/richtextstyles.h>

namespace graphics {

namespace {

constexpr int kPointSize = 12;
constexpr int kListLevels = 10;
/// In tenths of a millimetre, as all measures of rich text.
constexpr int kIndent = 60;
constexpr int kOutlineIndent = 120;

class CStyles {
public:
  explicit CStyles(wxRichTextStyleSheet& sheet) : sheet_(sheet) {
    base_.SetFontFaceName(wxFont(wxFontInfo(kPointSize).Family(wxFONTFAMILY_ROMAN)).GetFaceName());
    base_.SetFontSize(kPointSize);
  }

  const wxRichTextAttr& Base() const { return base_; }

  void AddParagraph(const wxString& name, const wxRichTextAttr& style) {
    sheet_.AddParagraphStyle(Define<wxRichTextParagraphStyleDefinition>(name, style));
  }
  void AddCharacter(const wxString& name, const wxRichTextAttr& style) {
    sheet_.AddCharacterStyle(Define<wxRichTextCharacterStyleDefinition>(name, style));
  }
  /// symbolOf: the bullet of a level, counted from 0.
  template <class SymbolOf>
  void AddList(const wxString& name, int indent, int bulletStyle, SymbolOf symbolOf) {
    auto* const list = Define<wxRichTextListStyleDefinition>(name, base_);
    for (int level = 0; level < kListLevels; ++level)
      list->SetAttributes(level, (level + 1) * indent, indent, bulletStyle, symbolOf(level));
    sheet_.AddListStyle(list);
  }

private:
  /// The sheet owns what is added to it.
  template <class Definition>
  static Definition* Define(const wxString& name, const wxRichTextAttr& style) {
    auto* const definition = new Definition(name);
    definition->SetStyle(style);
    return definition;
  }

  wxRichTextStyleSheet& sheet_;
  wxRichTextAttr base_;
};

wxRichTextAttr Bold(wxRichTextAttr style) {
  style.SetFontWeight(wxFONTWEIGHT_BOLD);
  return style;
}

wxRichTextAttr Italic(wxRichTextAttr style) {
  style.SetFontStyle(wxFONTSTYLE_ITALIC);
  return style;
}

wxRichTextAttr Red(wxRichTextAttr style) {
  style.SetTextColour(*wxRED);
  return style;
}

/// The first line and, counted from it, the lines below.
wxRichTextAttr Indented(wxRichTextAttr style, int left, int subIndent) {
  style.SetLeftIndent(left, subIndent);
  return style;
}

}  // namespace

std::unique_ptr<wxRichTextStyleSheet> MakeStyleSheet() {
  auto sheet = std::make_unique<wxRichTextStyleSheet>();
  CStyles styles(*sheet);
  const wxRichTextAttr& base = styles.Base();
  styles.AddParagraph("Normal", base);
  styles.AddParagraph("Indented", Indented(base, kIndent, 0));
  styles.AddParagraph("Red Bold Indented", Red(Bold(Indented(base, kIndent, 0))));
  styles.AddParagraph("First Line Indented", Indented(base, kIndent, -kIndent));
  styles.AddCharacter("Bold", Bold(base));
  styles.AddCharacter("Italic", Italic(base));
  styles.AddCharacter("Red Bold", Red(Bold(base)));
  styles.AddList("Bullet List 1", kIndent, wxTEXT_ATTR_BULLET_STYLE_STANDARD,
                 [](int level) { return level % 2 == 0 ? "standard/circle" : "standard/square"; });
  const auto none = [](int) { return ""; };
  styles.AddList("Numbered List 1", kIndent, wxTEXT_ATTR_BULLET_STYLE_ARABIC | wxTEXT_ATTR_BULLET_STYLE_PERIOD, none);
  styles.AddList("Outline List 1", kOutlineIndent, wxTEXT_ATTR_BULLET_STYLE_OUTLINE | wxTEXT_ATTR_BULLET_STYLE_PERIOD,
                 none);
  return sheet;
}

}  // namespace graphics
