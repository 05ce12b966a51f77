#include "benchmarks/Ratios.h"
#include "benchmarks/SecondThread.h"
#include "foundation/StringObject.h"

#include <algorithm>
#include <atomic>
#include <cctype>
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

/// 1 MiB of words in which the needle stands at the end only, though most of it stands everywhere.
const char kNeedle[] = "chapter nine";
const std::string kBig = [] {
  std::string text;
  text.reserve(1 << 20);
  for (unsigned i = 0; text.size() < (1 << 20) - 64; ++i) text += i % 3 ? "chapter two, " : "play the movie, ";
  text.resize((1 << 20) - sizeof kNeedle + 1, '.');
  return text + kNeedle;
}();

using Convert = String (*)(const String&);

void findInStdString(benchmark::State& state) {
  for (auto _ : state) {
    const char* needle = kNeedle;
    benchmark::DoNotOptimize(needle);
    benchmark::DoNotOptimize(kBig.find(needle));
  }
}
BENCHMARK(findInStdString);

template <Convert ofText, Convert ofNeedle, bool ignoreCase = false>
void findInBigText(benchmark::State& state) {
  const String text = ofText(fromUTF8(kBig));
  const String needle = ofNeedle(fromUTF8(kNeedle));
  for (auto _ : state) benchmark::DoNotOptimize(ignoreCase ? text.findIgnoreCase(needle) : text.find(needle));
}
BENCHMARK(findInBigText<toLatin1, toLatin1>)->Name("findInLatin1");
BENCHMARK(findInBigText<toUTF8, toUTF8>)->Name("findInUTF8");
BENCHMARK(findInBigText<toUTF8, toLatin1>)->Name("findLatin1InUTF8");
BENCHMARK(findInBigText<toWide, toWide>)->Name("findInUTF16");
BENCHMARK(findInBigText<toWide, toLatin1>)->Name("findLatin1InUTF16");
BENCHMARK(findInBigText<toUTF32, toUTF8>)->Name("findUTF8InUTF32");
BENCHMARK(findInBigText<toLatin1, toWide>)->Name("findUTF16InLatin1");
BENCHMARK(findInBigText<toUTF8, toUTF8, true>)->Name("findIgnoringCase");

void findInUTF8WithAccents(benchmark::State& state) {
  const String text = fromUTF8("\xC3\xA9" + kBig);
  for (auto _ : state) benchmark::DoNotOptimize(text.find(kNeedle));
}
BENCHMARK(findInUTF8WithAccents);

void findAnyOfInUTF8(benchmark::State& state) {
  const String text = fromUTF8(kBig);
  for (auto _ : state) benchmark::DoNotOptimize(text.findAnyOf("XYZ0123456789"));
}
BENCHMARK(findAnyOfInUTF8);

/// Two texts in memory of their own that differ in their last byte.
const std::string kOther = [] {
  std::string text = kLong;
  text.back() = 'e';
  return text;
}();

std::string upperCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(c));
  return text;
}

[[gnu::noinline]] int compareBytes(const std::string& left, const std::string& right) {
  const std::size_t both = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < both; ++i)
    if (left[i] != right[i]) return static_cast<unsigned char>(left[i]) < static_cast<unsigned char>(right[i]) ? -1 : 1;
  return (left.size() > right.size()) - (left.size() < right.size());
}

[[gnu::noinline]] int compareBytesIgnoringCase(const std::string& left, const std::string& right) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  const std::size_t both = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < both; ++i)
    if (lower(left[i]) != lower(right[i])) return lower(left[i]) < lower(right[i]) ? -1 : 1;
  return (left.size() > right.size()) - (left.size() < right.size());
}

[[gnu::noinline]] int hashBytes(const std::string& text) {
  std::int32_t h = 0;
  for (const char c : text) h = ((h & 0x0FFFFFFF) << 3) ^ (((h >> 2) ^ static_cast<unsigned char>(c)) & 0x7FFFFFFF);
  return h;
}

template <int (*compareThem)(const std::string&, const std::string&)>
void comparisonOfPlainBytes(benchmark::State& state) {
  const std::string right = compareThem == compareBytesIgnoringCase ? upperCase(kOther) : kOther;
  for (auto _ : state) benchmark::DoNotOptimize(compareThem(kLong, right));
}
BENCHMARK(comparisonOfPlainBytes<compareBytes>)->Name("comparisonOfBytes");
BENCHMARK(comparisonOfPlainBytes<compareBytesIgnoringCase>)->Name("comparisonOfBytesIgnoringCase");

void hashOfBytes(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(hashBytes(kLong));
}
BENCHMARK(hashOfBytes);

template <Convert ofLeft, Convert ofRight>
void comparisonOfTexts(benchmark::State& state) {
  const String left = ofLeft(fromUTF8(kLong));
  const String right = ofRight(fromUTF8(kOther));
  for (auto _ : state) benchmark::DoNotOptimize(left.compare(right));
}
BENCHMARK(comparisonOfTexts<toUTF8, toUTF8>)->Name("comparisonInUTF8");
BENCHMARK(comparisonOfTexts<toLatin1, toUTF8>)->Name("comparisonOfLatin1WithUTF8");
BENCHMARK(comparisonOfTexts<toUTF8, toWide>)->Name("comparisonOfUTF8WithUTF16");

void comparisonIgnoringCase(benchmark::State& state) {
  const String left = fromUTF8(kLong);
  const String right = fromUTF8(upperCase(kOther));
  for (auto _ : state) benchmark::DoNotOptimize(left.compareIgnoreCase(right));
}
BENCHMARK(comparisonIgnoringCase);

void equality(benchmark::State& state) {
  const String left = fromUTF8(kLong);
  const String right = fromUTF8(kOther);
  for (auto _ : state) benchmark::DoNotOptimize(left.equals(right));
}
BENCHMARK(equality);

template <Convert convert>
void hashOfText(benchmark::State& state) {
  const String text = convert(fromUTF8(kLong));
  for (auto _ : state) benchmark::DoNotOptimize(text.getHash());
}
BENCHMARK(hashOfText<toUTF8>)->Name("hashOfUTF8");
BENCHMARK(hashOfText<toLatin1>)->Name("hashOfLatin1");
BENCHMARK(hashOfText<toWide>)->Name("hashOfUTF16");

void conversionToTheSameForm(benchmark::State& state) {
  const String wide = toWide(fromUTF8(kLong));
  for (auto _ : state) benchmark::DoNotOptimize(toWide(wide));
}
BENCHMARK(conversionToTheSameForm);

}  // namespace

int main(int argc, char** argv) {
  return RunWithRatios(argc, argv,
                       {{"copyOfAString", "copyOfASharedPtr", 1.0},
                        {"findInLatin1", "findInStdString", 4.0},
                        {"findInUTF8", "findInStdString", 4.0},
                        {"findLatin1InUTF8", "findInStdString", 4.0},
                        {"findInUTF16", "findInStdString", 0},
                        {"findLatin1InUTF16", "findInStdString", 0},
                        {"findUTF8InUTF32", "findInStdString", 0},
                        {"findUTF16InLatin1", "findInStdString", 0},
                        {"findInUTF8WithAccents", "findInStdString", 0},
                        {"findIgnoringCase", "findInStdString", 0},
                        {"comparisonInUTF8", "comparisonOfBytes", 2.0},
                        {"comparisonOfLatin1WithUTF8", "comparisonOfBytes", 2.0},
                        {"comparisonIgnoringCase", "comparisonOfBytesIgnoringCase", 2.0},
                        {"equality", "comparisonOfBytes", 2.0},
                        {"hashOfUTF8", "hashOfBytes", 2.0},
                        {"hashOfLatin1", "hashOfBytes", 2.0},
                        {"comparisonOfUTF8WithUTF16", "comparisonOfBytes", 0},
                        {"hashOfUTF16", "hashOfBytes", 0}});
}
