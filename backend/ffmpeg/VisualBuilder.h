#pragma once

#include "backend/ffmpeg/Composition.h"
#include "backend/ffmpeg/MovieStore.h"
#include "backend/ffmpeg/VideoClip.h"
#include "backend/infilexml/Infile.h"
#include "backend/infilexml/Theme.h"
#include "backend/infilexml/Video.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vantra::ffmpeg {

struct CThemeDescription;
struct CThemePlace;

/// Where locations begin that are not whole; null for the current folder.
struct CBases {
  orlo::PC<orlo::IURI> movies;
  orlo::PC<orlo::IURI> themes;
};

/// Makes what is played of an infile. The store and the flag live as long as what is made.
class CVisualBuilder {
public:
  CVisualBuilder(CMovieStore& store, const std::atomic<bool>& closed, CBases bases)
      : store_(store), closed_(closed), bases_(std::move(bases)) {}

  /// Throws CFailure, and what reading an infile throws. Null if it shows nothing.
  std::unique_ptr<IVisual> Build(std::string_view infileText);

  /// All that can be seen by itself.
  const std::vector<ILeaf*>& GetLeaves() const { return leaves_; }
  /// The first thing that was left out, empty for nothing.
  const std::string& GetSkipped() const { return skipped_; }

private:
  std::unique_ptr<CComposition> BuildList(const infilexml::CTracklist& list);
  std::unique_ptr<IVisual> BuildItem(const infilexml::CTrackItem& item);
  std::unique_ptr<IVisual> BuildVideo(const infilexml::CVideo& video);
  std::unique_ptr<IVisual> BuildTheme(const infilexml::CTheme& theme);
  std::unique_ptr<IVisual> BuildPlace(const CThemePlace& place, const infilexml::CTheme& theme);
  std::unique_ptr<IVisual> BuildClip(const std::string& path, const CLook& look, double begin, double length);
  void Skip(const std::string& what);
  void CountItem();
  void CountText(std::size_t bytes);

  CMovieStore& store_;
  const std::atomic<bool>& closed_;
  CBases bases_;
  std::vector<ILeaf*> leaves_;
  std::string skipped_;
  int depth_ = 0;
  std::size_t items_ = 0;
  std::size_t bytes_ = 0;
};

}  // namespace vantra::ffmpeg
