// Plays any bytes as a movie file: a few pictures, a seek, a few more. FFmpeg itself is the system's and not built for
// fuzzing; what is sought lies on this side of it.

#include "backend/ffmpeg/Extractor.h"

extern "C" {
#include <libavutil/log.h>
}

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

using namespace vantra;

namespace {

std::string FilePath() {
  const char* const folder = std::getenv("TMPDIR");
  return std::string(folder ? folder : "/tmp") + "/play-fuzz-" + std::to_string(getpid());
}

void Write(const std::string& path, const std::uint8_t* data, std::size_t size) {
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  if (!file || std::fwrite(data, 1, size, file) != size || std::fclose(file) != 0) std::abort();
}

void Play(const std::string& path) {
  CExtractorParams params;
  params.width = 64;
  const std::string infile = "<infile><videotracklist><track><loop><video src=\"file://" + path +
                             "\" rotation=\"30\"/></loop></track></videotracklist></infile>";
  ffmpeg::CExtractor extractor(params, infile, 0);
  extractor.Start();
  for (int frame = 0; frame < 4; ++frame) extractor.Advance();
  extractor.Seek(0.5, 1);
  for (int frame = 0; frame < 4; ++frame) extractor.Advance();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string path = FilePath();
  av_log_set_level(AV_LOG_QUIET);
  Write(path, data, size);
  try {
    Play(path);
  } catch (const orlo::CError&) {
    // What can't be played.
  }
  unlink(path.c_str());
  return 0;
}
