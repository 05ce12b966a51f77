#pragma once

#include "filter/SubstitutePicture.h"
#include "graphics/model/Base64Resources.h"

#include <wx/bitmap.h>

#include <memory>

namespace authfilter {

/// The store of a page whose resources lie inside its XML. A bitmap that comes from a file which is gone is replaced
/// by the substitute picture "filenotfound.png" of the skin directory.
class CFilterBase64Resource : public graphics::CBase64Resources {
public:
  explicit CFilterBase64Resource(const wxString& directory) : substitute_(directory) {}

  /// An invalid bitmap, not null, if the substitute is gone too.
  std::unique_ptr<wxBitmap> ReadBitmap(const wxXmlNode& node, const wxString& name, wxFileName& file) override;
  std::unique_ptr<wxBitmap> ReadBitmapOfType(const wxXmlNode& node, const wxString& name, wxBitmapType type,
                                             wxFileName& file) override;

private:
  CSubstitutePicture substitute_;
};

}  // namespace authfilter
