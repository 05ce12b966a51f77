#pragma once

#include "filter/SubstitutePicture.h"
#include "graphics/model/ZipCatalogue.h"

namespace authfilter {

/// The store of a page whose resources lie in an archive. A picture that the page names and that cannot be had of the
/// archive is replaced by the substitute.
class CFilterZipResource : public graphics::CZipCatalogue {
public:
  using CZipCatalogue::CZipCatalogue;

  /// The directory that the substitute lies in.
  void SetSkinPath(const wxString& directory) { substitute_ = CSubstitutePicture(directory); }

  /// Null if the page names no picture, or if the substitute is gone too.
  std::unique_ptr<wxBitmap> ReadBitmap(const wxXmlNode& node, const wxString& name, wxFileName& file) override;
  std::unique_ptr<wxBitmap> ReadBitmapOfType(const wxXmlNode& node, const wxString& name, wxBitmapType type,
                                             wxFileName& file) override;

private:
  std::unique_ptr<wxBitmap> OrSubstitute(std::unique_ptr<wxBitmap> bitmap, const wxXmlNode& node, const wxString& name);

  CSubstitutePicture substitute_{wxString()};
};

}  // namespace authfilter
