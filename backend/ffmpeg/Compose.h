#pragma once

#include "backend/ffmpeg/Visual.h"

#include <cstdint>
#include <map>
#include <vector>

namespace vantra::ffmpeg {

/// Lays layers over one another, on transparent ground.
class CComposer {
public:
  CComposer(int width, int height) : pool_(width, height), width_(width), height_(height) {}

  /// The picture of a layer itself where it is all that there is to see.
  CSharedPicture Compose(const std::vector<CLayer>& layers);

private:
  /// What has been laid on a picture.
  struct CLaid {
    std::uint64_t number = 0;
    CPixelBox box;
    CPixelBox seen;
    bool isOpaque = false;

    bool IsLike(const CLaid& other) const {
      return box == other.box && seen == other.seen && isOpaque == other.isOpaque;
    }
  };

  bool IsWhole(const CLayer& layer) const;
  CLaid LaidOf(const CLayer& layer) const;

  CPicturePool pool_;
  int width_;
  int height_;
  /// By the pictures of the pool, which come back as they were.
  std::map<const CPicture*, std::vector<CLaid>> laid_;
};

}  // namespace vantra::ffmpeg
