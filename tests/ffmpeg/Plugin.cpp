#include "tests/ffmpeg/Plugin.h"

#include <cstdlib>
#include <dlfcn.h>
#include <ostream>
#include <stdexcept>

using namespace vantra;

namespace {

template <class Function>
void Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  if (!function) throw std::runtime_error(name);
}

}  // namespace

CPlugin::CPlugin() {
  void* const library = dlopen(VANTRA_PLUGIN, RTLD_NOW | RTLD_LOCAL);
  if (!library) throw std::runtime_error(dlerror());
  Find(library, "Vantra_createMessage", createMessage);
  Find(library, "Vantra_createContext", createContext);
  Find(library, "Vantra_getLastError", getLastError);
  Find(library, "Vantra_getAnimationExtractor", getAnimationExtractor);
}

const CPlugin& Plugin() {
  static const CPlugin plugin;
  return plugin;
}

CExtractorParams Params(int width, int height) {
  CExtractorParams params;
  params.frameRateNum = 25;
  params.frameRateDen = 1;
  params.width = width;
  params.height = height;
  return params;
}

CExtractorParams ParamsAtRate(int num, int den) {
  CExtractorParams params;
  params.frameRateNum = num;
  params.frameRateDen = den;
  return params;
}

orlo::P<IAnimationExtractor> Open(const std::string& infile, const CExtractorParams& params, std::int32_t firstFrame) {
  const orlo::P<IContext> context = Plugin().createContext(nullptr, 2);
  context->SetInfile(infile.data(), infile.size());
  return Plugin().getAnimationExtractor(&params, context.get(), firstFrame, 1, 0);
}

orlo::P<IAnimationExtractor> Play(const std::string& infile, const CExtractorParams& params) {
  orlo::P<IAnimationExtractor> extractor = Open(infile, params);
  if (!extractor) throw std::runtime_error(LastText());
  extractor->Start();
  if (!extractor->Advance()) throw std::runtime_error("no first frame: " + LastText());
  return extractor;
}

orlo::P<IError> LastError() {
  orlo::P<IError> error;
  error.attach(Plugin().getLastError());
  return error;
}

int LastCode() {
  const orlo::P<IError> error = LastError();
  return error ? error->getCode() : 0;
}

std::string LastText() {
  const orlo::P<IError> error = LastError();
  return error ? error->getString() : "";
}

CColour PixelAt(IAnimationExtractor& extractor, int x, int y) {
  const std::uint8_t* pixels = nullptr;
  std::int32_t stride = 0;
  extractor.LockFrame(&pixels, &stride);
  CColour colour;
  if (pixels && x >= 0 && y >= 0 && x < extractor.GetWidth() && y < extractor.GetHeight()) {
    const std::uint8_t* const pixel = pixels + static_cast<std::ptrdiff_t>(y) * stride + x * 4;
    colour = {pixel[2], pixel[1], pixel[0], pixel[3]};
  }
  extractor.UnlockFrame();
  return colour;
}

bool IsNear(const CColour& a, const CColour& b, int tolerance) {
  return std::abs(a.red - b.red) <= tolerance && std::abs(a.green - b.green) <= tolerance &&
         std::abs(a.blue - b.blue) <= tolerance && std::abs(a.alpha - b.alpha) <= tolerance;
}

std::ostream& operator<<(std::ostream& stream, const CColour& colour) {
  return stream << '(' << colour.red << ", " << colour.green << ", " << colour.blue << ", " << colour.alpha << ')';
}

/// Eight blocks side by side, the first for the lowest bit: white for 1, blue for 0. The upper half has them, the lower
/// one has them the other way round.
int NumberIn(IAnimationExtractor& extractor, int x, int y, int width, int height) {
  constexpr int kBits = 8;
  int number = 0;
  for (int bit = 0; bit < kBits; ++bit) {
    const int column = x + (bit * 2 + 1) * width / (kBits * 2);
    const CColour upper = PixelAt(extractor, column, y + height / 4);
    const CColour lower = PixelAt(extractor, column, y + height * 3 / 4);
    const bool isOne = upper.red > 128;
    if (isOne == (lower.red > 128) || upper.blue < 128 || lower.blue < 128) return -1;
    if (isOne) number |= 1 << bit;
  }
  return number;
}

int NumberOf(IAnimationExtractor& extractor) {
  return NumberIn(extractor, 0, 0, extractor.GetWidth(), extractor.GetHeight());
}
