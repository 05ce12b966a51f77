#pragma once

#include "backend/ffmpeg/Geometry.h"
#include "backend/ffmpeg/Picture.h"

namespace vantra::ffmpeg {

/// Each row the other way round.
void MirrorRows(CPicture& picture);
/// The target is as wide as the source is high, if the orientation is transposed, and the other way round.
void TurnInto(CPicture& target, const CPicture& source, const COrientation& orientation);
/// Of the box around a picture that has been turned.
CSize SizeOfTurned(const CSize& size, double degrees);
/// Turns a picture that is seen in that size clockwise, bilinear, and stretches the box around it to the target. It is
/// transparent where nothing comes to lie.
void RotateInto(CPicture& target, const CPicture& source, double degrees, const CSize& size);
/// From straight alpha.
void Premultiply(CPicture& picture);
/// No colour is more than its alpha, as rounding can make it.
void ClampToAlpha(CPicture& picture);

}  // namespace vantra::ffmpeg
