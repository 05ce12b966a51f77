#include "graphics/art/TextWrapper.h"

#include "graphics/paint/native/BitmapPixels.h"

#include <wx/tokenzr.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace graphics {

namespace {

constexpr int kScratchEdge = 200;

/// The text in pieces that each end behind a place where it may break. Nothing gets lost, as delimiters at the end do
/// with the toolkit's tokenizer, and long runs of delimiters take no longer than other text.
template <class Visit>
void ForEachPiece(const wxString& text, Visit visit) {
  for (std::size_t start = 0; start < text.length();) {
    const std::size_t found = text.find_first_of("\n ,:-?.", start);
    const std::size_t end = found == wxString::npos ? text.length() : found + 1;
    visit(text.substr(start, end - start));
    start = end;
  }
}

}  // namespace

CTextWrapper::CTextWrapper(const wxFont& font, bool scalable)
    : bitmap_(MakeAlphaBitmap(kScratchEdge, kScratchEdge)), dc_(bitmap_) {
  dc_.SetScalableText(scalable);
  dc_.SetFont(font);
}

wxString CTextWrapper::Wrap(const wxString& text, int maxWidth) {
  wxString result;
  std::int64_t x = 0;
  ForEachPiece(text, [&](const wxString& piece) {
    const int width = MeasureLine(dc_, piece).x;
    if (x + width > maxWidth) {
      result += '\n';
      x = 0;
    }
    x = piece.Last() == '\n' ? 0 : x + width;
    result += piece;
  });
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
