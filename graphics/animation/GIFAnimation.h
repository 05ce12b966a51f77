#pragma once

#include "graphics/animation/PictureAnimation.h"

#include <wx/gdicmn.h>

#include <vector>

namespace graphics::animation {

/// The pictures of a GIF file, each with its own delay.
class CGIFAnimation : public CPictureAnimation {
public:
  /// Appends the pictures of a file, as they look with what the frames before them left behind, and takes over its
  /// size. Whoever wants this file alone calls Clear first. What a damaged or truncated file still holds is shown.
  /// False, and the animation stays as it was, if there is no such file, if it has no frame, or beyond the limits of
  /// FrameList.h.
  virtual bool LoadFile(const wxString& path);
  /// Why the last LoadFile said false; empty if it didn't.
  const wxString& GetLoadError() const { return loadError_; }

  /// -1 for a frame that said nothing, 0 for a position past the end.
  std::int32_t GetDelay() const override;
  /// The position stays where it is.
  void Clear() override;
  /// Of the logical screen of the file.
  std::int32_t GetWidth() const override { return size_.x; }
  std::int32_t GetHeight() const override { return size_.y; }
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;
  orlo::P<IAnimation> CreateNew() const override;
  wxString GetTypeName() const override { return "gif"; }

private:
  void Load(const wxString& path);

  wxSize size_ = wxDefaultSize;
  std::vector<std::int32_t> delays_;
  wxString loadError_;
};

}  // namespace graphics::animation
