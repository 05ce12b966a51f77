#pragma once

#include "authed/data/MovieAnimation.h"
#include "authed/data/MovieFile.h"
#include "graphics/paint/Toolkit.h"
#include "tests/backend_script/ScriptedBackend.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

#include <array>

namespace authed::data {

using script::EError;
using script::EOperation;

inline orlo::P<CMovieFile> TenSecondMovie() {
  auto movie = orlo::makeObject<CMovieFile>();
  movie->filename.Assign("/films/a b.mp4");
  movie->duration = 10;
  return movie;
}

using CBytes = std::array<std::uint8_t, 4>;

/// Blue, green, red and alpha.
inline CBytes PixelIn(const wxBitmap& bitmap, int x, int y) {
  const graphics::CBitmapSurface surface(bitmap);
  const std::uint8_t* const pixel = surface.Pixels().Row(y) + x * 4;
  return {pixel[0], pixel[1], pixel[2], pixel[3]};
}

inline wxBitmap PictureOf(int width, int height, const CBytes& colour) {
  const wxBitmap bitmap = graphics::MakeAlphaBitmap(width, height);
  const graphics::CBitmapSurface surface(bitmap);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) std::copy(colour.begin(), colour.end(), surface.Pixels().Row(y) + x * 4);
  surface.MarkDirty();
  return bitmap;
}

/// With the toolkit started, but not locked: other threads are to get at it.
class CWithBackend : public testing::Test {
protected:
  CWithBackend() { graphics::StartForTests(); }
  ~CWithBackend() override {
    EXPECT_TRUE(CWorkerThread::WaitForNone(kLongestWait));
    EXPECT_TRUE(backend->WaitForNoneLiving());
  }

  static constexpr int kLongestWait = 60;

  orlo::P<CMovieAnimation> Animation(const CMovieAnimationSettings& settings = {}, const wxBitmap* still = nullptr) {
    return orlo::makeObject<CMovieAnimation>(TenSecondMovie()->CreateInfile(25), still, settings,
                                             CFolders{"file:///f", "file:///a", "file:///t"});
  }
  static bool Extract(CMovieAnimation& animation) {
    return animation.StartExtraction(25, 1, 0, 1, "file:///filters", "file:///animations", "file:///themes");
  }

  const CScriptedBackend backend;
};

}  // namespace authed::data
