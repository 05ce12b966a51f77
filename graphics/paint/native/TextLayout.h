#pragma once

#include <wx/colour.h>
#include <wx/dynarray.h>
#include <wx/font.h>
#include <wx/graphics.h>

#include <memory>

namespace graphics {

/// How wide a text is, and how far it reaches above and below its first baseline.
struct CTextExtent {
  int width = 0;
  int ascent = 0;
  int descent = 0;

  int GetHeight() const { return ascent + descent; }
};

/// Text in one font whose letters stand at the same places at every scale: nothing is fitted to the pixels of the
/// device, so that what is measured once holds however large the text is drawn. Immutable; kept for the next one who
/// asks for the same text.
class CTextLayout {
public:
  static std::shared_ptr<const CTextLayout> Of(const wxFont& font, const wxString& text);

  virtual ~CTextLayout() = default;
  CTextLayout(const CTextLayout&) = delete;
  CTextLayout& operator=(const CTextLayout&) = delete;

  virtual CTextExtent GetExtent() const = 0;
  /// The width from the start of the text to the end of each of its characters. Characters that are drawn as one all
  /// end where the last of them does.
  virtual wxArrayInt GetPartialExtents() const = 0;
  /// The letters that no font has.
  virtual int CountUnknownLetters() const = 0;
  /// With the top left corner at the given place.
  virtual void Draw(wxGraphicsContext& context, double x, double y, const wxColour& colour) const = 0;

protected:
  CTextLayout() = default;
};

}  // namespace graphics
