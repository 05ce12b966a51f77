#include "graphics/art/TextWrapper.h"

#include "graphics/paint/native/BitmapPixels.h"

#include <wx/tokenzr.h>

#include <algorithm>
#include <cstdint>

namespace graphics {

namespace {

constexpr int kScratchEdge = 200;

}  // namespace

CTextWrapper::CTextWrapper(const wxFont& font) : bitmap_(MakeAlphaBitmap(kScratchEdge, kScratchEdge)), dc_(bitmap_) {
  dc_.SetFont(font);
}

wxString CTextWrapper::Wrap(const wxString& text, int maxWidth) {
  wxString result;
  wxStringTokenizer lines(text, "\n", wxTOKEN_RET_DELIMS);
  while (lines.HasMoreTokens()) {
    std::int64_t x = 0;
    wxStringTokenizer words(lines.GetNextToken(), " ,:-?..", wxTOKEN_RET_DELIMS);
    while (words.HasMoreTokens()) {
      const wxString word = words.GetNextToken();
      const int width = MeasureLine(dc_, word).x;
      if (x + width > maxWidth) {
        result += '\n';
        x = 0;
      }
      x += width;
      result += word;
    }
  }
  return result;
}

wxSize MeasureLine(wxDC& dc, const wxString& text) {
  if (text.find('\n') == wxString::npos) return dc.GetTextExtent(text);
  wxString line(text);
  line.Replace("\n", "");
  return dc.GetTextExtent(line);
}

wxSize MeasureMultiLine(wxDC& dc, const wxString& text) {
  wxSize size;
  wxStringTokenizer lines(text, "\n");
  while (lines.HasMoreTokens()) {
    const wxSize line = dc.GetTextExtent(lines.GetNextToken());
    size = {std::max(size.x, line.x), size.y + line.y};
  }
  return size;
}

}  // namespace graphics
