extern "C" {
#include <libavutil/log.h>
}

#include "host/Errors.h"
#include "host/Interrupt.h"
#include "host/Options.h"
#include "host/RenderCommand.h"

#include <csignal>
#include <cstdio>
#include <new>

namespace {

enum ExitCode { done = 0, badInput = 1, wrongUsage = 2 };

int complain(const std::string& text, ExitCode code) {
  std::fprintf(stderr, "%s\n", host::oneLine(text).c_str());
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  host::catchSignals();
  av_log_set_level(AV_LOG_QUIET);
  try {
    if (const auto options = host::parseOptions(argc, argv)) host::render(*options);
    return done;
  } catch (const host::OutputClosed&) {
    return done;
  } catch (const host::Interrupted& interrupted) {
    return 128 + interrupted.signal;
  } catch (const host::UsageError& error) {
    return complain(std::string("mfilter: ") + error.what(), wrongUsage);
  } catch (const std::bad_alloc&) {
    return complain("mfilter: out of memory", badInput);
  } catch (const std::exception& error) {
    return complain(error.what(), badInput);
  }
}
