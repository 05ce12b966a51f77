#include "graphics/art/CentredHint.h"

#include "graphics/art/SkinManager.h"
#include "graphics/paint/PixelRange.h"

#include <wx/bitmap.h>

namespace graphics {

void DrawCentredHint(wxDC& dc, const wxString& text, const CDoubleRect& rect, bool bold, const wxBitmap* icon) {
  constexpr int kPlain = 1;
  constexpr int kBold = 2;
  const wxBitmap* const words =
      CSkinManager::GetInstance().GetStyledText(text, bold ? kBold : kPlain, TruncateToInt(rect.width));
  const int textHeight = words ? words->GetHeight() : 0;
  const bool showsIcon = icon && icon->IsOk() && textHeight + icon->GetHeight() <= rect.height;
  const bool showsText = words && !text.empty() && words->GetHeight() <= rect.height && words->GetWidth() <= rect.width;
  const CDoublePoint centre = rect.GetCenter();
  const int height = (showsIcon ? icon->GetHeight() : 0) + (showsText ? textHeight : 0);
  int y = FloorToPixel(centre.y - height * 0.5);
  if (showsIcon) {
    dc.DrawBitmap(*icon, TruncateToPixel(centre.x - icon->GetWidth() * 0.5), y, true);
    y += icon->GetHeight();
  }
  if (showsText) {
    const int half = words->GetWidth() / 2;
    dc.DrawBitmap(*words, TruncateToPixel(centre.x - half), y, true);
  }
}

}  // namespace graphics
