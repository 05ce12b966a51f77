#include "authed/data/AnimationExtractorThread.h"

#include "authed/data/Error.h"

#include <utility>

namespace authed::data {

CAnimationExtractorThread::CAnimationExtractorThread(const orlo::P<orlo::ISignal>& stopRequest,
                                                     const orlo::P<CMovieExtractor>& extractor, const CStart& start,
                                                     const orlo::P<IListener>& listener)
    : CWorkerThread(stopRequest), extractor_(extractor), start_(start), listener_(listener), mode_(EMode::open) {}

CAnimationExtractorThread::CAnimationExtractorThread(orlo::P<CMovieExtractor>&& extractor)
    : CWorkerThread(orlo::getSignalFactory()->createSignal()), extractor_(std::move(extractor)), mode_(EMode::close) {}

void CAnimationExtractorThread::RequestStop() {
  CWorkerThread::RequestStop();
  extractor_->Close();
}

wxThread::ExitCode CAnimationExtractorThread::Entry() {
  if (mode_ == EMode::close) {
    extractor_->Close();
    return nullptr;
  }
  try {
    Open();
  } catch (...) {
    static_cast<void>(CError::OfCurrent());
    extractor_->Clear();
  }
  return nullptr;
}

void CAnimationExtractorThread::Open() {
  extractor_->Open(start_.firstFrame, start_.flag);
  vantra::IAnimationExtractor* const backend = extractor_->Get();
  if (backend && start_.time > 0 && !IsStopRequested()) {
    backend->Seek(start_.time, CMovieExtractor::kSeekToFrame);
    backend->Start();
  }
  if (!IsStopRequested()) listener_->OnExtractorReady(extractor_);
}

}  // namespace authed::data
