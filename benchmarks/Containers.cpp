#include "benchmarks/Ratios.h"
#include "benchmarks/SecondThread.h"
#include "foundation/Array.h"
#include "foundation/SimpleHashTable.h"
#include "foundation/String.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

using namespace orlo;

constexpr int kKeys = 1000;

/// Of the length that keys of texts and settings have.
std::vector<std::string> keyTexts() {
  std::vector<std::string> keys;
  for (int i = 0; i < kKeys; ++i) keys.push_back("graphics.GraphicElementType." + std::to_string(i * 7919));
  return keys;
}

// Keys that are looked up are other objects than those in the table. A text keeps its hash, so from the second round on
// it is there already.

void lookupOfAString(benchmark::State& state) {
  TSimpleHashTable<String, int> table;
  std::vector<String> keys;
  for (const std::string& key : keyTexts()) {
    table.insert(fromUTF8(key), 1);
    keys.push_back(fromUTF8(key));
  }
  for (auto _ : state)
    for (const String& key : keys) benchmark::DoNotOptimize(table.find(key));
}
BENCHMARK(lookupOfAString);

void lookupOfAStringInAnotherEncoding(benchmark::State& state) {
  TSimpleHashTable<String, int> table;
  std::vector<String> keys;
  for (const std::string& key : keyTexts()) {
    table.insert(fromUTF8(key), 1);
    keys.push_back(toWide(fromUTF8(key)));
  }
  for (auto _ : state)
    for (const String& key : keys) benchmark::DoNotOptimize(table.find(key));
}
BENCHMARK(lookupOfAStringInAnotherEncoding);

void lookupOfAStdString(benchmark::State& state) {
  std::unordered_map<std::string, int> table;
  const std::vector<std::string> keys = keyTexts();
  for (const std::string& key : keys) table.emplace(key, 1);
  for (auto _ : state)
    for (const std::string& key : keys) benchmark::DoNotOptimize(table.find(key));
}
BENCHMARK(lookupOfAStdString);

class CThing : public CObject {};

void appendToAnArray(benchmark::State& state) {
  const CSecondThread second;
  CThing thing;
  for (auto _ : state) {
    CArray array;
    for (int i = 0; i < state.range(0); ++i) array.add(&thing);
    benchmark::DoNotOptimize(array.getCapacity());
  }
}
BENCHMARK(appendToAnArray)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

void appendToAVector(benchmark::State& state) {
  const CSecondThread second;
  CThing thing;
  for (auto _ : state) {
    std::vector<P<IBase>> vector;
    for (int i = 0; i < state.range(0); ++i) vector.push_back(P<IBase>(&thing));
    benchmark::DoNotOptimize(vector.data());
  }
}
BENCHMARK(appendToAVector)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

/// What it would cost to take new memory, and copy, whenever the capacity grows by its step. A million takes minutes.
void appendWithMemoryOfTheCapacity(benchmark::State& state) {
  const CSecondThread second;
  CThing thing;
  for (auto _ : state) {
    std::unique_ptr<P<IBase>[]> data;
    int capacity = 0;
    for (int count = 0; count < state.range(0); ++count) {
      if (count == capacity) {
        capacity += 10;
        std::unique_ptr<P<IBase>[]> larger(new P<IBase>[static_cast<std::size_t>(capacity)]);
        std::copy(data.get(), data.get() + count, larger.get());
        data = std::move(larger);
      }
      data[static_cast<std::size_t>(count)] = &thing;
    }
    benchmark::DoNotOptimize(data.get());
  }
}
BENCHMARK(appendWithMemoryOfTheCapacity)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  return RunWithRatios(argc, argv,
                       {{"lookupOfAString", "lookupOfAStdString", 1.5},
                        {"appendToAnArray/10000", "appendToAVector/10000", 2},
                        {"appendToAnArray/100000", "appendToAVector/100000", 2},
                        {"appendToAnArray/1000000", "appendToAVector/1000000", 2},
                        {"appendToAnArray/100000", "appendToAnArray/10000", 20},
                        {"appendToAnArray/1000000", "appendToAnArray/100000", 20}});
}
