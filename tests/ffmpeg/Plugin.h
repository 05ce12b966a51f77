#pragma once

#include "backend/handler/Backend.h"
#include "foundation/Pointer.h"

#include <cstdint>
#include <string>

/// The library, loaded as a host does it.
struct CPlugin {
  CPlugin();

  Vantra_createMessageFunction createMessage;
  Vantra_createContextFunction createContext;
  Vantra_getLastErrorFunction getLastError;
  Vantra_getAnimationExtractorFunction getAnimationExtractor;
};

const CPlugin& Plugin();

/// With a rate of 25 frames a second.
vantra::CExtractorParams Params(int width = 0, int height = 0);
vantra::CExtractorParams ParamsAtRate(int num, int den);

orlo::P<vantra::IAnimationExtractor> Open(const std::string& infile, const vantra::CExtractorParams& params = Params(),
                                          std::int32_t firstFrame = 0);
/// Started, and with its first picture.
orlo::P<vantra::IAnimationExtractor> Play(const std::string& infile, const vantra::CExtractorParams& params = Params());
orlo::P<vantra::IError> LastError();
/// Of the last error, 0 for none.
int LastCode();
std::string LastText();

/// What can be seen of a frame.
struct CColour {
  int red = -1;
  int green = -1;
  int blue = -1;
  int alpha = -1;
};

/// All -1 without a frame.
CColour PixelAt(vantra::IAnimationExtractor& extractor, int x, int y);
bool IsNear(const CColour& a, const CColour& b, int tolerance = 6);
std::ostream& operator<<(std::ostream& stream, const CColour& colour);

/// The number that the blocks of a picture of NumberedFrames show, when they lie in this box. -1 if it isn't one.
int NumberIn(vantra::IAnimationExtractor& extractor, int x, int y, int width, int height);
int NumberOf(vantra::IAnimationExtractor& extractor);
