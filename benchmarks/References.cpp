#include "benchmarks/Ratios.h"
#include "benchmarks/SecondThread.h"
#include "foundation/Object.h"
#include "foundation/Pointer.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <memory>

namespace {

using namespace orlo;

class IShape : public virtual IBase {};
class CShape : public CObject, public IShape {};

class CPeer : public boost::intrusive_ref_counter<CPeer, boost::thread_safe_counter> {
public:
  virtual ~CPeer() = default;
};

template <class Pointer>
void copyAndDrop(benchmark::State& state, Pointer pointer) {
  for (auto _ : state) {
    // Else the compiler knows the class behind an interface.
    benchmark::DoNotOptimize(pointer);
    Pointer copy(pointer);
    benchmark::DoNotOptimize(copy);
  }
}

void ofAClass(benchmark::State& state) {
  copyAndDrop(state, makeObject<CShape>());
}
BENCHMARK(ofAClass);

void ofAnInterface(benchmark::State& state) {
  copyAndDrop(state, P<IShape>(makeObject<CShape>()));
}
BENCHMARK(ofAnInterface);

void ofTheRoot(benchmark::State& state) {
  copyAndDrop(state, P<IBase>(makeObject<CShape>()));
}
BENCHMARK(ofTheRoot);

void intrusivePeer(benchmark::State& state) {
  copyAndDrop(state, boost::intrusive_ptr<CPeer>(new CPeer));
}
BENCHMARK(intrusivePeer);

void sharedPeer(benchmark::State& state) {
  copyAndDrop(state, std::make_shared<int>());
}
BENCHMARK(sharedPeer);

}  // namespace

int main(int argc, char** argv) {
  const CSecondThread second;
  return RunWithRatios(argc, argv,
                       {{"ofAClass", "intrusivePeer", 1.0},
                        {"ofAnInterface", "intrusivePeer", 1.0},
                        {"ofTheRoot", "intrusivePeer", 1.0},
                        {"ofAnInterface", "sharedPeer", 1.0}});
}
