#include "tests/ffmpeg/Movies.h"

#include "benchmarks/FilterInstance.h"
#include "benchmarks/Ratios.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace {

constexpr int kMovies = 4;
constexpr int kFrames = 250;
constexpr int kWidth = 320;
constexpr int kHeight = 180;

/// 1080p, no two alike.
std::string MovieFile(int number) {
  std::string file =
      Movie("1080p-" + std::to_string(number) + ".mp4",
            "-f lavfi -i \"testsrc2=s=1920x1080:r=25,hue=h=" + std::to_string(number * 90) + "\" -frames:v " +
                std::to_string(kFrames) + " -c:v libx264 -preset veryfast -bf 3 -g 50 -pix_fmt yuv420p");
  if (file.empty()) throw std::runtime_error("the ffmpeg command makes no H.264");
  return file;
}

int Left(int number) {
  return 200 + number % 2 * 800;
}
int Top(int number) {
  return 200 + number / 2 * 400;
}

/// A movie image in its box.
std::string MovieImage(int number, const std::string& movie) {
  const auto text = [](int value) { return std::to_string(value); };
  return R"(<animation type-name="movie-image" scale-mode="scale-width"><center x=")" +
         text(Left(number) + kWidth / 2) + R"(" y=")" + text(Top(number) + kHeight / 2) + R"("/><size width=")" +
         text(kWidth) + R"(" height=")" + text(kHeight) + R"("/>)" + movie + "</animation>";
}

/// Four thumbnails of 320 x 180 on a page of 1920 x 1080.
std::string Page() {
  std::string elements = RectangleAt(0, 0, 1920, 1080, 255);
  for (int number = 0; number < kMovies; ++number) {
    const std::filesystem::path file = MovieFile(number);
    elements +=
        MovieImage(number, R"(<movie type="movie-file" duration="10"><filename path=")" + file.parent_path().string() +
                               R"(" name=")" + file.filename().string() + R"("/></movie>)");
  }
  return PageOf(elements);
}

/// Four small movies that go on for ever.
std::string EndlessPage() {
  const std::string file =
      Movie("small.mp4", "-f lavfi -i testsrc2=s=320x180:r=25 -frames:v 50 -c:v libx264 -pix_fmt yuv420p");
  const std::string infile = "<infile><videotracklist><track><loop><video src=\"file://" + file +
                             "\"/></loop></track></videotracklist></infile>";
  const std::string text =
      graphics::EncodeBase64(std::span(reinterpret_cast<const std::uint8_t*>(infile.data()), infile.size()));
  std::string elements = RectangleAt(0, 0, 1920, 1080, 255);
  for (int number = 0; number < kMovies; ++number)
    elements += MovieImage(number, R"(<movie type="edited-movie"><vantra.xml>)" + text + "</vantra.xml></movie>");
  return PageOf(elements);
}

/// As a host has it that adds a menu to a video.
class CMoviePage : public CFilterInstance {
public:
  explicit CMoviePage(const std::string& page) : CFilterInstance(page, 1920, 1080) {
    Set("frameratenum", "25");
    Set("framerateden", "1");
    Set("noalpha", "1");
    Open();
  }
};

/// The same with the ffmpeg command, one decoding thread for each input, the output thrown away.
std::string PageCommand() {
  std::string inputs;
  std::string scaled;
  std::string laid;
  std::string below = "g";
  for (int number = 0; number < kMovies; ++number) {
    const std::string index = std::to_string(number);
    inputs += " -threads 1 -i '" + MovieFile(number) + "'";
    scaled += ";[" + index + ":v]scale=320:180[s" + index + "]";
    laid += ";[" + below + "][s" + index + "]overlay=" + std::to_string(Left(number)) + ":" +
            std::to_string(Top(number)) + ":shortest=1[l" + index + "]";
    below = "l" + index;
  }
  return FFMPEG_COMMAND " -v error -nostdin" + inputs + " -filter_complex \"color=c=0xc8285a:s=1920x1080:r=25[g]" +
         scaled + laid + "\" -map \"[" + below + "]\" -f null - </dev/null";
}

void Run(benchmark::State& state, const std::string& command) {
  for (auto _ : state)
    if (std::system(command.c_str()) != 0) return state.SkipWithError("the command fails");
}

void playPage(benchmark::State& state) {
  const std::string text = Page();
  for (auto _ : state) {
    CMoviePage page(text);
    for (int frame = 0; frame < kFrames; ++frame) benchmark::DoNotOptimize(page.Frame());
  }
  state.SetItemsProcessed(state.iterations() * kFrames);
}

void playPageWithFFmpeg(benchmark::State& state) {
  Run(state, PageCommand());
  state.SetItemsProcessed(state.iterations() * kFrames);
}

void openPage(benchmark::State& state) {
  const std::string text = Page();
  for (auto _ : state) {
    CMoviePage page(text);
    benchmark::DoNotOptimize(page.Frame());
  }
}

void probeMovies(benchmark::State& state) {
  std::string command = "true";
  for (int number = 0; number < kMovies; ++number)
    command += " && " FFPROBE_COMMAND " -v error -show_frames -read_intervals '%+#1' '" + MovieFile(number) +
               "' </dev/null >/dev/null";
  Run(state, command);
}

/// In KB.
double Resident() {
  std::ifstream file("/proc/self/statm");
  double all = 0;
  double resident = 0;
  file >> all >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024;
}

/// How much more memory is resident in the last twentieth of the work than in the second one, in KB: the least in
/// each, since what has been closed goes at its own time.
template <class Work>
void ReportGrowth(benchmark::State& state, int times, Work work) {
  const int part = times / 20;
  double before = std::numeric_limits<double>::infinity();
  double behind = before;
  for (auto _ : state) {
    for (int time = 0; time < times; ++time) {
      work();
      if (time / part == 1) before = std::min(before, Resident());
      if (time / part == 19) behind = std::min(behind, Resident());
    }
  }
  state.counters["beforeKB"] = before;
  state.counters["grownKB"] = behind - before;
}

void playForLong(benchmark::State& state) {
  CMoviePage page(EndlessPage());
  ReportGrowth(state, 20'000, [&] { benchmark::DoNotOptimize(page.Frame()); });
}

void openOften(benchmark::State& state) {
  const std::string text = EndlessPage();
  ReportGrowth(state, 500, [&] {
    CMoviePage page(text);
    for (int frame = 0; frame < 3; ++frame) benchmark::DoNotOptimize(page.Frame());
  });
}

BENCHMARK(playPage)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(playPageWithFFmpeg)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(openPage)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(probeMovies)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(3);

BENCHMARK(playForLong)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(openOften)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace

int main(int argc, char** argv) {
  // The movies are made before anything is measured.
  for (int number = 0; number < kMovies; ++number) MovieFile(number);
  return RunWithRatios(argc, argv, {{"playPage", "playPageWithFFmpeg", 1 / 1.2}, {"openPage", "probeMovies", 1.5}});
}
