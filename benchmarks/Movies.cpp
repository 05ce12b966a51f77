#include "tests/ffmpeg/Movies.h"

#include "benchmarks/FilterInstance.h"
#include "benchmarks/Ratios.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

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
std::string MovieImage(int number) {
  const std::filesystem::path file = MovieFile(number);
  const auto text = [](int value) { return std::to_string(value); };
  return R"(<animation type-name="movie-image" scale-mode="scale-width"><center x=")" +
         text(Left(number) + kWidth / 2) + R"(" y=")" + text(Top(number) + kHeight / 2) + R"("/><size width=")" +
         text(kWidth) + R"(" height=")" + text(kHeight) +
         R"("/><movie type="movie-file" duration="10" width="1920" height="1080"><filename path=")" +
         file.parent_path().string() + R"(" name=")" + file.filename().string() + R"("/></movie></animation>)";
}

/// Four thumbnails of 320 x 180 on a page of 1920 x 1080.
std::string Page() {
  std::string elements = RectangleAt(0, 0, 1920, 1080, 255);
  for (int number = 0; number < kMovies; ++number) elements += MovieImage(number);
  return PageOf(elements);
}

/// As a host has it that adds a menu to a video.
class CMoviePage : public CFilterInstance {
public:
  CMoviePage() : CFilterInstance(Page(), 1920, 1080) {
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
  for (auto _ : state) {
    CMoviePage page;
    for (int frame = 0; frame < kFrames; ++frame) benchmark::DoNotOptimize(page.Frame());
  }
  state.SetItemsProcessed(state.iterations() * kFrames);
}

void playPageWithFFmpeg(benchmark::State& state) {
  Run(state, PageCommand());
  state.SetItemsProcessed(state.iterations() * kFrames);
}

void openPage(benchmark::State& state) {
  for (auto _ : state) {
    CMoviePage page;
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

BENCHMARK(playPage)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(playPageWithFFmpeg)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(openPage)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(probeMovies)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) {
  // The movies are made before anything is measured.
  for (int number = 0; number < kMovies; ++number) MovieFile(number);
  return RunWithRatios(argc, argv, {{"playPage", "playPageWithFFmpeg", 1 / 1.2}, {"openPage", "probeMovies", 1.5}});
}
