#pragma once

#include <memory>
#include <span>

class wxOutputStream;
class wxRichTextBuffer;

namespace graphics {

/// Rich text in the toolkit's XML form.
bool SaveRichText(wxRichTextBuffer& text, wxOutputStream& stream);
/// Null if the XML is damaged or nests too deep.
std::unique_ptr<wxRichTextBuffer> LoadRichText(std::span<const unsigned char> bytes);

}  // namespace graphics
