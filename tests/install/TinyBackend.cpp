// A whole backend: whatever it is to play, it shows pictures of 16 x 16 pixels that get brighter with each frame.
#include "backend/handler/BackendObject.h"

#include <algorithm>
#include <array>

namespace {

class Context : public vantra::TBackendObject<vantra::IContext> {
public:
  void SetInfile(const char*, std::size_t) override {}
  void SetInterlace(bool) override {}
};

class Message : public vantra::TBackendObject<vantra::IMessage> {};

class Extractor : public vantra::TBackendObject<vantra::IAnimationExtractor> {
public:
  void Start() override {}
  void Seek(double, std::int32_t) override {}
  bool Advance() override {
    pixels_.fill(0xFF000000u | (frame_++ % 16) * 0x101010u);
    return true;
  }
  double GetTime() override { return frame_ / 25.0; }
  void SetMessageTarget(vantra::IMessage*) override {}
  std::int32_t GetWidth() override { return 16; }
  std::int32_t GetHeight() override { return 16; }
  void Close() override {}
  void LockFrame(const std::uint8_t** pixels, std::int32_t* stride) override {
    *pixels = reinterpret_cast<const std::uint8_t*>(pixels_.data());
    *stride = 16 * 4;
  }
  void UnlockFrame() override {}
  void SetSpeed(double) override {}

private:
  unsigned frame_ = 0;
  std::array<std::uint32_t, 16 * 16> pixels_{};
};

}  // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED vantra::IMessage* Vantra_createMessage(std::int32_t) {
  return new Message;
}
EXPORTED vantra::IContext* Vantra_createContext(void*, std::int32_t) {
  return new Context;
}
EXPORTED vantra::IError* Vantra_getLastError() {
  return nullptr;
}
EXPORTED vantra::IAnimationExtractor* Vantra_getAnimationExtractor(const vantra::CExtractorParams*, vantra::IContext*,
                                                                   std::int32_t, std::int32_t, std::int32_t) {
  return new Extractor;
}
