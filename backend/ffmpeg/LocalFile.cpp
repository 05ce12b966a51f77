#include "backend/ffmpeg/LocalFile.h"

#include "backend/ffmpeg/Failure.h"
#include "foundation/Pathes.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <span>
#include <sys/stat.h>
#include <unistd.h>

namespace vantra::ffmpeg {

namespace {

constexpr int kBufferBytes = 1 << 16;

int OpenRegular(const std::string& path) {
  // Asked before it is opened, since to some devices that means something, and again in case that it has changed.
  struct stat before {};
  if (stat(path.c_str(), &before) == 0 && !S_ISREG(before.st_mode))
    throw CFailure(Fault::notLocal, "Not a file: " + path);
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (file < 0) throw CFailure(Fault::notFound, "Can't open " + path, AVERROR(errno));
  struct stat facts {};
  if (fstat(file, &facts) == 0 && S_ISREG(facts.st_mode)) return file;
  close(file);
  throw CFailure(Fault::notLocal, "Not a file: " + path);
}

int ReadAt(int file, std::uint8_t* buffer, int bytes, std::int64_t position) {
  const ssize_t got = pread(file, buffer, static_cast<std::size_t>(bytes), position);
  if (got < 0) return AVERROR(errno);
  return got == 0 ? AVERROR_EOF : static_cast<int>(got);
}

}  // namespace

void CWatch::Check() const {
  if (IsClosed()) throw CFailure(Fault::closed, "The movie has been closed");
  if (IsLate()) throw CFailure(Fault::deadline, "The movie took longer than 10 seconds");
}

std::string LocalPath(const orlo::PC<orlo::IURI>& uri, const orlo::PC<orlo::IURI>& base) {
  if (!uri || uri->getDescription().isEmpty()) throw CFailure(Fault::infile, "A movie has no location");
  orlo::PC<orlo::IURI> location = uri;
  if (base && !uri->isAbsolute()) location = uri->resolve(base);
  const bool local =
      (!location->hasScheme() || location->getScheme().equalsIgnoreCase("file")) &&
      (!location->hasHost() || location->getHost().isEmpty() || location->getHost().equalsIgnoreCase("localhost"));
  const std::string path = local ? orlo::toStdString(orlo::getPathes()->uriToPath(location)) : std::string();
  if (path.empty() || path.find('\0') != std::string::npos)
    throw CFailure(Fault::notLocal, "Not a local file: " + orlo::toStdString(uri->getDescription()));
  return path;
}

CLocalFile::CLocalFile(const std::string& path, const CWatch& watch) : watch_(watch), file_(OpenRegular(path)) {
  auto* const buffer = static_cast<unsigned char*>(av_malloc(kBufferBytes));
  io_.reset(buffer ? avio_alloc_context(buffer, kBufferBytes, 0, this, Read, nullptr, Seek) : nullptr);
  if (io_) return;
  av_free(buffer);
  close(file_);
  throw std::bad_alloc();
}

CLocalFile::~CLocalFile() {
  close(file_);
}

int CLocalFile::Read(void* self, std::uint8_t* buffer, int bytes) {
  auto& file = *static_cast<CLocalFile*>(self);
  if (file.watch_.IsOver()) return AVERROR_EXIT;
  const int got = file.guard_ ? file.ReadGuarded(buffer, bytes) : ReadAt(file.file_, buffer, bytes, file.position_);
  if (got > 0) file.position_ += got;
  return got;
}

int CLocalFile::ReadGuarded(std::uint8_t* buffer, int bytes) {
  if (guard_->IsInHeader() && guard_->IsNeeded()) return ReadHeader(buffer, bytes);
  const int got = ReadAt(file_, buffer, bytes, position_);
  if (got > 0 && !guard_->MayRead({buffer, static_cast<std::size_t>(got)})) return AVERROR(ENOMEM);
  return got;
}

int CLocalFile::ReadHeader(std::uint8_t* buffer, int bytes) {
  const auto isInPiece = [&] {
    return position_ >= pieceAt_ && position_ < pieceAt_ + static_cast<std::int64_t>(piece_.size());
  };
  if (!isInPiece()) {
    piece_.resize(kBufferBytes);
    const int got = ReadAt(file_, piece_.data(), kBufferBytes, position_);
    piece_.resize(static_cast<std::size_t>(std::max(got, 0)));
    pieceAt_ = position_;
    if (got <= 0) return got;
  }
  const auto behind = std::span(piece_).subspan(static_cast<std::size_t>(position_ - pieceAt_));
  const auto next = behind.first(std::min(behind.size(), static_cast<std::size_t>(std::min(bytes, guard_->kStep))));
  if (!guard_->MayRead(next)) return AVERROR(ENOMEM);
  std::copy(next.begin(), next.end(), buffer);
  return static_cast<int>(next.size());
}

void CLocalFile::Guard(const AVFormatContext& format) {
  guard_.emplace(format, GetSize());
}

void CLocalFile::EndHeader() {
  guard_->EndHeader();
  if (!guard_->IsNeeded()) guard_.reset();
}

std::int64_t CLocalFile::GetSize() const {
  struct stat facts {};
  return fstat(file_, &facts) == 0 ? facts.st_size : AVERROR(errno);
}

std::int64_t CLocalFile::Seek(void* self, std::int64_t offset, int whence) {
  auto& file = *static_cast<CLocalFile*>(self);
  if (whence == AVSEEK_SIZE) return file.GetSize();
  std::int64_t from = 0;
  switch (whence & ~AVSEEK_FORCE) {
    case SEEK_SET:
      break;
    case SEEK_CUR:
      from = file.position_;
      break;
    case SEEK_END:
      from = file.GetSize();
      break;
    default:
      return AVERROR(EINVAL);
  }
  std::int64_t place = 0;
  if (from < 0 || __builtin_add_overflow(from, offset, &place) || place < 0) return AVERROR(EINVAL);
  return file.position_ = place;
}

std::string ReadWhole(const std::string& path, std::size_t mostBytes) {
  const auto closeFile = [](std::FILE* file) { std::fclose(file); };
  const std::unique_ptr<std::FILE, decltype(closeFile)> file(fdopen(OpenRegular(path), "rb"), closeFile);
  std::string text(mostBytes + 1, '\0');
  text.resize(file ? std::fread(text.data(), 1, text.size(), file.get()) : 0);
  if (text.size() > mostBytes)
    throw CFailure(Fault::limit, "Larger than " + std::to_string(mostBytes) + " bytes: " + path);
  return text;
}

}  // namespace vantra::ffmpeg
