#include "authed/data/GraphicMovieImage.h"

#include "authed/data/LayerContent.h"
#include "authed/data/Thumbnail.h"
#include "foundation/Cast.h"
#include "graphics/elements/CloneOf.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/ResourceStore.h"
#include "graphics/paint/EffectDC.h"

#include <algorithm>

namespace authed::data {

using namespace graphics;

namespace {

constexpr const char* kChapter = "chapter";
constexpr const char* kScaleMode = "scale-mode";
constexpr const char* kSkin = "skin";
constexpr const char* kMovie = "movie";

wxSize projectSize(0, 0);

std::int32_t SizeOf(std::int32_t wanted, std::int32_t shown, std::int32_t project) {
  const std::int32_t size = wanted >= 1 ? wanted : shown >= 1 ? shown : project;
  return std::min(size >= 1 ? size : CGraphicMovieImage::kUsualSize, kLargestMovieEdge);
}

/// Height over width, 0 if nobody knows.
double ProportionOf(const CMovie& movie) {
  if (movie.width > 0 && movie.height > 0) return static_cast<double>(movie.height) / movie.width;
  if (const wxBitmap* const picture = movie.thumbnail.Get())
    return static_cast<double>(picture->GetHeight()) / picture->GetWidth();
  return 0;
}

/// The box in which the backend's pictures come out as large as they are shown in a box of that size. The movie may
/// have a smaller one. A side of 0 is one that the pictures may go beyond.
wxSize BoxFor(EScaleMode mode, const wxSize& size, const wxSize& ofMovie, double proportion) {
  switch (mode) {
    case EScaleMode::height:
      return {0, size.y};
    case EScaleMode::fitting:
      return proportion > 0 && size.x * proportion < size.y ? wxSize(0, size.y) : wxSize(size.x, 0);
    default:
      return {std::min(size.x, ofMovie.x), std::min(size.y, ofMovie.y)};
  }
}

}  // namespace

void CGraphicMovieImage::SetProjectSize(const wxSize& size) {
  projectSize = size;
}

orlo::P<CMovieAnimation> CGraphicMovieImage::GetMovieAnimation(std::int32_t width, std::int32_t height) {
  SetAnimation(nullptr);
  if (!movie_) return nullptr;
  CThumbnailRequest request;
  const wxSize size(SizeOf(width, shownSize_.x, projectSize.x), SizeOf(height, shownSize_.y, projectSize.y));
  request.params.width = size.x;
  request.params.height = size.y;
  const auto infile = movie_->CreateThumbnailInfile(request);
  if (!infile) return nullptr;
  const CChapter* const chapter = movie_->FindChapter(chapter_);
  CMovieAnimationSettings settings;
  const wxSize ofMovie(request.params.width, request.params.height);
  const wxSize box = BoxFor(scaleMode_, size, ofMovie, ProportionOf(*movie_));
  settings.width = box.x;
  settings.height = box.y;
  settings.scaleMode = scaleMode_;
  settings.startTime = chapter ? chapter->GetTime() : 0;
  const CFolders folders{request.filterDir, request.animationDir, request.themeDir};
  const auto animation = orlo::makeObject<CMovieAnimation>(infile, movie_->thumbnail.Get(), settings, folders);
  SetAnimation(animation);
  return animation;
}

void CGraphicMovieImage::Paint(CPaintContext& context) {
  const orlo::P<skin::CState> state = skin_ ? skin_->FindState("normal") : nullptr;
  if (!state) return CGraphicAnimationImage::Paint(context);
  CSmoothEffectDC dc(*context.dc);
  painter_->Paint(*state, context, *dc.CreateEffectContext(), FrameOf(*this), this, this, this);
  dc.Flush();
}

void CGraphicMovieImage::PaintStill(TEffectGraphicsContext& context, const CDoubleRect& rect) {
  if (!movie_) return;
  if (HasAnimation()) return CGraphicAnimationImage::PaintStill(context, rect);
  if (const wxBitmap* const picture = movie_->thumbnail.Get()) PaintThumbnail(context, rect, *picture, scaleMode_);
}

void CGraphicMovieImage::PaintCustom(skin::CCustomLayer& layer, CPaintContext& context, TEffectGraphicsContext& target,
                                     const CDoubleRect& rect, skin::ITextSource* /*texts*/,
                                     skin::IAnimationSource* /*animations*/) {
  PaintInLayer(layer, context, target, rect, *this, *this,
               [&](CPaintContext& clone) { CGraphicAnimationImage::Paint(clone); });
}

wxString CGraphicMovieImage::GetText() const {
  return movie_ ? movie_->title : CGraphicAnimationImage::GetText();
}

void CGraphicMovieImage::Assign(const CGraphicBase& other) {
  CGraphicAnimationImage::Assign(other);
  const auto* const image = dynamic_cast<const CGraphicMovieImage*>(&other);
  if (!image) return;
  movie_ = image->movie_;
  chapter_ = image->chapter_;
  skin_ = image->skin_;
  scaleMode_ = image->scaleMode_;
}

orlo::P<CGraphicElement> CGraphicMovieImage::Clone() const {
  return CloneOf(*this);
}

void CGraphicMovieImage::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicAnimationImage::WriteToXml(node, store);
  if (chapter_ > 0) xml::WriteInt(node, kChapter, chapter_);
  xml::WriteText(node, kScaleMode, WordOf(scaleMode_));
  if (skin_) skin::WriteSkin(node, kSkin, *skin_, store);
  if (movie_)
    store.WriteResource(xml::AppendChild(node, kMovie), GetMovieTypeName(movie_->GetMovieType()), movie_.get());
}

void CGraphicMovieImage::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicAnimationImage::ReadFromXml(node, store);
  xml::ReadInt(node, kChapter, chapter_);
  if (wxString word; xml::ReadText(node, kScaleMode, word) && !word.empty()) scaleMode_ = ScaleModeOf(word);
  skin::ReadSkin(node, kSkin, skin_, store);
  const wxXmlNode* const child = xml::FindChild(node, kMovie);
  if (!child) return;
  const wxString type = store.GetResourceType(*child);
  movie_ = orlo::tryCast<CMovie>(store.ReadResource(*child, type, CreateMovie(GetMovieType(type))));
}

}  // namespace authed::data
