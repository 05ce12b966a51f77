#pragma once

#include "authed/data/GraphicMovieImage.h"
#include "filter/FilterZipResource.h"
#include "filter/Layer.h"
#include "graphics/geometry/Transform.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <wx/bitmap.h>
#include <wx/string.h>
#include <wx/xml/xml.h>
#include <wx/zipstrm.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace authfilter {

/// One instance of the filter: what the host has set, the page, and the frame. The host serialises its calls.
struct CInfoStore {
  static constexpr std::size_t kErrorSize = 512;

  CInfoStore() = default;
  ~CInfoStore();
  CInfoStore(const CInfoStore&) = delete;
  CInfoStore& operator=(const CInfoStore&) = delete;

  /// Loads the page and builds its layers; a second call does nothing. Without a size, or with a page whose aspect
  /// ratio is too far from the frame's, there are no layers. What is thrown half way leaves an instance that may be
  /// closed and released.
  void Open();
  void Close();
  /// Moves all layers on by one frame.
  void NextFrame();
  void SetInputImage(const void* pixels, std::int32_t stride);
  /// Paints the frame if it is stale and gives access to its pixels until EndReadFrame. Without a frame the data is
  /// null.
  graphics::CPixels BeginReadFrame();
  void EndReadFrame();
  void NewThread();

  std::int32_t width = 0;
  std::int32_t height = 0;
  double duration = 0.0;
  /// A text that fills it is not terminated.
  std::array<char, kErrorSize> lastError{};
  wxString skinPath;
  bool noAlpha = false;
  /// Movies stand still, and no backend is needed. To be set before Open.
  bool noMovies = false;
  bool stateSet = false;
  wxString state;
  std::int64_t frameRateNum = 0;
  std::int64_t frameRateDen = 0;
  std::unique_ptr<wxXmlDocument> pluginData = std::make_unique<wxXmlDocument>();
  std::vector<orlo::P<CLayer>> layers;
  /// The page's movie images, and null for each mirror: all that have a layer for what moves.
  std::vector<orlo::P<authed::data::CGraphicMovieImage>> movieImages;
  /// The frame, and the surface that is its memory.
  std::unique_ptr<wxBitmap> pageBitmap;
  std::optional<graphics::CBitmapSurface> pageSurface;
  bool opened = false;
  bool repaint = true;
  /// The frame shows all layers over black: a repaint under noAlpha needs to paint only where a layer has changed.
  bool paintedOnBlack = false;
  graphics::CTransform pageTransform;
  wxString filterBaseDir;
  wxString animationBaseDir;
  wxString themeBaseDir;
  std::optional<graphics::CPixels> pixelAccess;
  /// The archive of the parameter "attachments", which owns its file, and the store that reads it; null without one.
  std::unique_ptr<wxZipInputStream> attachmentZip;
  orlo::P<CFilterZipResource> resourceStore;
  const std::uint8_t* inputPixels = nullptr;
  std::int32_t inputStride = 0;

private:
  bool PrepareFrame();
  void Repaint();
  CDirtyRegion ChangedRegion(const CPageGeometry& geometry) const;

  /// What lies below every row of a page on black.
  std::vector<std::uint32_t> blackRow_;
  std::optional<CCanvas> canvas_;
};

}  // namespace authfilter
