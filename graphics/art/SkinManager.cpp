#include "graphics/art/SkinManager.h"

#include "foundation/Singleton.h"
#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXError.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/art/HintPicture.h"
#include "graphics/art/KeyPicture.h"
#include "graphics/art/StyleSheet.h"
#include "graphics/paint/Toolkit.h"

#include <wx/gdicmn.h>
#include <wx/richtext/richtextbuffer.h>
#include <wx/richtext/richtextstyles.h>

#include <mutex>

namespace graphics {

namespace {

wxString HintKey(const wxString& text, const wxFont& font, const wxColour& textColour, const wxColour& haloColour,
                 int maxWidth) {
  // Not by name: without a display the toolkit has no table of names.
  const auto valuesOf = [](const wxColour& colour) { return colour.GetAsString(wxC2S_CSS_SYNTAX); };
  return wxString() << text << '/' << font.GetNativeFontInfoDesc() << '/' << valuesOf(textColour) << '/'
                    << valuesOf(haloColour) << '/' << maxWidth;
}

}  // namespace

CSkinManager& CSkinManager::GetInstance() {
  // Taken before the lock under which singletons are made, as everywhere.
  const CToolkitLock lock;
  static orlo::TSingleton<CSkinManager> singleton;
  return *singleton.get([] { return orlo::makeObject<CSkinManager>(); });
}

CSkinManager::CSkinManager(std::size_t maxHintBytes)
    : styleSheet_(MakeStyleSheet()), artProvider_(orlo::makeObject<CArtProvider>()), hintBytesLeft_(maxHintBytes) {
  const auto makeKey = [this](wxKeyCode code, const wxString& name, const char* textKey, const char* caption) {
    MakeKeyBitmap(code, wxutil::toWxString(orlo::localize(textKey, caption)), name);
  };
  makeKey(WXK_ALT, "KEY_ALT", "graphics.Keyname.Alt", "Alt");
  makeKey(WXK_ESCAPE, "KEY_ESC", "graphics.Keyname.Esc", "Esc");
  makeKey(WXK_CONTROL, "KEY_CONTROL", "graphics.Keyname.Ctrl", "Ctrl");
  makeKey(WXK_SHIFT, "KEY_SHIFT", "graphics.Keyname.Shift", "Shift");
}

CSkinManager::~CSkinManager() {
  // The process may be at its end, and another thread may still draw.
  const std::lock_guard lock(ToolkitLock());
  bitmaps_.clear();
  styleSheet_.reset();
  for (wxColour& colour : colours_) colour = wxColour();
}

wxBitmap* CSkinManager::Find(const wxString& key) const {
  const auto found = bitmaps_.find(key);
  return found == bitmaps_.end() ? nullptr : found->second.get();
}

wxBitmap* CSkinManager::GetArtBitmap(const wxString& name, bool flag) {
  const wxString key = flag ? name : '-' + name;
  if (wxBitmap* const known = Find(key)) return known;
  return (bitmaps_[key] = artProvider_->GetBitmap(name, flag)).get();
}

wxBitmap* CSkinManager::GetStyledBitmap(const wxString& text, const wxFont& font, const wxColour& textColour,
                                        const wxColour& haloColour, int maxWidth) {
  if (text.length() > kMaxHintLength) return nullptr;
  const auto keyFor = [&](const wxFont& used) { return HintKey(text, used, textColour, haloColour, maxWidth); };
  if (wxBitmap* const known = Find(keyFor(font))) return known;
  CHintLayout layout(text, font);
  while (layout.IsWiderThan(maxWidth) && layout.CanShrink()) layout.Shrink();
  const wxString key = keyFor(layout.Font());
  if (wxBitmap* const known = Find(key)) return known;
  if (layout.IsWiderThan(maxWidth)) layout.Wrap(maxWidth);
  const auto picture = layout.Draw(textColour, haloColour, kMaxHintPixels);
  return picture ? KeepHint(key, *picture) : nullptr;
}

wxBitmap* CSkinManager::KeepHint(const wxString& key, const wxBitmap& picture) {
  constexpr std::size_t kBytesPerPixel = 4;
  const std::size_t pixels =
      static_cast<std::size_t>(picture.GetWidth()) * static_cast<std::size_t>(picture.GetHeight());
  const std::size_t bytes = pixels * kBytesPerPixel + key.length() * sizeof(wxChar);
  if (bytes > hintBytesLeft_) return nullptr;
  hintBytesLeft_ -= bytes;
  return (bitmaps_[key] = std::make_unique<wxBitmap>(picture)).get();
}

wxBitmap* CSkinManager::GetStyledText(const wxString& text, int style, int maxWidth) {
  const wxColour textColour(50, 50, 50, 255);
  switch (style) {
    case 1:
      return GetStyledBitmap(text, *wxNORMAL_FONT, textColour, {230, 230, 230, 255}, maxWidth);
    case 2:
      return GetStyledBitmap(text, *wxNORMAL_FONT, textColour, {200, 200, 200, 255}, maxWidth);
    default:
      throw wxutil::CWXError("CSkinManager.GetStyledText: Unknown style");
  }
}

wxBitmap* CSkinManager::MakeKeyBitmap(int /*keyCode*/, const wxString& caption, const wxString& cacheName) {
  if (wxBitmap* const known = Find(cacheName)) return known;
  return (bitmaps_[cacheName] = std::make_unique<wxBitmap>(MakeKeyPicture(caption))).get();
}

wxRichTextAttr CSkinManager::DefaultTextStyle() const {
  wxRichTextAttr style = styleSheet_->FindParagraphStyle("Normal")->GetStyle();
  style.SetTextColour(*wxBLACK);
  return style;
}

std::unique_ptr<wxRichTextBuffer> CSkinManager::CreateTextBuffer(const wxRichTextBuffer* source) {
  auto buffer = source ? std::make_unique<wxRichTextBuffer>(*source) : std::make_unique<wxRichTextBuffer>();
  if (!source) buffer->AddParagraph(wxEmptyString);
  buffer->SetBasicStyle(DefaultTextStyle());
  return buffer;
}

void CSkinManager::GiveDefaultStyle(wxRichTextBuffer& text) const {
  wxRichTextAttr style = DefaultTextStyle();
  style.Apply(text.GetBasicStyle());
  text.SetBasicStyle(style);
}

wxColour CSkinManager::GetFrameColour(int index) const {
  const wxColour& colour = colours_.at(static_cast<std::size_t>(index));
  return colour.IsOk() ? colour : *wxBLACK;
}

}  // namespace graphics
