#include "graphics/elements/RichTextPainting.h"

#include <wx/dc.h>
#include <wx/richtext/richtextbuffer.h>

namespace graphics {

wxSize LayOutRichText(wxRichTextBuffer& buffer, wxDC& dc, const wxRect& rect) {
  buffer.InvalidateHierarchy(wxRICHTEXT_ALL);
  wxRichTextDrawingContext context(&buffer);
  buffer.Layout(dc, context, rect, rect, wxRICHTEXT_FIXED_WIDTH | wxRICHTEXT_VARIABLE_HEIGHT);
  return buffer.GetCachedSize();
}

void DrawRichText(wxRichTextBuffer& buffer, wxDC& dc, const wxRect& rect) {
  wxRichTextDrawingContext context(&buffer);
  buffer.Draw(dc, context, buffer.GetOwnRange(), wxRichTextSelection(), rect, 0, 0);
}

}  // namespace graphics
