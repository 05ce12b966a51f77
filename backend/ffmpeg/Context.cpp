#include "backend/ffmpeg/Context.h"

namespace vantra::ffmpeg {

void CContext::SetInfile(const char* text, std::size_t bytes) {
  infile_.assign(text ? text : "", text ? bytes : 0);
}

}  // namespace vantra::ffmpeg
