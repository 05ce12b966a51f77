#include "host/Options.h"

#include "host/Errors.h"
#include "host/FileName.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <iostream>
#include <map>

namespace host {

namespace {

constexpr std::int64_t maxFrame = 1'000'000'000;
constexpr double maxDuration = 24 * 60 * 60;
constexpr int maxRate = 1000;

constexpr char attachmentsHelp[] = "The archive that the page's pictures and texts lie in";
constexpr char themesHelp[] = "Folder that themes without one lie in";

constexpr char checkFooter[] =
    "Every problem is one line on standard output, with the line of the page that it is in. Errors are what the page\n"
    "is not shown for, or not as it is written; warnings are what is ignored. A summary of what the page holds "
    "follows.\n"
    "Files that the page names are looked for from the current folder, as they are when it is rendered.\n"
    "\n"
    "Exit codes: 0 no errors, 1 errors, or the file cannot be read, 2 wrong usage.";

constexpr char footer[] =
    "Without --input the page lies on black, has the shape of the page at 1080 lines, and 25 frames a second.\n"
    "With a clip or a picture the frames have its size and rate; pixels that are not square are made square.\n"
    "A clip that ends before the last wanted frame holds its last picture. Its sound is not taken over.\n"
    "Without --duration and --frames a clip gives as many frames as it lasts, everything else 5 seconds.\n"
    "A PNG holds the first wanted frame. An MP4 needs even sizes: the last column or row is doubled if need be.\n"
    "\"-\" writes rows of B, G, R, A bytes, premultiplied with alpha, to standard output, frame after frame.\n"
    "\n"
    "Exit codes: 0 done, 1 something is wrong with a file, 2 wrong usage.";

// A whole number without sign that makes up the whole text.
template <typename Number>
std::optional<Number> wholeNumber(std::string_view text) {
  Number value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || text.front() == '-') return {};
  return value;
}

[[noreturn]] void refuse(const std::string& option, const std::string& value, const std::string& expected) {
  throw UsageError(option + " " + value + ": expected " + expected);
}

Size parseSize(const std::string& text) {
  const auto cross = text.find_first_of("xX");
  if (cross != std::string::npos) {
    const auto width = wholeNumber<int>(std::string_view(text).substr(0, cross));
    const auto height = wholeNumber<int>(std::string_view(text).substr(cross + 1));
    if (width && height && Size{*width, *height}.isUsable()) return {*width, *height};
  }
  refuse("--size", text, "WIDTHxHEIGHT, each from 1 to " + std::to_string(Size::maxSide));
}

FrameRate parseRate(const std::string& text) {
  const auto slash = text.find('/');
  const auto num = wholeNumber<int>(std::string_view(text).substr(0, slash));
  const auto den = slash == std::string::npos ? 1 : wholeNumber<int>(std::string_view(text).substr(slash + 1));
  if (num && den && *num > 0 && *den > 0) {
    const FrameRate rate{*num, *den};
    if (rate.framesPerSecond() <= maxRate && rate.framesPerSecond() >= 1.0 / maxRate) return rate;
  }
  refuse("--fps", text, "N or N/D, from 1/" + std::to_string(maxRate) + " to " + std::to_string(maxRate));
}

double parseDuration(const std::string& text) {
  double seconds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  if (error != std::errc() || end != text.data() + text.size() || !(seconds > 0) || seconds > maxDuration) {
    refuse("--duration", text, "seconds, above 0 and up to " + std::to_string(static_cast<int>(maxDuration)));
  }
  return seconds;
}

FrameRange parseFrames(const std::string& text) {
  const auto dash = text.find('-');
  const auto first = wholeNumber<std::int64_t>(std::string_view(text).substr(0, dash));
  const auto last =
      dash == std::string::npos ? first : wholeNumber<std::int64_t>(std::string_view(text).substr(dash + 1));
  if (first && last && *first <= *last && *last <= maxFrame) return {*first, *last};
  refuse("--frames", text, "FIRST-LAST, counted from 0, up to " + std::to_string(maxFrame));
}

std::pair<std::string, std::string> parseSetting(const std::string& text) {
  static const std::map<std::string, std::string> ownOptions = {
      {"plugindata", "PAGE"},           {"width", "--size"},        {"height", "--size"},
      {"noalpha", "--input"},           {"frameratenum", "--fps"},  {"framerateden", "--fps"},
      {"duration", "--duration"},       {"state", "--state"},       {"skinpath", "--skins"},
      {"attachments", "--attachments"}, {"nomovies", "--no-movies"}};
  const auto equals = text.find('=');
  if (equals == std::string::npos || equals == 0) refuse("--set", text, "KEY=VALUE");
  const std::string key = text.substr(0, equals);
  if (const auto own = ownOptions.find(key); own != ownOptions.end()) {
    throw UsageError("--set " + key + ": use " + own->second + " for it");
  }
  return {key, text.substr(equals + 1)};
}

void checkInput(const std::string& text) {
  if (text.front() != '#') return;
  const bool digits = std::all_of(text.begin() + 1, text.end(), [](unsigned char c) { return std::isxdigit(c); });
  if (!digits || (text.size() != 7 && text.size() != 9)) refuse("--input", text, "a file, #rrggbb or #rrggbbaa");
}

void checkOutput(const std::string& output) {
  if (output == "-" || hasExtension(output, ".png") || hasExtension(output, ".mp4")) return;
  refuse("-o", output, "a file that ends in .png or .mp4, or -");
}

}  // namespace

std::optional<Request> parseOptions(int argc, const char* const* argv) {
  Options options;
  std::string size, rate, duration, frames, state;
  std::vector<std::string> settings;

  CLI::App app("Turns a page of a disc menu into pictures and video.", "mfilter");
  app.set_version_flag("--version", "mfilter " MFILTER_VERSION);
  app.require_subcommand(1);
  CLI::App* render = app.add_subcommand("render", "Draw a page, over a clip, a picture or a colour if there is one");
  render->footer(footer);
  render->add_option("page", options.page, "The page, an XML file")->required()->option_text("PAGE.xml");
  render
      ->add_option("--input", options.input, "What lies under the page: a clip, a picture, or a colour as #rrggbb[aa]")
      ->option_text("CLIP|PICTURE|#rrggbb");
  render->add_option("--size", size, "Size of the frames in pixels")->option_text("WxH");
  render->add_option("--fps", rate, "Frames a second")->option_text("N[/D]");
  auto* durationOption = render->add_option("--duration", duration, "Seconds to render")->option_text("S");
  render->add_option("--frames", frames, "Numbers of the frames to render, from 0, the last included")
      ->option_text("A-B")
      ->excludes(durationOption);
  auto* stateOption = render->add_option("--state", state, "State that action buttons show")->option_text("NAME");
  render->add_option("--skins", options.skins, "Folder of the skins")->option_text("DIR");
  render->add_option("--attachments", options.attachments, attachmentsHelp)->option_text("ARCHIVE.zip");
  render->add_flag("!--no-movies", options.movies, "Show the still pictures of movies; needs no backend library");
  render->add_option("--animations", options.animations, "Folder that movies without one lie in")->option_text("DIR");
  render->add_option("--themes", options.themes, themesHelp)->option_text("DIR");
  render->add_option("--filters", options.filters, "Folder that filters without one lie in")->option_text("DIR");
  render->add_option("--set", settings, "Any other parameter of the module; may be given again")
      ->option_text("KEY=VALUE")
      ->allow_extra_args(false);
  render->add_option("-o,--output", options.output, "Where the frames go")
      ->required()
      ->option_text("OUT.png|OUT.mp4|-");

  CheckOptions checkOptions;
  CLI::App* check = app.add_subcommand("check", "Tell what is wrong with a page, and what it holds");
  check->footer(checkFooter);
  check->add_option("page", checkOptions.page, "The page, an XML file")->required()->option_text("PAGE.xml");

  check->add_option("--attachments", checkOptions.attachments, attachmentsHelp)->option_text("ARCHIVE.zip");
  check->add_option("--themes", checkOptions.themes, themesHelp)->option_text("DIR");

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& success) {
    app.exit(success, std::cout, std::cerr);
    return {};
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  if (check->parsed()) return checkOptions;

  if (render->count("--input") > 0 && options.input.empty()) refuse("--input", "\"\"", "a file, #rrggbb or #rrggbbaa");
  if (!options.input.empty()) checkInput(options.input);
  if (render->count("--size") > 0) options.size = parseSize(size);
  if (render->count("--fps") > 0) options.rate = parseRate(rate);
  if (render->count("--duration") > 0) options.duration = parseDuration(duration);
  if (render->count("--frames") > 0) options.frames = parseFrames(frames);
  if (stateOption->count() > 0) options.state = state;
  for (const std::string& setting : settings) options.settings.push_back(parseSetting(setting));
  checkOutput(options.output);
  return options;
}

}  // namespace host
