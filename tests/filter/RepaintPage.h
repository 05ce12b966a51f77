#pragma once

#include "tests/filter/PlainPainter.h"

#include <wx/gdicmn.h>

#include <cstring>
#include <optional>
#include <string>
#include <vector>

namespace authfilter {

/// Pages of which each repaint can be looked at: what it paints, and whether that is right.
template <class Page>
class CRepaintPage : public Page {
protected:
  using Page::At;
  using Page::kHeight;
  using Page::kWidth;
  using Page::Open;
  using Page::store;

  /// Those of the last repaint that was looked at.
  int pixelsWritten = 0;

  /// The pixels that the next repaint writes. None of them may come out as 1, 2, 3, 4.
  wxRect Repainted() {
    const graphics::CPixels& page = store.pageSurface->Pixels();
    const std::uint8_t mark[] = {1, 2, 3, 4};
    const std::vector<std::uint8_t> kept(page.data, page.Row(kHeight));
    for (int y = 0; y < kHeight; ++y)
      for (int x = 0; x < kWidth; ++x) std::memcpy(page.Row(y) + x * 4, mark, 4);
    store.BeginReadFrame();
    store.EndReadFrame();
    wxRect written;
    pixelsWritten = 0;
    for (int y = 0; y < kHeight; ++y)
      for (int x = 0; x < kWidth; ++x) {
        std::uint8_t* const pixel = page.Row(y) + x * 4;
        if (std::memcmp(pixel, mark, 4) != 0) {
          written.Union(wxRect(x, y, 1, 1));
          ++pixelsWritten;
        } else {
          std::memcpy(pixel, kept.data() + (pixel - page.data), 4);
        }
      }
    return written;
  }
  wxRect RepaintedAtNextFrame() {
    store.NextFrame();
    return Repainted();
  }
  /// Paints once in full.
  void OpenOnBlack(const std::string& elements) {
    store.noAlpha = true;
    Open(elements);
    At(0, 0);
  }

  std::optional<CPlainPainter> plain;
  /// Empty if the frame is what a plain and full painting gives, but for the tolerance of each channel.
  std::string Difference(int tolerance = 0) {
    if (!plain) plain.emplace(store);
    const std::string difference = DifferenceOf(store.BeginReadFrame(), plain->Paint(), tolerance);
    store.EndReadFrame();
    return difference;
  }
};

}  // namespace authfilter
