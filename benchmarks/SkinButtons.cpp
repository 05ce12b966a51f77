#include "benchmarks/FilterInstance.h"
#include "graphics/paint/Toolkit.h"

#include <wx/image.h>
#include <wx/mstream.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// First paint and peak memory of pages of skin buttons. Each page has a process of its own, since a peak never falls.

namespace {

std::string bitmap(int size) {
  wxImage image(size, size);
  image.InitAlpha();
  for (int y = 0; y < size; ++y)
    for (int x = 0; x < size; ++x) {
      image.SetRGB(x, y, 40, static_cast<unsigned char>(80 + y), static_cast<unsigned char>(160 + x));
      image.SetAlpha(x, y, x < 2 || y < 2 || x >= size - 2 || y >= size - 2 ? 120 : 255);
    }
  wxMemoryOutputStream stream;
  image.SaveFile(stream, wxBITMAP_TYPE_PNG);
  const auto* const start = static_cast<const unsigned char*>(stream.GetOutputStreamBuffer()->GetBufferStart());
  return R"(<attachment-bitmap extension="png"><![CDATA[)" +
         graphics::EncodeBase64({start, static_cast<std::size_t>(stream.GetLength())}) + "]]></attachment-bitmap>";
}

/// Buttons of 170 by 80 in rows of ten. One skin for all: a picture in nine parts, what the button shows, and its text
/// with a halo.
std::string pageOf(int buttons) {
  const std::string skin =
      R"(<skin unique="1" type="buttonskin" id="blue"><states><normal name="normal"><layers>)"
      R"(<animation><scale-margins left="24" top="24" right="24" bottom="24"/>)" +
      bitmap(64) +
      R"(</animation><custom/><text horzalign="0.5" vertalign="0.5" halo-enabled="true">)"
      R"(<font name="DejaVu Sans" pointsize="14" style="90" weight="92" underlined="false"/>)"
      R"(<color red="255" green="255" blue="255" alpha="255"/></text></layers></normal></states></skin>)";
  std::string elements;
  for (int button = 0; button < buttons; ++button)
    elements += R"(<state-button type-name="skin-button" label="Chapter )" + std::to_string(button + 1) +
                R"("><center x=")" + std::to_string(button % 10 * 190 + 100) + R"(" y=")" +
                std::to_string(button / 10 * 105 + 60) + R"("/><size width="170" height="80"/>)" +
                (button == 0 ? skin : R"(<skin unique="1" type="buttonskin"/>)") + "</state-button>";
  return PageOf(elements);
}

struct CResult {
  double seconds;
  long peakKilobytes;
};

double now() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

CResult measure(int buttons) {
  std::array<int, 2> pipe{};
  if (::pipe(pipe.data()) != 0) return {};
  const pid_t child = fork();
  if (child == 0) {
    graphics::StartToolkit();
    wxInitAllImageHandlers();
    CFilterInstance filter(pageOf(buttons), 1920, 1080);
    filter.Open();
    const double start = now();
    filter.Frame();
    CResult result{now() - start, 0};
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    result.peakKilobytes = usage.ru_maxrss;
    _exit(write(pipe[1], &result, sizeof(result)) == sizeof(result) ? 0 : 1);
  }
  CResult result{};
  if (read(pipe[0], &result, sizeof(result)) != sizeof(result)) result = {};
  close(pipe[0]);
  close(pipe[1]);
  waitpid(child, nullptr, 0);
  return result;
}

}  // namespace

int main() {
  constexpr std::array<int, 4> kCounts{0, 10, 30, 100};
  constexpr int kRounds = 9;
  std::array<std::vector<CResult>, kCounts.size()> results;
  for (int round = 0; round < kRounds; ++round)
    for (std::size_t index = 0; index < kCounts.size(); ++index) results[index].push_back(measure(kCounts[index]));
  const auto median = [](std::vector<CResult> all, auto member) {
    std::sort(all.begin(), all.end(), [&](const CResult& a, const CResult& b) { return a.*member < b.*member; });
    return static_cast<double>(all[all.size() / 2].*member);
  };
  const double seconds = median(results[0], &CResult::seconds);
  const double kilobytes = median(results[0], &CResult::peakKilobytes);
  std::printf("buttons   first paint   peak memory   more than without, a button\n");
  for (std::size_t index = 0; index < kCounts.size(); ++index) {
    const double time = median(results[index], &CResult::seconds);
    const double peak = median(results[index], &CResult::peakKilobytes);
    std::printf("%7d %10.2f ms %10.1f MB", kCounts[index], time * 1e3, peak / 1024);
    if (kCounts[index] > 0)
      std::printf("   %6.3f ms   %6.3f MB", (time - seconds) * 1e3 / kCounts[index],
                  (peak - kilobytes) / 1024 / kCounts[index]);
    std::printf("\n");
  }
  return 0;
}
