#pragma once

#include "backend/ffmpeg/Geometry.h"
#include "backend/ffmpeg/Picture.h"

#include <vector>

namespace vantra::ffmpeg {

/// A picture in its place on the screen. Nothing is seen of it outside of the visible part.
struct CLayer {
  CSharedPicture picture;
  int x = 0;
  int y = 0;
  CPixelBox visible;

  bool operator==(const CLayer&) const = default;
};

/// Something that is seen by itself: a movie, a colour.
class ILeaf {
public:
  virtual ~ILeaf() = default;
  /// Work begins on that time and those that follow in steps; Show will be asked for it next.
  virtual void Request(double seconds, double step) = 0;
  /// That time will be asked for in kFramesAhead frames.
  virtual void Expect(double seconds, double step) = 0;
  /// Waits for the picture. Without one if there is none.
  virtual CLayer Show(double seconds, double step) = 0;
  /// Frees what playing takes unless it has been used lately: called once for each frame.
  virtual void Tidy() = 0;
  /// The movie has been closed: what waits in Show returns.
  virtual void Wake() = 0;
};

/// In seconds: what begins or ends in the next frame but for rounding does so now.
constexpr double kHair = 1e-6;

/// How many frames before it is seen a leaf learns of it.
constexpr int kFramesAhead = 12;

struct CSeen {
  ILeaf* leaf = nullptr;
  /// Of the leaf's own.
  double seconds = 0;
};

/// A node of what is played. Times are seconds from its own beginning.
class IVisual {
public:
  virtual ~IVisual() = default;
  /// In display pixels; nothing if it takes any size.
  virtual CSize GetSize() const = 0;
  /// Infinite for what stands still or repeats.
  virtual double GetDuration() const = 0;
  /// Where it comes to lie, in pixels of the screen. Once, before anything is shown. Throws CFailure beyond the limits.
  virtual void Place(const CBox& place, const CPixelBox& visible) = 0;
  /// Appends what is seen at a time, the lowest first.
  virtual void See(double seconds, std::vector<CSeen>& seen) = 0;
};

}  // namespace vantra::ffmpeg
