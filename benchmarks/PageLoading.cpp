#include "benchmarks/FilterInstance.h"
#include "benchmarks/Ratios.h"

namespace {

/// Loads a page of as many rectangles as the argument says, from text to layers.
void LoadRectangles(benchmark::State& state) {
  std::string elements;
  for (std::int64_t index = 0; index < state.range(0); ++index)
    elements +=
        RectangleAt(static_cast<double>(index % 100) * 19, static_cast<double>(index / 100 % 100) * 10, 15, 8, 255);
  const std::string page = PageOf(elements);
  for (auto _ : state) {
    CFilterInstance filter(page, 1920, 1080);
    filter.Open();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}

BENCHMARK(LoadRectangles)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  return RunWithRatios(argc, argv, {{"LoadRectangles/10000", "LoadRectangles/1000", 11.0}});
}
