#pragma once

#include <wx/bitmap.h>
#include <wx/string.h>

#include <memory>

class wxXmlNode;

namespace graphics {
class IResourceInputStore;
class IResourceOutputStore;
}  // namespace graphics

namespace authed::data {

/// A picture that may be missing, and belongs to one owner.
class CPicture {
public:
  CPicture() = default;
  CPicture(const CPicture& other) { Set(other.Get()); }
  CPicture& operator=(const CPicture& other);
  ~CPicture() = default;

  /// Null if it is missing.
  const wxBitmap* Get() const { return bitmap_.get(); }
  /// A copy; none for null and for a bitmap that isn't ok.
  void Set(const wxBitmap* bitmap);

  /// Nothing for a missing one.
  void WriteToXml(wxXmlNode& node, const wxString& name, graphics::IResourceOutputStore& store) const;
  /// Stays as it is if the store has none.
  void ReadFromXml(const wxXmlNode& node, const wxString& name, graphics::IResourceInputStore& store);

private:
  std::unique_ptr<wxBitmap> bitmap_;
};

}  // namespace authed::data
