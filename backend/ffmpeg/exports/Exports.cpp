#include "backend/ffmpeg/Context.h"
#include "backend/ffmpeg/Extractor.h"
#include "backend/ffmpeg/LastError.h"

extern "C" {
#include <libavutil/log.h>
}

using namespace vantra;
using namespace vantra::ffmpeg;

namespace {

constexpr std::int32_t kMessageKind = 1;
constexpr std::int32_t kContextKind = 2;

/// FFmpeg writes about every broken file, which is for the error objects to do. A host that has set a level keeps it.
void QuietenFFmpeg() {
  if (av_log_get_level() == AV_LOG_INFO) av_log_set_level(AV_LOG_QUIET);
}

}  // namespace

extern "C" {

[[gnu::visibility("default")]] IMessage* VANTRA_CALL Vantra_createMessage(std::int32_t kind) {
  LastError() = nullptr;
  return Guarded([&]() -> IMessage* {
    if (kind != kMessageKind) throw CFailure(Fault::kind, "There are messages of kind 1 only");
    return new CMessage();
  });
}

[[gnu::visibility("default")]] IContext* VANTRA_CALL Vantra_createContext(void*, std::int32_t kind) {
  LastError() = nullptr;
  return Guarded([&]() -> IContext* {
    if (kind != kContextKind) throw CFailure(Fault::kind, "There are contexts of kind 2 only");
    return new CContext();
  });
}

[[gnu::visibility("default")]] IError* VANTRA_CALL Vantra_getLastError() {
  return orlo::P<IError>(LastError()).detach();
}

[[gnu::visibility("default")]] IAnimationExtractor* VANTRA_CALL Vantra_getAnimationExtractor(
    const CExtractorParams* params, IContext* context, std::int32_t firstFrame, std::int32_t, std::int32_t) {
  LastError() = nullptr;
  return Guarded([&]() -> IAnimationExtractor* {
    const auto* const played = dynamic_cast<CContext*>(context);
    if (!params || !played) throw CFailure(Fault::infile, "An extractor needs parameters and a context");
    QuietenFFmpeg();
    auto extractor = std::make_unique<CExtractor>(*params, played->GetInfile(), firstFrame);
    if (!extractor->GetSkipped().empty()) SetLastError(CFailure(Fault::skipped, extractor->GetSkipped()));
    return extractor.release();
  });
}
}
