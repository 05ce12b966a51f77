#pragma once

#include "foundation/Object.h"

#include <wx/bitmap.h>
#include <wx/filename.h>
#include <wx/string.h>

#include <memory>

namespace graphics {

/// The way to the pictures of the authoring views, by file name.
class IArtProvider : public virtual orlo::IBase {
public:
  virtual void SetPath(const wxFileName& directory) = 0;
  virtual wxFileName GetPath() const = 0;
  /// Null if there is no such picture or it is damaged. Grey and coloured pictures are the same file.
  virtual std::unique_ptr<wxBitmap> GetBitmap(const wxString& name, bool coloured) = 0;
};

/// Takes the pictures from one directory. Call it with the toolkit's lock held.
class CArtProvider : public orlo::CObject, public IArtProvider {
public:
  void SetPath(const wxFileName& directory) override { path_ = directory; }
  wxFileName GetPath() const override { return path_; }
  std::unique_ptr<wxBitmap> GetBitmap(const wxString& name, bool coloured) override;

private:
  wxFileName path_;
};

}  // namespace graphics
