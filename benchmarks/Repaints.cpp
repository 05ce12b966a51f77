#include "benchmarks/FilterInstance.h"
#include "benchmarks/Ratios.h"
#include "graphics/paint/Toolkit.h"

#include <wx/image.h>
#include <wx/mstream.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <vector>

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int kStride = kWidth * 4;
constexpr std::size_t kBytes = static_cast<std::size_t>(kStride) * kHeight;

using CPicture = std::vector<std::uint8_t>;
/// The processor's time of this thread, which does all the work: what else the machine is busy with stays out.
double now() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double medianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

std::string bitmap(const std::string& node, int width, int height, int seed) {
  const graphics::CToolkitLock lock;
  if (!wxImage::FindHandler(wxBITMAP_TYPE_PNG)) wxInitAllImageHandlers();
  wxImage image(width, height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      image.SetRGB(x, y, static_cast<unsigned char>(x * 255 / width), static_cast<unsigned char>(y * 255 / height),
                   static_cast<unsigned char>(seed * 60 + (x ^ y) % 32));
  wxMemoryOutputStream stream;
  image.SaveFile(stream, wxBITMAP_TYPE_PNG);
  const auto* const start = static_cast<const unsigned char*>(stream.GetOutputStreamBuffer()->GetBufferStart());
  return "<" + node + R"( extension="png"><![CDATA[)" +
         graphics::EncodeBase64({start, static_cast<std::size_t>(stream.GetLength())}) + "]]></" + node + ">";
}

std::string frame(double x, double y, double width, double height) {
  return R"(<center x=")" + std::to_string(x + width / 2) + R"(" y=")" + std::to_string(y + height / 2) +
         R"("/><size width=")" + std::to_string(width) + R"(" height=")" + std::to_string(height) + R"("/>)";
}

/// Four opaque pictures of 200 by 200, as a GIF file gives them.
std::string gif(double x, double y, int delay) {
  std::string xml = R"(<animation type-name="animation-image">)" + frame(x, y, 200, 200) +
                    R"(<animation type="gif" count="4" loop="true"><size x="200" y="200"/>)";
  for (int picture = 0; picture < 4; ++picture) {
    const std::string name = "frame" + std::to_string(picture);
    xml += "<" + name + R"( delay=")" + std::to_string(delay) + "\">" + bitmap("frame", 200, 200, picture) + "</" +
           name + ">";
  }
  return xml + "</animation></animation>";
}

std::string label(double x, double y, const std::string& text, int points) {
  return R"(<label text=")" + text + R"(">)" + frame(x, y, 700, 80) + R"(<font name="DejaVu Sans" pointsize=")" +
         std::to_string(points) +
         R"(" style="90" weight="92" underlined="false"/>)"
         R"(<color red="255" green="255" blue="255" alpha="255"/></label>)";
}

/// What differs between the menus.
struct CMenu {
  /// Of each picture of the GIFs, in milliseconds.
  int delay;
  /// A picture lies below the whole page.
  bool background = true;
  /// A translucent bar with a text lies above the GIFs.
  bool bar = true;
};

/// A title, eight translucent buttons with texts and three GIFs.
std::string pageOf(const CMenu& menu) {
  std::string elements;
  if (menu.background)
    elements += "<image>" + frame(0, 0, kWidth, kHeight) + bitmap("attachment-bitmap", 960, 540, 1) +
                R"(<scale-attributes scaling="3"/></image>)";
  elements += label(100, 60, "The Long Journey", 60);
  for (int button = 0; button < 8; ++button) {
    const double y = 220 + button * 90;
    elements += RectangleAt(100, y, 500, 70, 150) + label(120, y + 10, "Chapter " + std::to_string(button + 1), 28);
  }
  for (int picture = 0; picture < 3; ++picture) elements += gif(900 + picture * 300, 500, menu.delay);
  if (menu.bar) elements += RectangleAt(850, 660, 900, 60, 128) + label(870, 665, "Press play to begin", 24);
  return PageOf(elements);
}

/// As often as every host asks: all three change in each frame, or as GIFs usually do.
constexpr int kEveryFrame = 1;
constexpr int kUsualDelay = 100;

/// A host asks for one frame after the other, so that what they touch stays in the processor's caches.
constexpr int kRun = 10;

/// Runs of frames of one instance stand beside full repaints of another one; the counter toFull is the median of the
/// one divided by the median of the other.
void onBlack(benchmark::State& state, const CMenu& menu) {
  const std::string page = pageOf(menu);
  CFilterInstance partial(page, kWidth, kHeight), full(page, kWidth, kHeight);
  for (CFilterInstance* instance : {&partial, &full}) {
    instance->Set("frameratenum", "25");
    instance->Set("framerateden", "1");
    instance->Set("noalpha", "1");
    instance->Open();
    instance->Frame();
  }
  std::vector<double> times, fullTimes;
  double sum = 0;
  for (auto _ : state) {
    // Without noalpha for one frame, the next one under it is painted in full.
    full.Set("noalpha", "0");
    full.Frame();
    full.Set("noalpha", "1");
    double start = now();
    benchmark::DoNotOptimize(full.Frame());
    fullTimes.push_back(now() - start);
    for (int run = 0; run < kRun; ++run) {
      start = now();
      benchmark::DoNotOptimize(partial.Frame());
      times.push_back(now() - start);
      sum += times.back();
    }
    state.SetIterationTime(times.back());
  }
  state.counters["toFull"] = medianOf(times) / medianOf(fullTimes);
  state.counters["meanToFull"] = sum / static_cast<double>(times.size()) / medianOf(fullTimes);
  state.counters["fullSeconds"] = medianOf(fullTimes);
}

void OnBlackAllChange(benchmark::State& state) {
  onBlack(state, {kEveryFrame});
}

void OnBlackAllChangeOnTop(benchmark::State& state) {
  onBlack(state, {.delay = kEveryFrame, .bar = false});
}

void OnBlackUsualDelays(benchmark::State& state) {
  onBlack(state, {kUsualDelay});
}

/// Each frame has a new input, and stands beside a plain copy of a frame.
void overInput(benchmark::State& state, const CMenu& menu) {
  CFilterInstance filter(pageOf(menu), kWidth, kHeight);
  filter.Set("frameratenum", "25");
  filter.Set("framerateden", "1");
  filter.Open();
  filter.Frame();
  const std::vector<CPicture> inputs(3, CPicture(kBytes, 200));
  CPicture copy(kBytes);
  std::vector<double> ratios;
  std::size_t turn = 0;
  for (auto _ : state) {
    double start = now();
    std::memcpy(copy.data(), inputs[++turn % inputs.size()].data(), kBytes);
    benchmark::DoNotOptimize(copy.data());
    benchmark::ClobberMemory();
    const double copyTime = now() - start;
    const CPicture& input = inputs[++turn % inputs.size()];
    start = now();
    filter.SetInput(input.data(), kStride);
    benchmark::DoNotOptimize(filter.Frame());
    const double time = now() - start;
    state.SetIterationTime(time);
    ratios.push_back(time / copyTime);
  }
  state.counters["toCopy"] = medianOf(ratios);
}

void OverInputAllChange(benchmark::State& state) {
  overInput(state, {kEveryFrame});
}

void OverInputUsualDelays(benchmark::State& state) {
  overInput(state, {kUsualDelay});
}

void OverInputThatShowsThrough(benchmark::State& state) {
  overInput(state, {.delay = kEveryFrame, .background = false});
}

BENCHMARK(OnBlackAllChange)->UseManualTime()->Iterations(300);
BENCHMARK(OnBlackAllChangeOnTop)->UseManualTime()->Iterations(300);
BENCHMARK(OnBlackUsualDelays)->UseManualTime()->Iterations(300);
BENCHMARK(OverInputAllChange)->UseManualTime()->Iterations(300);
BENCHMARK(OverInputUsualDelays)->UseManualTime()->Iterations(300);
BENCHMARK(OverInputThatShowsThrough)->UseManualTime()->Iterations(300);

}  // namespace

int main(int argc, char** argv) {
  std::printf("Goals: toFull at most 0.1, toCopy at most 2.2.\n");
  return RunWithRatios(argc, argv, {});
}
