#pragma once

#include "authed/data/Picture.h"
#include "foundation/Object.h"

#include <wx/string.h>

namespace authed::data {

/// A place in a movie where playing can begin.
class CChapter : public orlo::CObject {
public:
  void WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& store) const;
  void ReadFromXml(const wxXmlNode& node, graphics::IResourceInputStore& store);

  /// In seconds.
  double GetTime() const { return timestamp_; }
  void SetTime(double seconds) { timestamp_ = seconds; }
  const wxString& GetName() const { return name_; }
  void SetName(const wxString& name) { name_ = name; }
  /// Null if there is none.
  const wxBitmap* GetThumbnail() const { return thumbnail_.Get(); }
  /// A copy.
  void SetThumbnail(const wxBitmap* bitmap) { thumbnail_.Set(bitmap); }

private:
  double timestamp_ = 0;
  wxString name_;
  CPicture thumbnail_;
};

}  // namespace authed::data
