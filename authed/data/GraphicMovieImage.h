#pragma once

#include "authed/data/Movie.h"
#include "authed/data/MovieAnimation.h"
#include "authed/data/ScaleMode.h"
#include "graphics/animation/GraphicAnimationImage.h"
#include "graphics/skin/AnimationSource.h"
#include "graphics/skin/CustomLayerPainter.h"
#include "graphics/skin/Skin.h"
#include "graphics/skin/StatePainter.h"
#include "graphics/skin/TextSource.h"
#include "graphics/vantra/Element.h"

#include <wx/gdicmn.h>

#include <cstdint>

namespace authed::data {

/// Shows a movie: its thumbnail, or its running pictures once it has an animation. With a skin it is shown where the
/// skin has custom layers.
class CGraphicMovieImage : public graphics::animation::CGraphicAnimationImage,
                           public virtual graphics::vantra::IElement,
                           public virtual graphics::skin::ITextSource,
                           public virtual graphics::skin::IAnimationSource,
                           public virtual graphics::skin::ICustomLayerPainter {
public:
  static constexpr const char* kTypeName = "movie-image";
  /// Of movies that are played without a size of their own, if the project has none either.
  static constexpr std::int32_t kUsualSize = 600;

  /// Shared with others. Null for none.
  void SetMovie(const orlo::P<CMovie>& movie) { movie_ = movie; }
  const orlo::P<CMovie>& GetMovie() const { return movie_; }
  /// Shared with others. Null for none.
  void SetSkin(const orlo::P<graphics::skin::CSkin>& skin) { skin_ = skin; }
  const orlo::P<graphics::skin::CSkin>& GetSkin() const { return skin_; }
  /// The chapter that it begins with; 0 for the beginning of the movie.
  void SetChapter(std::int32_t chapter) { chapter_ = chapter; }
  std::int32_t GetChapter() const { return chapter_; }
  void SetScaleMode(EScaleMode mode) { scaleMode_ = mode; }
  EScaleMode GetScaleMode() const { return scaleMode_; }

  /// How large it is on the screen in pixels; 0 if nobody knows.
  void SetShownSize(const wxSize& size) { shownSize_ = size; }

  /// Makes the animation of the movie anew, which the element shows from then on. The size is the one on the screen in
  /// pixels; a number below 1 stands for the shown size, or else for the project's. Null without a movie, and for a
  /// movie that can't be described.
  orlo::P<CMovieAnimation> GetMovieAnimation(std::int32_t width, std::int32_t height);
  /// The size of thumbnails in the project, in pixels; 0 for none. With the toolkit's lock held.
  static void SetProjectSize(const wxSize& size);

  void Paint(graphics::CPaintContext& context) override;
  void PaintStill(graphics::TEffectGraphicsContext& context, const graphics::CDoubleRect& rect) override;
  void PaintCustom(graphics::skin::CCustomLayer& layer, graphics::CPaintContext& context,
                   graphics::TEffectGraphicsContext& target, const graphics::CDoubleRect& rect,
                   graphics::skin::ITextSource* texts, graphics::skin::IAnimationSource* animations) override;
  /// The title of the movie.
  wxString GetText() const override;
  wxString GetText(const wxString& /*key*/) override { return GetText(); }
  /// None: the skin shows its own pictures.
  wxBitmap* GetBitmap(const wxString& /*key*/) override { return nullptr; }
  /// Shares movie, skin and animation.
  void Assign(const graphics::CGraphicBase& other) override;
  orlo::P<graphics::CGraphicElement> Clone() const override;
  bool IsContentEmpty() const override { return !movie_; }
  wxString GetTypeName() const override { return kTypeName; }
  void WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& store) const override;
  /// Throws orlo::CException for an unknown scale mode or kind of movie.
  void ReadFromXml(const wxXmlNode& node, graphics::IResourceInputStore& store) override;

private:
  orlo::P<CMovie> movie_;
  std::int32_t chapter_ = 0;
  orlo::P<graphics::skin::CSkin> skin_;
  const orlo::P<graphics::skin::CStatePainter> painter_ = orlo::makeObject<graphics::skin::CStatePainter>();
  EScaleMode scaleMode_ = EScaleMode::width;
  wxSize shownSize_{0, 0};
};

}  // namespace authed::data
