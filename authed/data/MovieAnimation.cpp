#include "authed/data/MovieAnimation.h"

#include "authed/data/Error.h"
#include "authed/data/ResolveShaders.h"
#include "authed/data/Thumbnail.h"
#include "foundation/Error.h"
#include "graphics/geometry/Truncate.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/paint/Toolkit.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <utility>

namespace authed::data {

using namespace graphics;
using vantra::IAnimationExtractor;

namespace {

constexpr const char* kMaxWidth = "max-width";
constexpr double kUnknown = -1.0;
constexpr std::int32_t kUsualDelay = 40;
constexpr double kFastSpeed = 0.5;
constexpr double kMillisecondsPerSecond = 1000.0;

constexpr std::size_t kBytesPerPixel = 4;

/// What the backend throws reaches callers as an error of this module.
template <class Call>
auto Translated(Call call) {
  try {
    return call();
  } catch (const orlo::CException&) {
    throw;
  } catch (...) {
    throw CError::OfCurrent();
  }
}

wxSize SizeOf(IAnimationExtractor& backend) {
  const std::int32_t width = backend.GetWidth();
  return {width, backend.GetHeight()};
}

bool IsPictureSize(const wxSize& size) {
  return size.x >= 1 && size.y >= 1 && size.x <= kLargestMovieEdge && size.y <= kLargestMovieEdge &&
         std::int64_t{size.x} * size.y <= kLargestMovieArea;
}

}  // namespace

CMovieAnimation::CMovieAnimation(const orlo::P<vantra::infilexml::CInfile>& infile, const wxBitmap* still,
                                 const CMovieAnimationSettings& settings, const CFolders& folders)
    : infile_(infile), settings_(settings), folders_(folders) {
  still_.Set(still);
}

/// The last one to let go may be the thread that has opened the movie.
CMovieAnimation::~CMovieAnimation() {
  Quietly([&] { CMovieAnimation::Stop(); });
  const CToolkitLock toolkit;
  still_.Set(nullptr);
}

void CMovieAnimation::NewThread() {
  if (const orlo::P<CMovieExtractor> extractor = FindExtractor()) Translated([&] { extractor->AnswerToThisThread(); });
}

bool CMovieAnimation::StartExtraction(std::int64_t frameRateNum, std::int64_t frameRateDen, std::int32_t firstFrame,
                                      std::int32_t flag, const wxString& filterDir, const wxString& animationDir,
                                      const wxString& themeDir) {
  Stop();
  ForgetTimes();
  if (!infile_) return false;
  const CFolders folders{filterDir.utf8_string(), animationDir.utf8_string(), themeDir.utf8_string()};
  return Translated([&] {
    const orlo::P<CMovieExtractor> extractor = Prepare(folders, RateOf(frameRateNum, frameRateDen));
    extractor->Open(firstFrame, flag);
    IAnimationExtractor* const backend = extractor->Get();
    if (!backend) return false;
    if (settings_.startTime > 0) backend->Seek(settings_.startTime, CMovieExtractor::kSeekToFrame);
    backend->Start();
    const bool isThere = backend->Advance();
    const wxSize size = SizeOf(*backend);
    extractor->AnswerToThisThread();
    if (!Take(extractor, size, nullptr)) return false;
    if (isThere) CopyFrame(*extractor);
    return true;
  });
}

/// The same rate, or nearly so, in numbers of 32 bits; without a rate if one of them is below 0.
CMovieAnimation::CRate CMovieAnimation::RateOf(std::int64_t num, std::int64_t den) {
  constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
  if (num < 0 || den < 0) return {};
  for (; num > kLargest || den > kLargest; num /= 2) den /= 2;
  return {static_cast<std::int32_t>(num), static_cast<std::int32_t>(den)};
}

void CMovieAnimation::SetFast(bool fast) {
  const orlo::CMutexLock guard(lock_);
  fast_ = fast;
}

void CMovieAnimation::Start() {
  ForgetTimes();
  AbortOpening();
  if (!infile_) return;
  Quietly([&] {
    const COpening opening{orlo::getSignalFactory()->createSignal(), Prepare(folders_, {})};
    std::unique_ptr<CWorkerThread> thread = std::make_unique<CAnimationExtractorThread>(
        opening.stop, opening.extractor, CAnimationExtractorThread::CStart{0, 1, settings_.startTime}, this);
    {
      const orlo::CMutexLock guard(lock_);
      opening_ = opening;
    }
    if (!CWorkerThread::Start(thread)) AbortOpening();
  });
}

void CMovieAnimation::OnExtractorReady(const orlo::P<CMovieExtractor>& extractor) {
  IAnimationExtractor* const backend = extractor->Get();
  if (!backend) return Fail(extractor);
  bool fast = false;
  {
    const orlo::CMutexLock guard(lock_);
    fast = fast_;
  }
  if (fast) backend->SetSpeed(kFastSpeed);
  extractor->AnswerToThisThread();
  backend->Start();
  if (!Take(extractor, SizeOf(*backend), extractor)) Fail(extractor);
}

/// Without an answer to the listener's caller: an opening that has been replaced meanwhile is nothing to stop for.
void CMovieAnimation::Fail(const orlo::P<CMovieExtractor>& extractor) {
  bool isCurrent = false;
  {
    const orlo::CMutexLock guard(lock_);
    isCurrent = opening_.extractor == extractor;
    if (isCurrent) opening_ = {};
  }
  if (isCurrent) Stop();
}

bool CMovieAnimation::Next() {
  const orlo::P<CMovieExtractor> extractor = FindExtractor();
  if (!extractor) return false;
  bool isNew = false;
  Quietly([&] {
    isNew = extractor->Get()->Advance();
    MeasureDelay(isNew, extractor->Get()->GetTime());
  });
  if (isNew) CopyFrame(*extractor);
  return isNew;
}

void CMovieAnimation::MeasureDelay(bool isNew, double time) {
  const orlo::CMutexLock guard(lock_);
  if (isNew && lastTime_ != kUnknown && !(frameDelay_ > 0)) frameDelay_ = (time - lastTime_) * kMillisecondsPerSecond;
  lastTime_ = time;
}

/// The one copy of each picture on its way from the decoder to the page.
void CMovieAnimation::CopyFrame(CMovieExtractor& extractor) {
  Quietly([&] {
    const orlo::CMutexLock guard(lock_);
    if (extractor_.get() != &extractor) return;
    IAnimationExtractor& backend = *extractor.Get();
    const CPixels& frame = frameSurface_.Pixels();
    if (backend.GetWidth() != frame.width || backend.GetHeight() != frame.height) return;
    const std::uint8_t* pixels = nullptr;
    std::int32_t stride = 0;
    backend.LockFrame(&pixels, &stride);
    if (const std::size_t bytes = kBytesPerPixel * static_cast<std::size_t>(frame.width);
        pixels && stride >= static_cast<std::int32_t>(bytes)) {
      frameSurface_.Flush();
      for (int y = 0; y < frame.height; ++y)
        std::memcpy(frame.Row(y), pixels + static_cast<std::ptrdiff_t>(y) * stride, bytes);
      frameSurface_.MarkDirty();
      hasPicture_ = true;
      ++pictureNumber_;
    }
    backend.UnlockFrame();
  });
}

void CMovieAnimation::Rewind() {
  const orlo::P<CMovieExtractor> extractor = FindExtractor();
  if (!extractor) return;
  Quietly([&] { extractor->Get()->Seek(std::max(settings_.startTime, 0.0), CMovieExtractor::kSeekToFrame); });
  const orlo::CMutexLock guard(lock_);
  lastTime_ = kUnknown;
}

void CMovieAnimation::Stop() {
  AbortOpening();
  orlo::P<CMovieExtractor> extractor;
  {
    const CToolkitLock toolkit;
    const orlo::CMutexLock guard(lock_);
    extractor.swap(extractor_);
    if (hasPicture_) ++pictureNumber_;
    hasPicture_ = false;
    frameSurface_ = {};
    frame_ = wxNullBitmap;
  }
  if (!extractor) return;
  std::unique_ptr<CWorkerThread> thread = std::make_unique<CAnimationExtractorThread>(std::move(extractor));
  // Without a thread it is closed here.
  if (!CWorkerThread::Start(thread)) thread->RequestStop();
}

void CMovieAnimation::AbortOpening() {
  COpening opening;
  {
    const orlo::CMutexLock guard(lock_);
    std::swap(opening, opening_);
  }
  if (!opening.extractor) return;
  opening.stop->set();
  opening.extractor->Close();
}

void CMovieAnimation::ForgetTimes() {
  const orlo::CMutexLock guard(lock_);
  frameDelay_ = kUnknown;
  lastTime_ = kUnknown;
}

orlo::P<CMovieExtractor> CMovieAnimation::FindExtractor() const {
  const orlo::CMutexLock guard(lock_);
  return extractor_;
}

/// With the words that the backend gets.
orlo::P<CMovieExtractor> CMovieAnimation::Prepare(const CFolders& folders, const CRate& rate) const {
  const auto request = std::make_shared<CThumbnailRequest>();
  request->filterDir = folders.filters;
  request->animationDir = folders.animations;
  request->themeDir = folders.themes;
  vantra::CExtractorParams& params = request->params;
  params.frameRateNum = rate.num;
  params.frameRateDen = rate.den;
  params.animationDir = request->animationDir.c_str();
  params.filterDir = request->filterDir.c_str();
  params.themeDir = request->themeDir.c_str();
  params.width = settings_.width;
  params.height = settings_.height;
  // Who says how large the pictures are to be knows what for.
  if (params.width <= 0 && params.height <= 0) params.maxWidth = GetMaxWidth();
  ResolveShaders(*infile_, folders.filters);
  return orlo::makeObject<CMovieExtractor>(*infile_, request);
}

/// From now on the extractor is the one that is played. Not if another opening than the expected one is under way, and
/// not if its pictures have no size that they can have.
bool CMovieAnimation::Take(const orlo::P<CMovieExtractor>& extractor, const wxSize& size,
                           const orlo::P<CMovieExtractor>& expected) {
  if (!IsPictureSize(size)) return false;
  orlo::P<CMovieExtractor> older;
  const CToolkitLock toolkit;
  wxBitmap frame = MakeAlphaBitmap(size.x, size.y);
  const orlo::CMutexLock guard(lock_);
  if (opening_.extractor != expected) return false;
  opening_ = {};
  older = std::exchange(extractor_, extractor);
  frame_ = frame;
  frameSurface_ = CBitmapSurface(frame_);
  if (hasPicture_) ++pictureNumber_;
  hasPicture_ = false;
  return true;
}

std::int32_t CMovieAnimation::GetMaxWidth() const {
  const orlo::CMutexLock guard(lock_);
  return maxWidth_;
}

const wxBitmap* CMovieAnimation::GetCurrentFrame() const {
  const orlo::CMutexLock guard(lock_);
  return frame_.IsOk() ? &frame_ : nullptr;
}

std::int32_t CMovieAnimation::GetDelay() const {
  const orlo::CMutexLock guard(lock_);
  return frameDelay_ > 0 ? TruncateToInt(frameDelay_) : kUsualDelay;
}

std::int32_t CMovieAnimation::GetWidth() const {
  return Ask(&IAnimationExtractor::GetWidth);
}

std::int32_t CMovieAnimation::GetHeight() const {
  return Ask(&IAnimationExtractor::GetHeight);
}

std::int32_t CMovieAnimation::Ask(std::int32_t (IAnimationExtractor::*operation)()) const {
  std::int32_t answer = -1;
  if (const orlo::P<CMovieExtractor> extractor = FindExtractor())
    Quietly([&] { answer = (extractor->Get()->*operation)(); });
  return answer;
}

bool CMovieAnimation::IsStarted() const {
  const orlo::CMutexLock guard(lock_);
  return extractor_.get() != nullptr;
}

void CMovieAnimation::Paint(TEffectGraphicsContext& context, const CDoubleRect& rect) const {
  const orlo::CMutexLock guard(lock_);
  if (const wxBitmap* const picture = hasPicture_ ? &frame_ : still_.Get())
    PaintThumbnail(context, rect, *picture, settings_.scaleMode);
}

void CMovieAnimation::WriteToXml(wxXmlNode& node, IResourceOutputStore& /*store*/) const {
  xml::WriteInt(node, kMaxWidth, GetMaxWidth());
}

void CMovieAnimation::ReadFromXml(const wxXmlNode& node, IResourceInputStore& /*store*/) {
  const orlo::CMutexLock guard(lock_);
  xml::ReadInt(node, kMaxWidth, maxWidth_);
}

orlo::P<animation::IAnimation> CMovieAnimation::CreateNew() const {
  return orlo::makeObject<CMovieAnimation>(nullptr, nullptr, CMovieAnimationSettings{});
}

}  // namespace authed::data
