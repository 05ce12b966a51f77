#pragma once

#include "authed/data/AnimationExtractorThread.h"
#include "authed/data/Picture.h"
#include "authed/data/ScaleMode.h"
#include "foundation/Mutex.h"
#include "graphics/animation/IAnimation.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <wx/bitmap.h>
#include <wx/string.h>

#include <atomic>
#include <cstdint>
#include <string>

namespace authed::data {

/// A movie's picture may be at most so many pixels wide or high, and have so many in all.
constexpr std::int32_t kLargestMovieEdge = 16384;
constexpr std::int64_t kLargestMovieArea = std::int64_t{64} << 20;

/// How a movie is to be played.
struct CMovieAnimationSettings {
  /// The box that the backend is to fit the pictures into, in pixels; 0 for no bound.
  std::int32_t width = 0;
  std::int32_t height = 0;
  EScaleMode scaleMode = EScaleMode::width;
  /// Where it begins, in seconds.
  double startTime = 0;
};

/// URIs in UTF-8, of what the names in an infile begin at.
struct CFolders {
  std::string filters;
  std::string animations;
  std::string themes;
};

/// The running pictures of a movie. The backend makes them at the size that they are shown in; one copy brings a
/// picture from there into a bitmap, which Paint shows.
///
/// It is driven (Next, Rewind, NewThread, GetWidth, GetHeight) by one thread at a time. Start opens the movie on a
/// thread of its own and StartExtraction on the calling one; Stop closes it on a thread of its own. Until there is a
/// first picture, Paint shows the still one.
///
/// Locks: whoever holds both takes the toolkit's lock before the animation's own. The backend is never called with the
/// toolkit's lock taken here, and but for the handing over of a picture never with the animation's own, so that a
/// painter waits for no opening and no decoding. Next takes the animation's own lock alone.
class CMovieAnimation : public orlo::CObject,
                        public virtual graphics::animation::IAnimation,
                        public virtual CAnimationExtractorThread::IListener {
public:
  /// The infile may be null: then nothing is ever played. The still picture may be null, too. The folders are those for
  /// Start.
  CMovieAnimation(const orlo::P<vantra::infilexml::CInfile>& infile, const wxBitmap* still,
                  const CMovieAnimationSettings& settings, const CFolders& folders = {});
  ~CMovieAnimation() override;

  /// The next calls come from the calling thread.
  virtual void NewThread();

  /// Opens the movie and shows its first picture. The rate is the host's frames a second. The folders are URIs: of
  /// filters, of animations, of themes. False, and the still picture stays, if there is nothing to play. Throws
  /// wxutil::CWXError without a backend library, CVantraError if the backend can't make a context, and CError for what
  /// the backend throws. The toolkit's lock need not be held, and better isn't: others paint meanwhile.
  bool StartExtraction(std::int64_t frameRateNum, std::int64_t frameRateDen, std::int32_t firstFrame, std::int32_t flag,
                       const wxString& filterDir, const wxString& animationDir, const wxString& themeDir);

  /// Another number whenever Paint would show another picture than before. Needs no lock.
  std::uint64_t GetPictureNumber() const { return pictureNumber_; }
  /// Plays at half the speed from the next Start on.
  void SetFast(bool fast);

  // IAnimation.

  /// Back to where it began.
  void Rewind() override;
  /// True if there is another picture than before. What the backend throws counts as none.
  bool Next() override;
  const wxBitmap* GetFirstFrame() const override { return still_.Get(); }
  /// Null as long as no movie is open. Who wants a wxImage of it makes a CBitmapSurface on it before each.
  const wxBitmap* GetCurrentFrame() const override;
  void SetLoop(bool /*loop*/) override {}
  bool GetLoop() const override { return false; }
  /// As it is measured between the first two pictures, until then 40.
  std::int32_t GetDelay() const override;
  void Clear() override {}
  bool IsEmpty() const override { return false; }
  std::int32_t GetWidth() const override;
  std::int32_t GetHeight() const override;
  void WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, graphics::IResourceInputStore& store) override;
  /// Returns at once. IsStarted tells when the movie is open; if it can't be opened, it never is.
  void Start() override;
  bool IsStarted() const override;
  void Stop() override;
  void Paint(graphics::TEffectGraphicsContext& context, const graphics::CDoubleRect& rect) const override;
  orlo::P<IAnimation> CreateNew() const override;
  wxString GetTypeName() const override { return "movie"; }

  void OnExtractorReady(const orlo::P<CMovieExtractor>& extractor) override;

private:
  /// An opening that is under way.
  struct COpening {
    orlo::P<orlo::ISignal> stop;
    orlo::P<CMovieExtractor> extractor;
  };

  /// Frames a second; without one if both are 0.
  struct CRate {
    std::int32_t num = 0;
    std::int32_t den = 0;
  };

  static CRate RateOf(std::int64_t num, std::int64_t den);
  orlo::P<CMovieExtractor> FindExtractor() const;
  orlo::P<CMovieExtractor> Prepare(const CFolders& folders, const CRate& rate) const;
  bool Take(const orlo::P<CMovieExtractor>& extractor, const wxSize& size, const orlo::P<CMovieExtractor>& expected);
  void Fail(const orlo::P<CMovieExtractor>& extractor);
  void AbortOpening();
  void MeasureDelay(bool isNew, double time);
  void CopyFrame(CMovieExtractor& extractor);
  std::int32_t Ask(std::int32_t (vantra::IAnimationExtractor::*operation)()) const;
  void ForgetTimes();
  std::int32_t GetMaxWidth() const;

  const orlo::P<vantra::infilexml::CInfile> infile_;
  const orlo::P<orlo::IMutex> lock_ = orlo::getMutexFactory()->createMutex();
  const CMovieAnimationSettings settings_;
  CPicture still_;
  /// For Start.
  const CFolders folders_;

  // Under the lock from here on.
  orlo::P<CMovieExtractor> extractor_;
  COpening opening_;
  std::int32_t maxWidth_ = 400;
  bool fast_ = false;
  wxBitmap frame_;
  graphics::CBitmapSurface frameSurface_;
  /// The frame holds a picture.
  bool hasPicture_ = false;
  double frameDelay_ = -1.0;
  double lastTime_ = -1.0;

  std::atomic<std::uint64_t> pictureNumber_{0};
};

}  // namespace authed::data
