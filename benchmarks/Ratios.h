#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

/// A measurement divided by its peer of the same run, and what it should stay below; a goal of 0 states what it is.
struct CRatio {
  std::string measured;
  std::string peer;
  double goal;
};

/// Runs all benchmarks, then prints the ratios of the medians of their repetitions. Repetitions of different
/// benchmarks take turns, so that a machine that is slow for a while is slow for all of them.
inline int RunWithRatios(int argc, char** argv, const std::vector<CRatio>& ratios) {
  class CReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
      benchmark::ConsoleReporter::ReportRuns(runs);
      for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
        const std::string arguments = run.run_name.args.empty() ? "" : "/" + run.run_name.args;
        times_[run.run_name.function_name + arguments].push_back(run.GetAdjustedRealTime());
      }
    }
    /// 0 for what was not measured.
    double Median(const std::string& name) {
      std::vector<double>& times = times_[name];
      if (times.empty()) return 0;
      const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
      std::nth_element(times.begin(), middle, times.end());
      return *middle;
    }

  private:
    std::map<std::string, std::vector<double>> times_;
  };

  char interleaving[] = "--benchmark_enable_random_interleaving=true";
  std::vector<char*> arguments(argv, argv + argc);
  arguments.insert(arguments.begin() + 1, interleaving);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 1;
  CReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::printf("\n");
  for (const CRatio& ratio : ratios) {
    const double measured = reporter.Median(ratio.measured);
    const double peer = reporter.Median(ratio.peer);
    if (measured == 0 || peer == 0) continue;
    std::printf("%-32s / %-28s = %7.3f", ratio.measured.c_str(), ratio.peer.c_str(), measured / peer);
    if (ratio.goal > 0) std::printf("   (goal: at most %g)", ratio.goal);
    std::printf("\n");
  }
  return 0;
}
