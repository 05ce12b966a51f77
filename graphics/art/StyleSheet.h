#pragma once

#include <memory>

class wxRichTextStyleSheet;

namespace graphics {

/// The styles that texts of pages are made with.
std::unique_ptr<wxRichTextStyleSheet> MakeStyleSheet();

}  // namespace graphics
