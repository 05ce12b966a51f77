#include "backend/ffmpeg/MovieStore.h"

#include "backend/ffmpeg/Failure.h"

#include <algorithm>
#include <utility>

namespace vantra::ffmpeg {

namespace {

constexpr std::size_t kMostIdle = 8;
constexpr std::int64_t kMostIdlePixels = std::int64_t{32} << 20;

std::int64_t PixelsOf(const CMovieFile& movie) {
  return std::int64_t{movie.GetFacts().width} * movie.GetFacts().height;
}

}  // namespace

const CMovieFacts& CMovieStore::GetFacts(const std::string& path) {
  {
    const std::lock_guard lock(mutex_);
    if (const auto known = facts_.find(path); known != facts_.end()) return known->second;
    if (std::chrono::steady_clock::now() > deadline_)
      throw CFailure(Fault::deadline, "Opening the movies of an infile took longer than 60 seconds");
    if (facts_.size() >= kMostMovies) throw CFailure(Fault::limit, "An infile may have at most 256 different movies");
  }
  auto movie = std::make_unique<CMovieFile>(path, closed_);
  const CMovieFacts facts = movie->GetFacts();
  GiveBack(std::move(movie));
  const std::lock_guard lock(mutex_);
  return facts_.emplace(path, facts).first->second;
}

std::unique_ptr<CMovieFile> CMovieStore::Take(const std::string& path, const std::atomic<bool>* stopped) {
  std::unique_ptr<CMovieFile> movie;
  {
    const std::lock_guard lock(mutex_);
    const auto idle = std::find_if(idle_.begin(), idle_.end(), [&](const auto& one) { return one->GetPath() == path; });
    if (idle != idle_.end()) {
      movie = std::move(*idle);
      idle_.erase(idle);
    }
  }
  if (!movie) movie = std::make_unique<CMovieFile>(path, closed_);
  movie->Begin(stopped);
  return movie;
}

void CMovieStore::GiveBack(std::unique_ptr<CMovieFile> movie) {
  movie->Begin(nullptr);
  std::vector<std::unique_ptr<CMovieFile>> old;
  const std::lock_guard lock(mutex_);
  std::int64_t pixels = PixelsOf(*movie);
  for (const auto& idle : idle_) pixels += PixelsOf(*idle);
  while (!idle_.empty() && (idle_.size() >= kMostIdle || pixels > kMostIdlePixels)) {
    pixels -= PixelsOf(*idle_.front());
    old.push_back(std::move(idle_.front()));
    idle_.erase(idle_.begin());
  }
  idle_.push_back(std::move(movie));
}

void CMovieStore::Enter(std::int64_t pixels) {
  const std::lock_guard lock(mutex_);
  if (playing_ >= kMostMoviesAtOnce) throw CFailure(Fault::limit, "At most 64 movies play at one time");
  TakeRoomLocked(pixels);
  ++playing_;
}

void CMovieStore::TakeRoom(std::int64_t pixels) {
  const std::lock_guard lock(mutex_);
  TakeRoomLocked(pixels);
}

void CMovieStore::TakeRoomLocked(std::int64_t pixels) {
  if (pixels > kMostPixelsAtOnce - pixels_)
    throw CFailure(Fault::limit, "Movies that play at one time may have at most 256 megapixels");
  pixels_ += pixels;
}

void CMovieStore::Leave(std::int64_t pixels) {
  const std::lock_guard lock(mutex_);
  --playing_;
  pixels_ -= pixels;
}

}  // namespace vantra::ffmpeg
