#include "tests/host/Media.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace test {

namespace {

std::string must(const Outcome& outcome) {
  if (outcome.exitCode != 0) throw std::runtime_error(outcome.errors);
  return outcome.output;
}

}  // namespace

std::string page(const std::string& elements) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<graphic-document version=\"1\">\n"
         "  <content-box x=\"0\" y=\"0\" width=\"256\" height=\"144\"/>\n" +
         elements + "</graphic-document>\n";
}

void makeMedia(const Folder& folder, const std::string& arguments, const std::string& name) {
  must(shell(folder.path(), "ffmpeg -nostdin -v error -y " + arguments + " '" + name + "'"));
}

std::string probe(const Folder& folder, const std::string& name, const std::string& property) {
  const std::string count = property == "nb_read_frames" ? "-count_frames " : "";
  std::string text =
      must(shell(folder.path(), "ffprobe -v error " + count + "-select_streams v:0 -show_entries stream=" + property +
                                    " -of default=nw=1:nk=1 '" + name + "'"));
  text.erase(text.find_last_not_of('\n') + 1);
  return text;
}

std::string decode(const Folder& folder, const std::string& name, const std::string& format) {
  return must(shell(folder.path(), "ffmpeg -nostdin -v error -i '" + name +
                                       "' -fps_mode passthrough -f rawvideo -pix_fmt " + format + " -"));
}

std::string repeat(const std::string& text, std::size_t times) {
  std::string result;
  result.reserve(text.size() * times);
  while (times-- > 0) result += text;
  return result;
}

int largestDifference(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return 256;
  int largest = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    largest = std::max(largest, std::abs(static_cast<unsigned char>(a[i]) - static_cast<unsigned char>(b[i])));
  }
  return largest;
}

}  // namespace test
