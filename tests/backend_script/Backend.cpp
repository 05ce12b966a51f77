#include "backend/handler/BackendObject.h"
#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "tests/backend_script/ScriptState.h"

using namespace vantra;
using script::CScript;
using script::EOperation;

namespace {

CScript& Script() {
  return CScript::Get();
}

/// Counts the objects of the library.
class CLiving {
protected:
  CLiving() { Script().ChangeLiving(1); }
  CLiving(const CLiving&) = delete;
  CLiving& operator=(const CLiving&) = delete;
  ~CLiving() { Script().ChangeLiving(-1); }
};

std::string TextOf(const char* text) {
  return text ? text : "";
}

class CMessage : public TBackendObject<IMessage>, CLiving {};

class CContext : public TBackendObject<IContext>, CLiving {
public:
  void SetInfile(const char* text, std::size_t bytes) override {
    Script().Enter(EOperation::setInfile);
    const std::lock_guard guard(Script().lock);
    Script().given.infile.assign(text, bytes);
  }
  void SetInterlace(bool interlace) override {
    const std::lock_guard guard(Script().lock);
    Script().given.interlace = interlace;
  }
};

class CError : public orlo::CObject, public virtual IError, CLiving {
public:
  explicit CError(std::int32_t code) : code_(code) {}
  std::int32_t getCode() const override { return code_; }
  const char* getString() const override { return "scripted"; }
  const char* getWhat() const override { return nullptr; }
  std::int32_t getAdditionalCode() const override { return 0; }
  const char* getXML() const override { return nullptr; }

private:
  std::int32_t code_;
};

class CExtractor : public TBackendObject<IAnimationExtractor>, CLiving {
public:
  CExtractor(const CExtractorParams& params, IContext* context)
      : animationDir_(params.animationDir),
        themeDir_(params.themeDir),
        filterDir_(params.filterDir),
        pictures_(Script().GetPictures()),
        context_(context) {
    if (params.frameRateNum > 0) frameLength_ = static_cast<double>(params.frameRateDen) / params.frameRateNum;
  }
  ~CExtractor() override {
    // The texts are there as long as the extractor.
    const std::lock_guard guard(Script().lock);
    Script().given.animationDir = TextOf(animationDir_);
    Script().given.filterDir = TextOf(filterDir_);
    Script().given.themeDir = TextOf(themeDir_);
  }

  void Start() override {
    Enter(EOperation::start);
    isStarted_ = true;
  }
  void Seek(double seconds, std::int32_t mode) override {
    Enter(EOperation::seek);
    base_ = seconds;
    shown_ = 0;
    const std::lock_guard guard(Script().lock);
    Script().given.seeks.push_back(seconds);
    Script().given.seekMode = mode;
  }
  bool Advance() override {
    Enter(EOperation::advance);
    if (!isStarted_ || shown_ >= pictures_.count) return false;
    ++shown_;
    Draw();
    return true;
  }
  double GetTime() override {
    Enter(EOperation::getTime);
    return base_ + (shown_ - 1) * frameLength_;
  }
  void SetMessageTarget(IMessage* message) override {
    Enter(EOperation::setMessageTarget);
    message_ = message;
    const std::lock_guard guard(Script().lock);
    Script().given.hasMessage = message != nullptr;
  }

  std::int32_t GetWidth() override {
    Enter(EOperation::getWidth);
    return pictures_.width;
  }
  std::int32_t GetHeight() override {
    Enter(EOperation::getHeight);
    return pictures_.height;
  }
  void Close() override {
    {
      const std::lock_guard guard(Script().lock);
      isClosed_ = true;
    }
    Script().Wake();
    Script().Enter(EOperation::close);
  }
  void LockFrame(const std::uint8_t** pixels, std::int32_t* stride) override {
    Enter(EOperation::lockFrame);
    *pixels = Script().GivesNull(EOperation::lockFrame) || pixels_.empty() ? nullptr : pixels_.data();
    *stride = Script().GetPictures().stride != 0 ? Script().GetPictures().stride : Stride();
  }
  void UnlockFrame() override { Enter(EOperation::unlockFrame); }
  void SetSpeed(double speed) override {
    Enter(EOperation::setSpeed);
    const std::lock_guard guard(Script().lock);
    Script().given.speeds.push_back(speed);
  }

private:
  static constexpr std::int32_t kBytesBetweenRows = 12;

  void Enter(EOperation operation) { Script().Enter(operation, &isClosed_); }
  std::int32_t Stride() const { return pictures_.width * 4 + kBytesBetweenRows; }

  void Draw() {
    if (pictures_.width < 1 || pictures_.height < 1) return;
    pixels_.assign(static_cast<std::size_t>(Stride()) * static_cast<std::size_t>(pictures_.height), 0xEE);
    for (int y = 0; y < pictures_.height; ++y)
      for (int x = 0; x < pictures_.width; ++x) {
        const auto pixel = script::PixelOf(shown_ - 1, x, y);
        std::copy(pixel.begin(), pixel.end(), pixels_.begin() + static_cast<std::ptrdiff_t>(y) * Stride() + x * 4);
      }
  }

  const char* animationDir_;
  const char* themeDir_;
  const char* filterDir_;
  const CScript::CPictures pictures_;
  const orlo::P<IContext> context_;
  orlo::P<IMessage> message_;
  double frameLength_ = 0.04;
  double base_ = 0;
  int shown_ = 0;
  bool isStarted_ = false;
  /// Under the script's lock.
  bool isClosed_ = false;
  std::vector<std::uint8_t> pixels_;
};

}  // namespace

#define EXPORTED [[gnu::visibility("default")]]

extern "C" {

EXPORTED script::IScript* Script_get() {
  return &Script();
}

#ifndef LACKS_createMessage
EXPORTED IMessage* VANTRA_CALL Vantra_createMessage(std::int32_t kind) {
  {
    const std::lock_guard guard(Script().lock);
    Script().given.messageKind = kind;
  }
  Script().Enter(EOperation::createMessage);
  return Script().GivesNull(EOperation::createMessage) ? nullptr : new CMessage;
}
#endif

#ifndef LACKS_createContext
EXPORTED IContext* VANTRA_CALL Vantra_createContext(void*, std::int32_t kind) {
  {
    const std::lock_guard guard(Script().lock);
    Script().given.contextKind = kind;
  }
  Script().Enter(EOperation::createContext);
  return Script().GivesNull(EOperation::createContext) ? nullptr : new CContext;
}
#endif

#ifndef LACKS_getLastError
EXPORTED IError* VANTRA_CALL Vantra_getLastError() {
  const std::int32_t code = Script().GetLastError();
  return code != 0 ? new CError(code) : nullptr;
}
#endif

#ifndef LACKS_getAnimationExtractor
EXPORTED IAnimationExtractor* VANTRA_CALL Vantra_getAnimationExtractor(const CExtractorParams* params,
                                                                       IContext* context, std::int32_t firstFrame,
                                                                       std::int32_t flag, std::int32_t reserved) {
  {
    const std::lock_guard guard(Script().lock);
    script::CGiven& given = Script().given;
    given.params = *params;
    given.params.animationDir = given.params.filterDir = given.params.themeDir = nullptr;
    given.animationDir = TextOf(params->animationDir);
    given.filterDir = TextOf(params->filterDir);
    given.themeDir = TextOf(params->themeDir);
    given.firstFrame = firstFrame;
    given.flag = flag;
    given.reserved = reserved;
  }
  Script().Enter(EOperation::getAnimationExtractor);
  return Script().GivesNull(EOperation::getAnimationExtractor) ? nullptr : new CExtractor(*params, context);
}
#endif
}
