#pragma once

#include "foundation/Base.h"

#include <cstddef>
#include <cstdint>

/// What a library offers that plays infiles: four functions, found by their names, and the objects behind them. Objects
/// come with a count of 0: who asks takes the first reference. The order of the operations is part of the interface.

#if defined(_WIN32) && !defined(_WIN64)
#define VANTRA_CALL __stdcall
#else
#define VANTRA_CALL
#endif

namespace vantra {

/// What went wrong. The texts are UTF-8, live as long as the error, and may be null.
class IError : public virtual orlo::IBase {
public:
  virtual std::int32_t getCode() const = 0;
  virtual const char* getString() const = 0;
  virtual const char* getWhat() const = 0;
  virtual std::int32_t getAdditionalCode() const = 0;
  virtual const char* getXML() const = 0;
};

/// Stands for the thread that drives an extractor: an extractor answers to its message target.
class IMessage : public virtual orlo::IBase {};

/// What is to be played. To be filled before an extractor is made from it.
class IContext : public virtual orlo::IBase {
public:
  /// The text of the infile, in UTF-8. It is copied.
  virtual void SetInfile(const char* text, std::size_t bytes) = 0;
  virtual void SetInterlace(bool interlace) = 0;
};

/// Plays. One thread at a time, but for Close.
class IPlayer : public virtual orlo::IBase {
public:
  virtual void ReservedForPlayer0() {}
  virtual void Start() = 0;
  virtual void ReservedForPlayer2() {}
  virtual void ReservedForPlayer3() {}
  /// To a time in seconds. The mode 1 seeks to the very frame that is shown at that time.
  virtual void Seek(double seconds, std::int32_t mode) = 0;
  /// Shows the frame of the position and moves on by one frame of the host's rate. True if there is another picture
  /// than before; false where the same one stays, and at the end.
  virtual bool Advance() = 0;
  /// The position of the last frame in seconds, also where its picture is the one before.
  virtual double GetTime() = 0;
  virtual void ReservedForPlayer7() {}
  virtual void ReservedForPlayer8() {}
  /// From now on the thread drives the player that made the message. The player takes a reference.
  virtual void SetMessageTarget(IMessage* message) = 0;
};

/// Plays to pictures.
class IAnimationExtractor : public virtual IPlayer {
public:
  /// In pixels. They don't change.
  virtual std::int32_t GetWidth() = 0;
  virtual std::int32_t GetHeight() = 0;
  /// Ends decoding; also from another thread, where it makes a call that is under way return soon. After it Advance is
  /// false.
  virtual void Close() = 0;
  /// The last frame: rows of premultiplied BGRA, the top one first. It stays as it is until UnlockFrame. Null if there
  /// is none.
  virtual void LockFrame(const std::uint8_t** pixels, std::int32_t* stride) = 0;
  virtual void UnlockFrame() = 0;
  virtual void ReservedForExtractor5() {}
  virtual void ReservedForExtractor6() {}
  virtual void ReservedForExtractor7() {}
  virtual void ReservedForExtractor8() {}
  virtual void ReservedForExtractor9() {}
  virtual void ReservedForExtractor10() {}
  virtual void ReservedForExtractor11() {}
  /// 1.0 is the speed of the infile.
  virtual void SetSpeed(double speed) = 0;
};

/// How an extractor is to play.
struct CExtractorParams {
  /// Frames a second of the host.
  std::int32_t frameRateNum = 0;
  std::int32_t frameRateDen = 0;
  /// Folders as URIs in UTF-8: of animations, of filters and shaders, of themes. They live as long as the extractor.
  const char* animationDir = nullptr;
  const char* filterDir = nullptr;
  const char* themeDir = nullptr;
  std::int32_t one = 1;
  std::int32_t another = 1;
  /// The box that the picture is fitted into with its proportions, in pixels. 0 for no bound; two of them for the size
  /// of the movie.
  std::int32_t width = 0;
  std::int32_t height = 0;
  /// No wider than this; 0 for no limit.
  std::int32_t maxWidth = 0;
  std::int32_t reserved = 0;
};

}  // namespace vantra

/// The four functions, under these names. CreateContext gives null for a failure, which GetLastError then tells of with
/// a reference for the caller.
extern "C" {
using Vantra_createMessageFunction = vantra::IMessage*(VANTRA_CALL*)(std::int32_t kind);
using Vantra_createContextFunction = vantra::IContext*(VANTRA_CALL*)(void* reserved, std::int32_t kind);
using Vantra_getLastErrorFunction = vantra::IError*(VANTRA_CALL*)();
using Vantra_getAnimationExtractorFunction =
    vantra::IAnimationExtractor*(VANTRA_CALL*)(const vantra::CExtractorParams* params, vantra::IContext* context,
                                               std::int32_t firstFrame, std::int32_t flag, std::int32_t reserved);
}
