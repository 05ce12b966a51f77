#pragma once

#include "backend/handler/Backend.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// A backend that does what a test tells it. The library is called as every backend is, and offers one function more,
/// Script_get. Its pictures are those of PixelOf.
namespace script {

enum class EOperation {
  createMessage,
  createContext,
  getAnimationExtractor,
  setInfile,
  start,
  seek,
  advance,
  getTime,
  setMessageTarget,
  getWidth,
  getHeight,
  close,
  lockFrame,
  unlockFrame,
  setSpeed,
  count
};

/// What an operation throws instead of doing anything.
enum class EError { none, vantra, rop, sul, orlo, standard, unknown };

/// What the extractors have been given, the last one each.
struct CGiven {
  std::int32_t contextKind = -1;
  std::int32_t messageKind = -1;
  std::string infile;
  bool interlace = true;
  /// The pointers are null: the texts follow.
  vantra::CExtractorParams params;
  std::string animationDir;
  std::string filterDir;
  std::string themeDir;
  std::int32_t firstFrame = -1;
  std::int32_t flag = -1;
  std::int32_t reserved = -1;
  std::vector<double> seeks;
  std::int32_t seekMode = -1;
  std::vector<double> speeds;
  bool hasMessage = false;
};

/// Blue, green, red and alpha of a picture; the first one has the number 0.
inline std::array<std::uint8_t, 4> PixelOf(int picture, int x, int y) {
  return {static_cast<std::uint8_t>(40 + picture * 40), static_cast<std::uint8_t>(x * 8),
          static_cast<std::uint8_t>(y * 8), 255};
}

/// All may be called from any thread.
class IScript {
public:
  /// As in the beginning: three pictures of 16 x 9 pixels, a 25th of a second apart at a host's rate of 25.
  virtual void Reset() = 0;

  virtual void SetSize(std::int32_t width, std::int32_t height) = 0;
  /// So often Advance is true. It is false from then on.
  virtual void SetPictures(int count) = 0;
  /// Bytes from row to row; 0 for so many that there is something between the rows.
  virtual void SetStride(std::int32_t stride) = 0;
  /// The operation gives null: one of the three functions, or lockFrame.
  virtual void GiveNull(EOperation operation) = 0;
  virtual void Throw(EOperation operation, EError error) = 0;
  /// What Vantra_getLastError tells of; 0 for no error.
  virtual void SetLastError(std::int32_t code) = 0;

  /// The operation doesn't return until it is let go. Start, Seek and Advance of an extractor that is closed do, too.
  virtual void Block(EOperation operation) = 0;
  virtual void LetGo(EOperation operation) = 0;
  /// Whether so many calls came to stand there, at once, before long.
  virtual bool WaitForBlocked(EOperation operation, int count = 1) = 0;

  virtual int GetCalls(EOperation operation) = 0;
  /// The calls since Reset in their order, the first hundred of them.
  virtual std::vector<EOperation> GetOrder() = 0;
  /// Whether there were so many calls before long.
  virtual bool WaitForCalls(EOperation operation, int count) = 0;
  /// Of the library's objects, how many there are.
  virtual int GetLiving() = 0;
  /// Whether there were none before long.
  virtual bool WaitForNoneLiving() = 0;
  virtual CGiven GetGiven() = 0;

protected:
  ~IScript() = default;
};

}  // namespace script

extern "C" {
using Script_getFunction = script::IScript* (*)();
}
