#pragma once

#include "authed/data/Movie.h"
#include "backend/handler/VantraHandler.h"
#include "foundation/Object.h"

#include <cstdint>
#include <memory>
#include <mutex>

namespace authed::data {

/// An extractor of the backend, together with what must live as long as it does: the library, the context, the texts of
/// the folders. One thread at a time, but for Close.
class CMovieExtractor : public orlo::CObject {
public:
  /// The mode of Seek for the very frame of a time.
  static constexpr std::int32_t kSeekToFrame = 1;

  /// Makes the context. Throws as CVantraHandler does.
  CMovieExtractor(const vantra::infilexml::CInfile& infile, const std::shared_ptr<const CThumbnailRequest>& request);

  /// Takes as long as the backend needs to open the movie. Throws as CVantraHandler does, and what the backend throws.
  void Open(std::int32_t firstFrame, std::int32_t flag);
  /// Null if the backend has no extractor for the infile, and before Open.
  vantra::IAnimationExtractor* Get() const { return extractor_.get(); }
  /// From now on the extractor answers to the calling thread.
  void AnswerToThisThread();
  /// Ends decoding for good, also from another thread. An extractor that is still to come is closed when it comes. What
  /// goes wrong is told to nobody.
  void Close() noexcept;
  /// Gives the backend's objects back. Nobody else may have them.
  void Clear();

private:
  const orlo::P<vantra::wx::handler::CVantraHandler> handler_ = vantra::wx::handler::GetVantraHandler();
  const std::shared_ptr<const CThumbnailRequest> request_;
  orlo::P<vantra::IContext> context_;
  /// Changed under the lock, which is not held while the backend works.
  orlo::P<vantra::IAnimationExtractor> extractor_;
  std::mutex lock_;
  bool isClosed_ = false;
};

}  // namespace authed::data
