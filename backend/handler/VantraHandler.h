#pragma once

#include "backend/handler/Backend.h"
#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "foundation/SharedLibrary.h"

#include <cstdint>

namespace vantra::wx::handler {

/// The backend library. May be used by several threads at once. Each operation throws wxutil::CWXError if the library
/// lacks its function.
class CVantraHandler : public orlo::CObject {
public:
  /// Throws wxutil::CWXError if there is no library.
  CVantraHandler();

  /// May be null.
  orlo::P<IMessage> CreateMessage(std::int32_t kind);
  /// Throws CVantraError if the backend can't.
  orlo::P<IContext> CreateContext(std::int32_t kind);
  /// May be null.
  orlo::P<IAnimationExtractor> GetAnimationExtractor(const CExtractorParams& params, IContext* context,
                                                     std::int32_t firstFrame, std::int32_t flag, std::int32_t reserved);

private:
  template <class Function>
  Function Find(const char* name) const;

  orlo::P<orlo::ISharedLibrary> module_;
};

/// The one of the process, loaded at its first use. A library that wasn't there is looked for again at the next one.
orlo::P<CVantraHandler> GetVantraHandler();

}  // namespace vantra::wx::handler
