#pragma once

#include "tests/animation/Pictures.h"

#include <wx/dcmemory.h>
#include <wx/gifdecod.h>
#include <wx/mstream.h>

namespace graphics::animation::test {

/// The pictures of a GIF file composed each from nothing, with the toolkit's decoder and device context. The work grows
/// with the square of the frame count.
inline std::vector<CPicture> ComposedFromNothing(const std::vector<unsigned char>& bytes) {
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  wxGIFDecoder decoder;
  std::vector<CPicture> pictures;
  if (!decoder.Load(stream)) return pictures;
  const wxSize size = decoder.GetAnimationSize();
  const wxBrush background(decoder.GetBackgroundColour(), wxBRUSHSTYLE_SOLID);
  const auto drawFrame = [&](wxDC& dc, unsigned frame) {
    wxImage image;
    decoder.ConvertToImage(frame, &image);
    dc.DrawBitmap(wxBitmap(image), decoder.GetFramePosition(frame), true);
  };
  for (unsigned frame = 0; frame < decoder.GetFrameCount(); ++frame) {
    wxBitmap picture = MakeAlphaBitmap(size.x, size.y);
    {
      wxMemoryDC dc(picture);
      dc.SetBackground(background);
      dc.Clear();
      for (unsigned earlier = 0; earlier < frame; ++earlier) {
        const int disposal = decoder.GetDisposalMethod(earlier);
        if (disposal == wxANIM_UNSPECIFIED || disposal == wxANIM_DONOTREMOVE) drawFrame(dc, earlier);
        if (disposal != wxANIM_TOBACKGROUND) continue;
        dc.SetBrush(background);
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.DrawRectangle(wxRect(decoder.GetFramePosition(earlier), decoder.GetFrameSize(earlier)));
      }
      drawFrame(dc, frame);
    }
    pictures.push_back(Unpacked(&picture));
  }
  return pictures;
}

}  // namespace graphics::animation::test
