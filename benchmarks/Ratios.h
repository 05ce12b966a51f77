#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

/// A measurement divided by its peer of the same run, and what it should stay below.
struct CRatio {
  std::string measured;
  std::string peer;
  double goal;
};

/// Runs all benchmarks, then prints the ratios of the fastest repetitions.
inline int RunWithRatios(int argc, char** argv, const std::vector<CRatio>& ratios) {
  class CReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
      benchmark::ConsoleReporter::ReportRuns(runs);
      for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
        const std::string name =
            run.run_name.function_name + (run.run_name.args.empty() ? "" : "/") + run.run_name.args;
        const double time = run.GetAdjustedRealTime();
        const auto [entry, isNew] = fastest.try_emplace(name, time);
        if (!isNew && time < entry->second) entry->second = time;
      }
    }
    std::map<std::string, double> fastest;
  };

  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  CReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::printf("\n");
  for (const CRatio& ratio : ratios) {
    const auto measured = reporter.fastest.find(ratio.measured);
    const auto peer = reporter.fastest.find(ratio.peer);
    if (measured == reporter.fastest.end() || peer == reporter.fastest.end()) continue;
    std::printf("%-32s / %-28s = %7.3f   (goal: at most %g)\n", ratio.measured.c_str(), ratio.peer.c_str(),
                measured->second / peer->second, ratio.goal);
  }
  return 0;
}
