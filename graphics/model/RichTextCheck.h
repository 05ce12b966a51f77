#pragma once

class wxXmlNode;

namespace graphics {

/// Brings the XML of a rich text into what the toolkit can read, lay out and draw in any frame: numbers are pulled into
/// their range, what is damaged is taken out, and numbers that older files write come to mean today what they meant.
/// False if the text is longer or nests deeper than a page's text may.
bool PrepareRichText(wxXmlNode& root);

}  // namespace graphics
