#pragma once

#include "backend/ffmpeg/Handles.h"
#include "backend/ffmpeg/HeaderGuard.h"
#include "backend/ffmpeg/Watch.h"
#include "foundation/Pointer.h"
#include "foundation/URI.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantra::ffmpeg {

/// The path that a location means when it stands in something at base, which may be null. Throws CFailure for what is
/// no local file.
std::string LocalPath(const orlo::PC<orlo::IURI>& uri, const orlo::PC<orlo::IURI>& base);

/// A regular file as FFmpeg reads it. Devices, pipes and sockets are refused: they could block.
class CLocalFile {
public:
  /// The watch lives as long as the file. Throws CFailure.
  CLocalFile(const std::string& path, const CWatch& watch);
  ~CLocalFile();
  CLocalFile(const CLocalFile&) = delete;
  CLocalFile& operator=(const CLocalFile&) = delete;

  AVIOContext* GetIO() const { return io_.get(); }
  /// What FFmpeg reads of the file goes by the guard, until the header has been read; and longer if the guard wants it.
  /// The format lives as long as the file.
  void Guard(const AVFormatContext& format);
  void EndHeader();

private:
  static int Read(void* self, std::uint8_t* buffer, int bytes);
  static std::int64_t Seek(void* self, std::int64_t offset, int whence);

  std::int64_t GetSize() const;
  int ReadGuarded(std::uint8_t* buffer, int bytes);
  int ReadHeader(std::uint8_t* buffer, int bytes);

  const CWatch& watch_;
  int file_;
  std::int64_t position_ = 0;
  std::optional<CHeaderGuard> guard_;
  /// Read in larger pieces than the guard gives away.
  std::vector<std::uint8_t> piece_;
  std::int64_t pieceAt_ = 0;
  CHandle<AVIOContext> io_;
};

/// Throws CFailure for what can't be read, or has more bytes.
std::string ReadWhole(const std::string& path, std::size_t mostBytes);

}  // namespace vantra::ffmpeg
