#include "benchmarks/Allocations.h"
#include "benchmarks/FilterInstance.h"
#include "benchmarks/Ratios.h"

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavutil/frame.h>
}

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <vector>

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int kStride = kWidth * 4;
constexpr std::size_t kBytes = static_cast<std::size_t>(kStride) * kHeight;

using CPicture = std::vector<std::uint8_t>;

/// Inputs to take in turn, so that each frame has a new one. With an odd number of them a copy and a repaint that take
/// turns both get pictures that were last read equally long ago.
const std::array<CPicture, 3>& inputs() {
  static const auto pictures = [] {
    std::array<CPicture, 3> result;
    std::mt19937 random(1);
    for (CPicture& picture : result) {
      picture.resize(kBytes);
      std::generate(picture.begin(), picture.end(), [&] { return static_cast<std::uint8_t>(random()); });
      for (std::size_t alpha = 3; alpha < kBytes; alpha += 4) picture[alpha] = 255;
    }
    return result;
  }();
  return pictures;
}

/// Ten buttons over 10 % of the picture, half of them translucent.
std::string tenPercent() {
  std::string elements;
  for (int button = 0; button < 10; ++button)
    elements += RectangleAt(100 + (button % 5) * 360, 200 + (button / 5) * 400, 288, 72, button % 2 ? 255 : 128);
  return PageOf(elements);
}

void setBytes(benchmark::State& state) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(kBytes));
}

/// Each repaint stands beside a plain copy of a frame: memory that is slow for a while is slow for both, so that
/// the counter toCopy, the median of the pairs, is steadier than the times.
void repaint(benchmark::State& state, const std::string& page) {
  using CClock = std::chrono::steady_clock;
  using CSeconds = std::chrono::duration<double>;
  CFilterInstance filter(page, kWidth, kHeight);
  filter.Open();
  filter.Frame();
  CPicture copy(kBytes);
  std::vector<double> ratios;
  std::size_t turn = 0;
  for (auto _ : state) {
    const CPicture& copied = inputs()[++turn % inputs().size()];
    const CPicture& input = inputs()[++turn % inputs().size()];
    const auto start = CClock::now();
    std::memcpy(copy.data(), copied.data(), kBytes);
    benchmark::DoNotOptimize(copy.data());
    benchmark::ClobberMemory();
    const auto between = CClock::now();
    filter.SetInput(input.data(), kStride);
    benchmark::DoNotOptimize(filter.Frame());
    benchmark::ClobberMemory();
    const double repaintTime = CSeconds(CClock::now() - between).count();
    state.SetIterationTime(repaintTime);
    ratios.push_back(repaintTime / CSeconds(between - start).count());
  }
  const auto middle = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2);
  std::nth_element(ratios.begin(), middle, ratios.end());
  state.counters["toCopy"] = *middle;
  setBytes(state);
}

void RepaintTenPercent(benchmark::State& state) {
  repaint(state, tenPercent());
}

void RepaintHalfTransparent(benchmark::State& state) {
  repaint(state, PageOf(RectangleAt(0, 0, kWidth, kHeight, 128)));
}

void RepaintEmptyPage(benchmark::State& state) {
  repaint(state, PageOf(""));
}

void StillFrame(benchmark::State& state) {
  CFilterInstance filter(tenPercent(), kWidth, kHeight);
  filter.Open();
  filter.SetInput(inputs()[0].data(), kStride);
  filter.Frame();
  const std::size_t before = AllocationCount();
  for (auto _ : state) benchmark::DoNotOptimize(filter.Frame());
  state.counters["allocations"] = static_cast<double>(AllocationCount() - before);
}

/// FFmpeg's overlay filter with a layer that stays and a new picture below it each frame.
class COverlay {
public:
  explicit COverlay(const CPicture& layer) : graph_(avfilter_graph_alloc()) {
    const std::string size = "video_size=1920x1080:pix_fmt=bgra:time_base=1/25:pixel_aspect=1/1";
    below_ = create("buffer", "below", size.c_str());
    above_ = create("buffer", "above", size.c_str());
    AVFilterContext* overlay = create("overlay", "overlay", "alpha=premultiplied:format=rgb:eof_action=repeat");
    sink_ = create("buffersink", "sink", nullptr);
    avfilter_link(below_, 0, overlay, 0);
    avfilter_link(above_, 0, overlay, 1);
    avfilter_link(overlay, 0, sink_, 0);
    if (avfilter_graph_config(graph_, nullptr) < 0) std::abort();
    push(above_, layer, 0);
    if (av_buffersrc_add_frame(above_, nullptr) < 0) std::abort();
  }
  ~COverlay() { avfilter_graph_free(&graph_); }
  COverlay(const COverlay&) = delete;
  COverlay& operator=(const COverlay&) = delete;

  void Frame(const CPicture& picture) {
    push(below_, picture, ++time_);
    AVFrame* frame = av_frame_alloc();
    if (av_buffersink_get_frame(sink_, frame) < 0) std::abort();
    benchmark::DoNotOptimize(frame->data[0]);
    av_frame_free(&frame);
  }

private:
  AVFilterContext* create(const char* filter, const char* name, const char* arguments) {
    AVFilterContext* context = nullptr;
    if (avfilter_graph_create_filter(&context, avfilter_get_by_name(filter), name, arguments, nullptr, graph_) < 0)
      std::abort();
    return context;
  }
  static void push(AVFilterContext* source, const CPicture& picture, std::int64_t time) {
    AVFrame* frame = av_frame_alloc();
    frame->format = AV_PIX_FMT_BGRA;
    frame->width = kWidth;
    frame->height = kHeight;
    frame->pts = time;
    // Read-only, as a frame is that its sender goes on using: the filter makes the one copy that it writes to.
    frame->buf[0] = av_buffer_create(
        const_cast<std::uint8_t*>(picture.data()), kBytes, [](void*, std::uint8_t*) {}, nullptr,
        AV_BUFFER_FLAG_READONLY);
    frame->data[0] = frame->buf[0]->data;
    frame->linesize[0] = kStride;
    if (av_buffersrc_add_frame(source, frame) < 0) std::abort();
    av_frame_free(&frame);
  }

  AVFilterGraph* graph_;
  AVFilterContext* below_ = nullptr;
  AVFilterContext* above_ = nullptr;
  AVFilterContext* sink_ = nullptr;
  std::int64_t time_ = 0;
};

void overlay(benchmark::State& state, const std::string& page) {
  CFilterInstance filter(page, kWidth, kHeight);
  filter.Open();
  CPicture layer(kBytes);
  std::memcpy(layer.data(), filter.Frame(), kBytes);
  COverlay ffmpeg(layer);
  std::size_t turn = 0;
  for (auto _ : state) ffmpeg.Frame(inputs()[++turn % inputs().size()]);
  setBytes(state);
}

void FfmpegOverlayTenPercent(benchmark::State& state) {
  overlay(state, tenPercent());
}

void FfmpegOverlayHalfTransparent(benchmark::State& state) {
  overlay(state, PageOf(RectangleAt(0, 0, kWidth, kHeight, 128)));
}

BENCHMARK(RepaintEmptyPage)->UseManualTime();
BENCHMARK(RepaintTenPercent)->UseManualTime();
BENCHMARK(RepaintHalfTransparent)->UseManualTime();
BENCHMARK(StillFrame)->UseRealTime();
BENCHMARK(FfmpegOverlayTenPercent)->UseRealTime();
BENCHMARK(FfmpegOverlayHalfTransparent)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  std::printf("Goals for toCopy: at most 1.4 where a tenth is touched, 3 where all is half transparent.\n");
  return RunWithRatios(argc, argv,
                       {{"RepaintTenPercent", "FfmpegOverlayTenPercent", 1.0},
                        {"RepaintHalfTransparent", "FfmpegOverlayHalfTransparent", 1.0}});
}
