#pragma once

#include <wx/bitmap.h>
#include <wx/filename.h>

#include <optional>

namespace authfilter {

/// The picture "filenotfound.png" of the skin directory, which stands for all that are gone.
class CSubstitutePicture {
public:
  explicit CSubstitutePicture(const wxString& directory) : file_(directory, "filenotfound.png") {}

  /// Loaded once, however many are gone. Invalid if the substitute is gone too.
  const wxBitmap& Get();

private:
  wxFileName file_;
  std::optional<wxBitmap> bitmap_;
};

}  // namespace authfilter
