#include "benchmarks/Ratios.h"
#include "benchmarks/SecondThread.h"
#include "foundation/URI.h"

#include <glib.h>

namespace {

using namespace orlo;

const char* const kTexts[] = {
    "abc://u@h:8080/p?q#f",
    "file:///home/user/films/menu/page.xml",
    "https://user@www.example.com:8080/films/menu/page%20one.xml?state=normal&x=1#chapter-2",
};

/// With all components split, decoded and normalised.
void parse(benchmark::State& state) {
  const CSecondThread second;
  const String text = fromUTF8(kTexts[state.range(0)]);
  for (auto _ : state) {
    const CURI uri(text);
    benchmark::DoNotOptimize(uri);
  }
}
BENCHMARK(parse)->DenseRange(0, 2);

void parseByGLib(benchmark::State& state) {
  const CSecondThread second;
  for (auto _ : state) {
    GUri* uri = g_uri_parse(kTexts[state.range(0)], G_URI_FLAGS_NONE, nullptr);
    benchmark::DoNotOptimize(uri);
    g_uri_unref(uri);
  }
}
BENCHMARK(parseByGLib)->DenseRange(0, 2);

void resolve(benchmark::State& state) {
  const P<IURI> base = createURI(fromUTF8(kTexts[1]));
  const P<IURI> reference = createURI("../pictures/background.png");
  for (auto _ : state) benchmark::DoNotOptimize(reference->resolve(base));
}
BENCHMARK(resolve);

}  // namespace

int main(int argc, char** argv) {
  return RunWithRatios(
      argc, argv,
      {{"parse/0", "parseByGLib/0", 3.0}, {"parse/1", "parseByGLib/1", 3.0}, {"parse/2", "parseByGLib/2", 3.0}});
}
