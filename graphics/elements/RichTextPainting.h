#pragma once

#include <wx/gdicmn.h>

class wxDC;
class wxRichTextBuffer;

namespace graphics {

/// Drops the cached layout and lays the text out in the rectangle: fixed width, variable height. Returns the laid out
/// size in pixels.
wxSize LayOutRichText(wxRichTextBuffer& buffer, wxDC& dc, const wxRect& rect);
/// Draws the text as it is laid out, nothing of it selected.
void DrawRichText(wxRichTextBuffer& buffer, wxDC& dc, const wxRect& rect);

}  // namespace graphics
