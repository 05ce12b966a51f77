#include "host/RenderCommand.h"

#include "host/Archive.h"
#include "host/Base64.h"
#include "host/Errors.h"
#include "host/FileName.h"
#include "host/FrameSink.h"
#include "host/FrameSource.h"
#include "host/Instance.h"
#include "host/Interrupt.h"
#include "host/PageDiagnosis.h"
#include "host/PageFile.h"
#include "host/Progress.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace host {

namespace {

constexpr int defaultLines = 1080;
constexpr double defaultSeconds = 5;

class Rendering {
public:
  explicit Rendering(const Options& options)
      : options_(options), page_(readPage(options.page)), diagnosis_(diagnose(page_)) {
    if (!options.input.empty()) source_ = openSource(options.input);
    chooseSize();
    chooseRate();
    chooseFrames();
  }

  void run() {
    Instance instance;
    configure(instance, options_.movies);
    const std::unique_ptr<FrameSink> sink = openSink(options_.output, size_, rate_);
    open(instance);
    if (source_) source_->start(size_, rate_);

    Progress progress(last_ ? std::optional(*last_ + 1) : std::nullopt);
    for (std::int64_t frame = 0; !last_ || frame <= *last_; ++frame) {
      checkInterrupt();
      const bool inside = !source_ || source_->seek(frame);
      if (!inside && !last_) break;
      guarded([&] { instance.nextFrame(); });
      if (frame >= first_) draw(instance, *sink);
      progress.show(frame + 1);
    }
    sink->finish();
  }

private:
  void chooseSize() {
    const std::optional<Size> natural = source_ ? source_->size() : std::nullopt;
    size_ = options_.size.value_or(natural.value_or(diagnosis_.suggestSize(defaultLines)));
    if (diagnosis_.fits(size_)) return;

    char text[200];
    std::snprintf(text, sizeof text, "the page's aspect ratio %.3f is too far from %.3f of a frame of %s",
                  diagnosis_.aspect(), size_.aspect(), size_.text().c_str());
    const Size better = diagnosis_.suggestSize(size_.height);
    const std::string advice = diagnosis_.fits(better) ? "; try --size " + better.text() : "";
    throw InputError(located(options_.page, text + advice));
  }

  void chooseRate() {
    const std::optional<FrameRate> natural = source_ ? source_->rate() : std::nullopt;
    rate_ = options_.rate.value_or(natural.value_or(FrameRate{}));
  }

  // Leaves last_ empty when the clip's end decides.
  void chooseFrames() {
    const bool clip = source_ && source_->rate();
    if (options_.frames) {
      first_ = options_.frames->first;
      last_ = options_.frames->last;
    } else if (options_.duration || !clip) {
      const double seconds = options_.duration.value_or(defaultSeconds);
      last_ = std::max(1LL, std::llround(seconds * rate_.framesPerSecond())) - 1;
    }
    if (hasExtension(options_.output, ".png")) last_ = first_;
  }

  void configure(Instance& instance, bool movies) const {
    const auto must = [&](const char* key, const std::string& value) {
      if (!instance.set(key, value)) throw InputError(located(options_.page, oneLine(instance.lastError())));
    };
    must("width", std::to_string(size_.width));
    must("height", std::to_string(size_.height));
    must("frameratenum", std::to_string(rate_.num));
    must("framerateden", std::to_string(rate_.den));
    must("noalpha", source_ ? "0" : "1");
    if (last_) must("duration", std::to_string(rate_.timeOf(*last_ + 1 - first_)));
    if (options_.state) must("state", *options_.state);
    const auto mustFolder = [&](const char* key, const std::string& folder, auto valueOf) {
      if (folder.empty()) return;
      if (!std::filesystem::is_directory(folder)) throw InputError(located(folder, "not a folder"));
      must(key, valueOf(folder));
    };
    mustFolder("skinpath", options_.skins, [](const std::string& folder) { return folder; });
    mustFolder("basedirs.animation.uri", options_.animations, fileUri);
    mustFolder("basedirs.theme.uri", options_.themes, fileUri);
    mustFolder("basedirs.filter.uri", options_.filters, fileUri);
    if (!movies) must("nomovies", "1");
    if (!options_.attachments.empty()) must("attachments", archiveUri(options_.attachments));
    for (const auto& [key, value] : options_.settings) {
      if (!instance.set(key, value)) throw UsageError("--set " + key + ": " + oneLine(instance.lastError()));
    }
    must("plugindata", toBase64(page_.xml));
  }

  void open(Instance& instance) const {
    try {
      instance.open();
    } catch (const std::exception& error) {
      const std::string text = described(error);
      if (!options_.movies || !opensWithoutMovies())
        throw InputError(located(options_.page, diagnosis_.doubtfulLine, text));
      if (const Finding& image = diagnosis_.movieless; image.line > 0)
        throw InputError(located(options_.page, image.line, image.text + "; --no-movies shows the page without it"));
      throw InputError(
          located(options_.page, text + ", so its movies cannot be played; --no-movies shows still pictures"));
    }
  }

  bool opensWithoutMovies() const {
    try {
      Instance instance;
      configure(instance, false);
      instance.open();
      return true;
    } catch (const std::exception&) {
      return false;
    }
  }

  void draw(Instance& instance, FrameSink& sink) const {
    if (source_) {
      if (const auto picture = source_->freshPicture()) instance.setInput(*picture);
    }
    std::optional<Instance::Frame> frame;
    guarded([&] { frame.emplace(instance, size_); });
    sink.write(frame->view());
  }

  // Calls the module and turns what it throws into a line that names the place in the page.
  template <typename Call>
  void guarded(const Call& call) const {
    try {
      call();
    } catch (const std::exception& error) {
      throw InputError(located(options_.page, diagnosis_.doubtfulLine, described(error)));
    }
  }

  static std::string described(const std::exception& error) {
    const std::string text = oneLine(error.what());
    return text.empty() ? "the module cannot show the page" : text;
  }

  const Options& options_;
  const PageFile page_;
  const PageDiagnosis diagnosis_;
  std::unique_ptr<FrameSource> source_;
  Size size_;
  FrameRate rate_;
  std::int64_t first_ = 0;
  std::optional<std::int64_t> last_;
};

}  // namespace

void render(const Options& options) {
  Rendering(options).run();
}

}  // namespace host
