#include "backend/infilexml/Audio.h"

#include "backend/infilexml/Element.h"

namespace vantra::infilexml {

namespace {

constexpr const char* kSilent = "silent";

}  // namespace

void CAudio::Read(const TiXmlElement& element) {
  ReadAttribute(element, "duration", duration);
  ReadAttribute(element, "starttime", startTime);
  ReadAttribute(element, "fade-in", fadeIn);
  ReadAttribute(element, "fade-out", fadeOut);
  ReadAttribute(element, "src", src);
}

void CAudio::Write(TiXmlElement& element) const {
  WriteAttribute(element, "duration", duration);
  WriteAttribute(element, "starttime", startTime);
  if (fadeIn != 0) WriteAttribute(element, "fade-in", fadeIn);
  if (fadeOut != 0) WriteAttribute(element, "fade-out", fadeOut);
  WriteAttribute(element, "src", src);
}

bool CAudio::IsSilent() const {
  return TextOf(src) == kSilent;
}

CSilentAudio::CSilentAudio(double length) {
  duration = length;
  src = orlo::makeObject<orlo::CURI>(kSilent);
}

}  // namespace vantra::infilexml
