#include "tests/ffmpeg/Movies.h"

#include "benchmarks/Ratios.h"
#include "tests/ffmpeg/Plugin.h"

#include <cstdlib>
#include <string>

using namespace vantra;

namespace {

constexpr int kMovies = 4;
constexpr int kFrames = 250;

/// 1080p, no two alike.
std::string MovieFile(int number) {
  return Movie("1080p-" + std::to_string(number) + ".mp4",
               "-f lavfi -i \"testsrc2=s=1920x1080:r=25,hue=h=" + std::to_string(number * 90) + "\" -frames:v " +
                   std::to_string(kFrames) + " -c:v libx264 -preset veryfast -bf 3 -g 50 -pix_fmt yuv420p");
}

std::string Ground() {
  return Movie("1080p-ground.png", "-f lavfi -i color=c=0x204060:s=1920x1080 -frames:v 1 -pix_fmt rgb24");
}

int Left(int number) {
  return 200 + number % 2 * 800;
}
int Top(int number) {
  return 200 + number / 2 * 400;
}

/// Four thumbnails of 320 x 180 on a page of 1920 x 1080.
std::string Page() {
  std::string tracks = Track(Video(Ground()));
  for (int number = 0; number < kMovies; ++number)
    tracks += Track(Video(MovieFile(number)), "x=\"" + std::to_string(Left(number)) + "\" y=\"" +
                                                  std::to_string(Top(number)) + "\" width=\"320\" height=\"180\"");
  return Infile(tracks, "duration=\"10\"");
}

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
  return FFMPEG_COMMAND " -v error -nostdin" + inputs + " -filter_complex \"color=c=0x204060:s=1920x1080:r=25[g]" +
         scaled + laid + "\" -map \"[" + below + "]\" -f null - </dev/null";
}

void Run(benchmark::State& state, const std::string& command) {
  for (auto _ : state)
    if (std::system(command.c_str()) != 0) return state.SkipWithError("the command fails");
}

void playPage(benchmark::State& state) {
  const std::string page = Page();
  for (auto _ : state) {
    const auto extractor = Play(page);
    int frames = 1;
    while (extractor->Advance()) {
      const std::uint8_t* pixels = nullptr;
      std::int32_t stride = 0;
      extractor->LockFrame(&pixels, &stride);
      benchmark::DoNotOptimize(pixels);
      extractor->UnlockFrame();
      ++frames;
    }
    if (frames != kFrames) return state.SkipWithError("frames are missing");
  }
  state.SetItemsProcessed(state.iterations() * kFrames);
}

void playPageWithFFmpeg(benchmark::State& state) {
  Run(state, PageCommand());
  state.SetItemsProcessed(state.iterations() * kFrames);
}

void openPage(benchmark::State& state) {
  const std::string page = Page();
  for (auto _ : state) benchmark::DoNotOptimize(Play(page).get());
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
  return RunWithRatios(argc, argv, {{"playPage", "playPageWithFFmpeg", 1 / 1.2}, {"openPage", "probeMovies", 1.5}});
}
