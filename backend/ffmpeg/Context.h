#pragma once

#include "backend/handler/BackendObject.h"

#include <cstddef>
#include <string>

namespace vantra::ffmpeg {

/// The text of an infile. Pictures are progressive whatever is said of interlace.
class CContext : public TBackendObject<IContext> {
public:
  void SetInfile(const char* text, std::size_t bytes) override;
  void SetInterlace(bool) override {}
  orlo::String getDescription() const override { return "Context"; }

  const std::string& GetInfile() const { return infile_; }

private:
  std::string infile_;
};

class CMessage : public TBackendObject<IMessage> {
public:
  orlo::String getDescription() const override { return "Message"; }
};

}  // namespace vantra::ffmpeg
