#include "benchmarks/Ratios.h"
#include "benchmarks/SecondThread.h"
#include "foundation/StringObject.h"

#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace {

std::atomic<std::size_t> allocations{0};

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
  allocations.fetch_add(1, std::memory_order_relaxed);
  if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace {

using namespace orlo;

const char kLiteral[] = "a text of the usual length";
const std::string kLong = [] {
  std::string text;
  while (text.size() < 4000) text += "Play the movie from chapter two, ";
  return text + "end";
}();

void copyOfAString(benchmark::State& state) {
  const CSecondThread second;
  const String text = kLiteral;
  for (auto _ : state) {
    String copy = text;
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(copyOfAString);

void copyOfASharedPtr(benchmark::State& state) {
  const CSecondThread second;
  const auto text = std::make_shared<std::string>(kLiteral);
  for (auto _ : state) {
    std::shared_ptr<std::string> copy = text;
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(copyOfASharedPtr);

void copyOfAStdString(benchmark::State& state) {
  const std::string text = kLiteral;
  for (auto _ : state) {
    std::string copy = text;
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(copyOfAStdString);

void stringOfALiteral(benchmark::State& state) {
  const String warm = kLiteral;
  const std::size_t before = allocations;
  for (auto _ : state) {
    String text = kLiteral;
    benchmark::DoNotOptimize(text);
  }
  state.counters["allocations"] = static_cast<double>(allocations - before) / static_cast<double>(state.iterations());
}
BENCHMARK(stringOfALiteral);

void stdStringOfALiteral(benchmark::State& state) {
  for (auto _ : state) {
    std::string text = kLiteral;
    benchmark::DoNotOptimize(text);
  }
}
BENCHMARK(stdStringOfALiteral);

void comparisonAcrossEncodings(benchmark::State& state) {
  const String utf8 = fromUTF8(kLong);
  const String wide = toWide(utf8);
  for (auto _ : state) benchmark::DoNotOptimize(utf8.compare(wide));
}
BENCHMARK(comparisonAcrossEncodings);

void searchToTheEnd(benchmark::State& state) {
  const String utf8 = fromUTF8(kLong);
  for (auto _ : state) benchmark::DoNotOptimize(utf8.find("end"));
}
BENCHMARK(searchToTheEnd);

void conversionToTheSameForm(benchmark::State& state) {
  const String wide = toWide(fromUTF8(kLong));
  for (auto _ : state) benchmark::DoNotOptimize(toWide(wide));
}
BENCHMARK(conversionToTheSameForm);

}  // namespace

int main(int argc, char** argv) {
  return RunWithRatios(argc, argv, {{"copyOfAString", "copyOfASharedPtr", 1.0}});
}
