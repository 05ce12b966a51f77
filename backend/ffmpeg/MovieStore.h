#pragma once

#include "backend/ffmpeg/MovieFile.h"

#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace vantra::ffmpeg {

/// The movie files of one extractor: what they are, and those that are open but not used at present. May be used by
/// several threads.
class CMovieStore {
public:
  explicit CMovieStore(const std::atomic<bool>& closed) : closed_(closed) {}

  /// Opens the movie if it isn't known yet. Throws CFailure, also when all that has been opened took too long.
  const CMovieFacts& GetFacts(const std::string& path);
  /// An open movie, to be given back when it is not used any more. Throws CFailure.
  std::unique_ptr<CMovieFile> Take(const std::string& path, const std::atomic<bool>* stopped);
  void GiveBack(std::unique_ptr<CMovieFile> movie);

  /// Asks for room to play pictures of so many pixels. Throws CFailure if there is none; else Leave gives it back.
  void Enter(std::int64_t pixels);
  void Leave(std::int64_t pixels);
  /// For what stays as long as the store does. Throws CFailure.
  void TakeRoom(std::int64_t pixels);

private:
  void TakeRoomLocked(std::int64_t pixels);

  const std::atomic<bool>& closed_;
  std::mutex mutex_;
  std::map<std::string, CMovieFacts> facts_;
  std::vector<std::unique_ptr<CMovieFile>> idle_;
  const std::chrono::steady_clock::time_point deadline_ = std::chrono::steady_clock::now() + kLongestOpening;
  int playing_ = 0;
  std::int64_t pixels_ = 0;
};

}  // namespace vantra::ffmpeg
