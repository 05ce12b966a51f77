#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace vantra::ffmpeg {

/// Of a movie's pictures, and of those that are shown.
constexpr int kMostPixelsWideOrHigh = 16384;
constexpr std::int64_t kMostPixels = std::int64_t{64} << 20;
/// Of all movies that play at one time, counting the pictures of the movie and those that it is shown as; with the
/// backgrounds of themes.
constexpr std::int64_t kMostPixelsAtOnce = std::int64_t{256} << 20;
constexpr int kMostMoviesAtOnce = 64;
/// Streams of a movie file.
constexpr const char* kMostStreams = "64";
/// Samples of a movie file that FFmpeg keeps in an index, in all its streams.
constexpr std::int64_t kMostIndexEntries = 20'000'000;
/// How much of a movie file is looked at to find out what it is, in bytes.
constexpr std::int64_t kProbedBytes = 5'000'000;
/// How long opening a movie may take, or getting its next picture.
constexpr std::chrono::seconds kLongest{10};
/// How long opening all movies of an infile may take.
constexpr std::chrono::seconds kLongestOpening{60};
/// Video items of an infile, with those of the infiles in it; different movies.
constexpr std::size_t kMostClips = 10'000;
constexpr std::size_t kMostMovies = 256;
/// Items of an infile, with those of the infiles in it and the places of its themes; the texts of all of them. A theme
/// can show one infile in many places.
constexpr std::size_t kMostItems = 100'000;
constexpr std::size_t kMostBytesInAll = std::size_t{32} << 20;
/// Infiles within one another.
constexpr int kDeepestInfile = 8;
/// A theme description.
constexpr std::size_t kMostThemeBytes = std::size_t{1} << 20;
constexpr std::size_t kMostPlaces = 1'000;

}  // namespace vantra::ffmpeg
