#pragma once

#include "graphics/art/SkinManager.h"
#include "graphics/elements/GraphicText.h"
#include "tests/elements/Page.h"

#include <wx/richtext/richtextbuffer.h>

#include <memory>
#include <vector>

namespace graphics::test {

/// A page on which one unit is one pixel and texts are laid out in these pixels.
class CTextPage : public CPage {
public:
  explicit CTextPage(int width = 200, int height = 120) : CPage(width, height) { context.outputMode = 1; }
};

inline wxRichTextAttr StyleOf(int points) {
  wxRichTextAttr style;
  style.SetFontFaceName("DejaVu Sans");
  style.SetFontPointSize(points);
  return style;
}

/// Paragraphs in one font.
inline std::unique_ptr<wxRichTextBuffer> TextOf(const std::vector<wxString>& paragraphs, int points = 9) {
  auto buffer = std::make_unique<wxRichTextBuffer>();
  buffer->SetBasicStyle(CSkinManager::GetInstance().DefaultTextStyle());
  wxRichTextAttr style = StyleOf(points);
  for (const wxString& paragraph : paragraphs) buffer->AddParagraph(paragraph, &style);
  return buffer;
}

/// The first letter's position of each line.
inline std::vector<long> LineStartsOf(const wxRichTextBuffer& buffer) {
  std::vector<long> starts;
  for (const auto& object : buffer.GetChildren())
    if (auto* const paragraph = wxDynamicCast(object, wxRichTextParagraph))
      for (wxRichTextLine* const line : paragraph->GetLines()) starts.push_back(line->GetAbsoluteRange().GetStart());
  return starts;
}

}  // namespace graphics::test
