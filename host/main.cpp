extern "C" {
#include <libavutil/log.h>
}

#include "host/CheckCommand.h"
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

ExitCode carryOut(const host::Request& request) {
  if (const auto* options = std::get_if<host::CheckOptions>(&request)) return host::check(*options) ? done : badInput;
  host::render(std::get<host::Options>(request));
  return done;
}

}  // namespace

int main(int argc, char** argv) {
  host::catchSignals();
  av_log_set_level(AV_LOG_QUIET);
  try {
    const auto request = host::parseOptions(argc, argv);
    return request ? carryOut(*request) : done;
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
