#include "tests/ffmpeg/Movies.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace {

std::string InFolder(const std::string& name) {
  std::filesystem::create_directories(MOVIE_FOLDER);
  return MOVIE_FOLDER "/" + name;
}

/// Beside its place until it is whole: several tests may make it at the same time.
std::string Unfinished(const std::string& name) {
  return InFolder(std::to_string(getpid()) + "-" + name);
}

}  // namespace

std::string MadeBy(const std::string& name, const std::string& command) {
  const std::string path = InFolder(name);
  if (std::filesystem::exists(path)) return path;
  const std::string unfinished = Unfinished(name);
  const std::string line = "out='" + unfinished + "'; ffmpeg='" FFMPEG_COMMAND " -v error -nostdin -y'; " + command;
  if (std::system(line.c_str()) != 0 || !std::filesystem::exists(unfinished)) return {};
  std::filesystem::rename(unfinished, path);
  return path;
}

std::string Movie(const std::string& name, const std::string& arguments) {
  return MadeBy(name, "$ffmpeg " + arguments + " \"$out\" </dev/null");
}

std::string NumberedFrames(const std::string& rate, int count) {
  std::ostringstream graph;
  graph << "color=c=0x0000ff:s=160x96:r=" << rate << ":d=1000,format=gbrp,drawbox=0:48:160:48:white:fill";
  for (int bit = 0; bit < 8; ++bit) {
    const std::string isOne = "enable='gte(mod(floor(n/" + std::to_string(1 << bit) + "),2),1)'";
    graph << ",drawbox=" << bit * 20 << ":0:20:48:white:fill:" << isOne;
    graph << ",drawbox=" << bit * 20 << ":48:20:48:0x0000ff:fill:" << isOne;
  }
  return "-f lavfi -i \"" + graph.str() + "\" -frames:v " + std::to_string(count);
}

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string Written(const std::string& name, const std::string& bytes) {
  const std::string path = InFolder(name);
  const std::string unfinished = Unfinished(name);
  std::ofstream(unfinished, std::ios::binary) << bytes;
  std::filesystem::rename(unfinished, path);
  return path;
}

std::string UriOf(const std::string& path) {
  return "file://" + path;
}

std::string Infile(const std::string& tracks, const std::string& attributes) {
  return "<infile><videotracklist " + attributes + ">" + tracks + "</videotracklist></infile>";
}

std::string Track(const std::string& item, const std::string& attributes) {
  return "<track " + attributes + ">" + item + "</track>";
}

std::string Video(const std::string& path, const std::string& attributes, const std::string& children) {
  return "<video src=\"" + UriOf(path) + "\" " + attributes + ">" + children + "</video>";
}

std::string InfileOf(const std::string& path, const std::string& attributes, const std::string& children) {
  return Infile(Track(Video(path, attributes, children)));
}
