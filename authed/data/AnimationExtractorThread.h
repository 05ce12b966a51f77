#pragma once

#include "authed/data/MovieExtractor.h"
#include "authed/data/WorkerThread.h"
#include "foundation/Base.h"

#include <cstdint>

namespace authed::data {

/// Opens an extractor, or closes one: both take their time. What goes wrong ends the thread and is told to nobody.
class CAnimationExtractorThread : public CWorkerThread {
public:
  enum class EMode : std::int32_t { open = 0, close = 1 };

  class IListener : public virtual orlo::IBase {
  public:
    /// Called on the opening thread with what it has opened: an extractor that nobody else uses yet, or one that Get
    /// gives null for. Not called once a stop has been requested.
    virtual void OnExtractorReady(const orlo::P<CMovieExtractor>& extractor) = 0;
  };

  /// How an extractor is to be opened.
  struct CStart {
    std::int32_t firstFrame = 0;
    std::int32_t flag = 1;
    /// In seconds; 0 for the beginning.
    double time = 0;
  };

  /// Opens. The extractor is prepared but not open yet.
  CAnimationExtractorThread(const orlo::P<orlo::ISignal>& stopRequest, const orlo::P<CMovieExtractor>& extractor,
                            const CStart& start, const orlo::P<IListener>& listener);
  /// Closes.
  explicit CAnimationExtractorThread(orlo::P<CMovieExtractor>&& extractor);

  /// Aborts what the extractor is doing, too.
  void RequestStop() override;

private:
  ExitCode Entry() override;
  void Open();

  orlo::P<CMovieExtractor> extractor_;
  CStart start_;
  orlo::P<IListener> listener_;
  EMode mode_;
};

}  // namespace authed::data
