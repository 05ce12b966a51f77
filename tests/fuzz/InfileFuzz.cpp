// Reads any bytes as an infile. What can be read is written and read again, which must give the same text.

#include "backend/infilexml/Infile.h"
#include "foundation/Error.h"

#include <cstdint>
#include <cstdlib>

using namespace vantra::infilexml;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const auto infile = FromText({reinterpret_cast<const char*>(data), size});
    if (!infile) return 0;
    const std::string text = ToText(*infile);
    const auto again = FromText(text);
    if (!again || ToText(*again) != text) std::abort();
  } catch (const orlo::CError&) {
    // Too much, too deep, or what no infile holds.
  }
  return 0;
}
