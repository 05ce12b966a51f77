#pragma once

#include "host/FrameRate.h"
#include "host/Size.h"

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace host {

// What `mfilter render` was asked to do.
struct Options {
  std::string page;
  std::string input;  // a clip, a picture or "#rrggbb[aa]"; empty for none
  std::optional<Size> size;
  std::optional<FrameRate> rate;
  std::optional<double> duration;  // seconds
  std::optional<FrameRange> frames;
  std::optional<std::string> state;
  std::string skins;
  std::string attachments;  // a zip archive; empty for none
  // Folders of what movies name without one; empty for none.
  std::string animations, filters, themes;
  bool movies = true;
  std::vector<std::pair<std::string, std::string>> settings;
  std::string output;  // a file that ends in .png or .mp4, or "-"
};

// What `mfilter check` was asked to do.
struct CheckOptions {
  std::string page;
  std::string attachments;
  std::string themes;
};

using Request = std::variant<Options, CheckOptions>;

// Throws UsageError. Nothing when the arguments only asked for help or the version, which has been printed then.
std::optional<Request> parseOptions(int argc, const char* const* argv);

}  // namespace host
