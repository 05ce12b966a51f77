#pragma once

#include "graphics/animation/PictureAnimation.h"

namespace graphics::animation {

/// Pictures that all stay equally long.
class CAnimation : public CPictureAnimation {
public:
  /// With this delay, or any other below 1, all the pictures together take about a second.
  static constexpr std::int32_t kAutomaticDelay = -1;

  explicit CAnimation(std::int32_t delay) : delay_(delay) {}

  /// A bitmap that is not ok keeps the place of a missing picture. Throws orlo::CError beyond the limits of
  /// FrameList.h.
  void Append(const wxBitmap& frame) { Frames().Append(frame); }

  /// 0 for an empty animation without a delay of its own.
  std::int32_t GetDelay() const override;
  void Clear() override;
  /// Of the first frame.
  std::int32_t GetWidth() const override;
  std::int32_t GetHeight() const override;
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;
  orlo::P<IAnimation> CreateNew() const override;
  wxString GetTypeName() const override { return "animation"; }

private:
  std::int32_t delay_;
};

}  // namespace graphics::animation
