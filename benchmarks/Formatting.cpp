#include "benchmarks/Ratios.h"
#include "foundation/NumberText.h"
#include "foundation/StringFormat.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace orlo;

/// What snprintf writes, in a string of its own as ours is.
template <class... Values>
std::string printed(const char* format, Values... values) {
  char text[128];
  return {text, static_cast<std::size_t>(std::snprintf(text, sizeof text, format, values...))};
}

int next(int& number) {
  return number = (number * 7 + 1) & 0xFFFFF;
}

void integerField(benchmark::State& state) {
  int number = 1;
  for (auto _ : state) benchmark::DoNotOptimize(CStringFormat("%d").push(next(number)).getString());
}
BENCHMARK(integerField);

void integerFieldOfSnprintf(benchmark::State& state) {
  int number = 1;
  for (auto _ : state) benchmark::DoNotOptimize(printed("%d", next(number)));
}
BENCHMARK(integerFieldOfSnprintf);

void floatField(benchmark::State& state) {
  int number = 1;
  for (auto _ : state) benchmark::DoNotOptimize(CStringFormat("%.3f").push(next(number) / 7.0).getString());
}
BENCHMARK(floatField);

void floatFieldOfSnprintf(benchmark::State& state) {
  int number = 1;
  for (auto _ : state) benchmark::DoNotOptimize(printed("%.3f", next(number) / 7.0));
}
BENCHMARK(floatFieldOfSnprintf);

void message(benchmark::State& state) {
  int number = 1;
  for (auto _ : state)
    benchmark::DoNotOptimize(CStringFormat("page %5d of %d: the button \"%s\" is %08x wide and %-12s")
                                 .push(next(number))
                                 .push(1000)
                                 .push("Play the movie")
                                 .push(number)
                                 .push("visible")
                                 .getString());
}
BENCHMARK(message);

void messageOfSnprintf(benchmark::State& state) {
  int number = 1;
  for (auto _ : state)
    benchmark::DoNotOptimize(printed("page %5d of %d: the button \"%s\" is %08x wide and %-12s", next(number), 1000,
                                     "Play the movie", number, "visible"));
}
BENCHMARK(messageOfSnprintf);

void readingADouble(benchmark::State& state) {
  const String text = "-1234.5678";
  for (auto _ : state) benchmark::DoNotOptimize(parseDouble(text));
}
BENCHMARK(readingADouble);

void readingADoubleByStrtod(benchmark::State& state) {
  const std::string text = "-1234.5678";
  for (auto _ : state) benchmark::DoNotOptimize(std::strtod(text.c_str(), nullptr));
}
BENCHMARK(readingADoubleByStrtod);

void readingAnInteger(benchmark::State& state) {
  const String text = "-12345678";
  for (auto _ : state) benchmark::DoNotOptimize(parseInt(text));
}
BENCHMARK(readingAnInteger);

void readingAnIntegerByStrtol(benchmark::State& state) {
  const std::string text = "-12345678";
  for (auto _ : state) benchmark::DoNotOptimize(std::strtol(text.c_str(), nullptr, 10));
}
BENCHMARK(readingAnIntegerByStrtol);

}  // namespace

int main(int argc, char** argv) {
  return RunWithRatios(argc, argv,
                       {{"integerField", "integerFieldOfSnprintf", 6},
                        {"floatField", "floatFieldOfSnprintf", 3},
                        {"message", "messageOfSnprintf", 6},
                        {"readingADouble", "readingADoubleByStrtod", 3},
                        {"readingAnInteger", "readingAnIntegerByStrtol", 5}});
}
