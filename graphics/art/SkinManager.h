#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "graphics/art/ArtProvider.h"

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/font.h>
#include <wx/string.h>

#include <array>
#include <cstddef>
#include <map>
#include <memory>

class wxRichTextAttr;
class wxRichTextBuffer;
class wxRichTextStyleSheet;

namespace graphics {

/// A hint has at most this many characters and its picture this many pixels; larger ones have no picture.
constexpr std::size_t kMaxHintLength = 4096;
constexpr double kMaxHintPixels = 4.0 * 1024 * 1024;
/// So much memory the pictures of hints take in all, with the texts that they are found by. Beyond that new hints have
/// no picture.
constexpr std::size_t kMaxHintBytes = std::size_t{256} << 20;

/// What the editing views draw on top of elements: hint texts with a halo, key caps and art pictures, each made once
/// and kept to the end of the process; and the style sheet of rich texts. It knows nothing of skins. Call it with the
/// toolkit's lock held.
class CSkinManager : public orlo::CObject {
public:
  /// The one of the process, made at first use.
  static CSkinManager& GetInstance();

  /// Tests make managers of their own.
  explicit CSkinManager(std::size_t maxHintBytes = kMaxHintBytes);
  ~CSkinManager() override;

  const orlo::P<CArtProvider>& GetArtProvider() const { return artProvider_; }

  // Bitmaps stay the manager's.

  /// Null if the art provider has none; it is asked again the next time.
  wxBitmap* GetArtBitmap(const wxString& name, bool flag);
  /// The text with a halo of one pixel on a transparent ground. If it is wider than maxWidth less 4 pixels the font is
  /// made smaller, down to 6 points, and then the text is broken into lines. Null beyond the limits above.
  wxBitmap* GetStyledBitmap(const wxString& text, const wxFont& font, const wxColour& textColour,
                            const wxColour& haloColour, int maxWidth);
  /// In the toolkit's normal font and one of two styles, 1 or 2. Throws wxutil::CWXError for any other.
  wxBitmap* GetStyledText(const wxString& text, int style, int maxWidth);
  /// A key cap, kept under the name. The key code isn't looked at.
  wxBitmap* MakeKeyBitmap(int keyCode, const wxString& caption, const wxString& cacheName);

  /// Stays the manager's.
  wxRichTextStyleSheet* GetStyleSheet() { return styleSheet_.get(); }
  /// The style "normal" in black.
  wxRichTextAttr DefaultTextStyle() const;
  /// A copy of the source, or a text of one empty paragraph for null; its basic style is DefaultTextStyle.
  std::unique_ptr<wxRichTextBuffer> CreateTextBuffer(const wxRichTextBuffer* source);
  /// DefaultTextStyle below what the text's basic style says itself.
  void GiveDefaultStyle(wxRichTextBuffer& text) const;

  /// The colour of the frame round an element, 0 or 1. They were never given a colour, which draws black.
  wxColour GetFrameColour(int index) const;

private:
  wxBitmap* Find(const wxString& key) const;
  wxBitmap* KeepHint(const wxString& key, const wxBitmap& picture);

  std::unique_ptr<wxRichTextStyleSheet> styleSheet_;
  std::map<wxString, std::unique_ptr<wxBitmap>> bitmaps_;
  orlo::P<CArtProvider> artProvider_;
  std::array<wxColour, 2> colours_;
  std::size_t hintBytesLeft_;
};

}  // namespace graphics
