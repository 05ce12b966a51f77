#include "authed/data/MovieExtractor.h"

#include "authed/data/Error.h"

#include <string>
#include <utility>

namespace authed::data {

namespace {

constexpr std::int32_t kContextKind = 2;
constexpr std::int32_t kMessageKind = 1;

}  // namespace

CMovieExtractor::CMovieExtractor(const vantra::infilexml::CInfile& infile,
                                 const std::shared_ptr<const CThumbnailRequest>& request)
    : request_(request), context_(handler_->CreateContext(kContextKind)) {
  const std::string text = ToText(infile);
  context_->SetInfile(text.data(), text.size());
  context_->SetInterlace(infile.interlace);
}

void CMovieExtractor::Open(std::int32_t firstFrame, std::int32_t flag) {
  orlo::P<vantra::IAnimationExtractor> extractor =
      handler_->GetAnimationExtractor(request_->params, context_.get(), firstFrame, flag, 0);
  bool isClosed = false;
  {
    const std::lock_guard guard(lock_);
    extractor_ = extractor;
    isClosed = isClosed_;
  }
  if (isClosed) Close();
}

void CMovieExtractor::AnswerToThisThread() {
  extractor_->SetMessageTarget(handler_->CreateMessage(kMessageKind).get());
}

void CMovieExtractor::Close() noexcept {
  orlo::P<vantra::IAnimationExtractor> extractor;
  {
    const std::lock_guard guard(lock_);
    isClosed_ = true;
    extractor = extractor_;
  }
  if (extractor) Quietly([&] { extractor->Close(); });
}

void CMovieExtractor::Clear() {
  orlo::P<vantra::IAnimationExtractor> extractor;
  {
    const std::lock_guard guard(lock_);
    extractor.swap(extractor_);
  }
  extractor = nullptr;
  context_ = nullptr;
}

}  // namespace authed::data
