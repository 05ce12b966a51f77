#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "foundation/URI.h"

#include <wx/filename.h>

#include <string>

namespace authed::data {

struct CThumbnailRequest;

/// The folders that the backend needs for thumbnails outside of a filter, empty unless the application sets them. To be
/// set before any movie starts: nothing locks.
class CPathManager : public orlo::CObject {
public:
  static CPathManager& GetInstance();

  wxFileName GetFirstPath() const { return first_; }
  wxFileName GetSecondPath() const { return second_; }
  /// Of theme files.
  wxFileName GetThirdPath() const { return third_; }
  void SetPaths(const wxFileName& first, const wxFileName& second, const wxFileName& third);

private:
  wxFileName first_;
  wxFileName second_;
  wxFileName third_;
};

/// Of a file or folder; null for an empty name.
orlo::P<orlo::IURI> UriOf(const wxFileName& file);
/// Its text in UTF-8, "file:///c:/" for an empty name.
std::string UriTextOf(const wxFileName& folder);
/// The three folders as texts, and the parameters that point to them.
void FillPaths(CThumbnailRequest& request);

}  // namespace authed::data
