#include "host/PageSummary.h"

#include "host/Errors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace host {

namespace {

constexpr std::size_t mostLines = 20;

std::string format(const char* pattern, double value) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), pattern, value);
  return text.data();
}

std::string sizeText(std::size_t bytes) {
  const auto count = static_cast<double>(bytes);
  if (bytes < 1000) return std::to_string(bytes) + " bytes";
  if (bytes < 1'000'000) return format("%.3g kB", count / 1e3);
  return format("%.1f MB", count / 1e6);
}

std::string pixelText(std::int64_t pixels) {
  return pixels < 100'000 ? std::to_string(pixels) + " pixels"
                          : format("%.1f Mpixel", static_cast<double>(pixels) / 1e6);
}

std::string usesText(long uses) {
  return uses > 1 ? ", used " + std::to_string(uses) + " times" : "";
}

std::string detailOf(const Resource& resource) {
  std::string text = resource.frames > 1 ? counted(static_cast<std::size_t>(resource.frames), "frame") + ", " : "";
  if (resource.content == Content::picture && resource.width == 0)
    text += resource.format;
  else if (resource.content == Content::picture)
    text += resource.format + " " + std::to_string(resource.width) + "x" + std::to_string(resource.height);
  else
    text = counted(static_cast<std::size_t>(resource.paragraphs), "paragraph");
  return text + ", " + sizeText(resource.bytes) + usesText(resource.uses);
}

std::string pageLine(const PageSize& size) {
  if (!size.isUsable()) return "  page      no size\n";
  return "  page      " + format("%g", size.width) + " x " + format("%g", size.height) + " mm, " +
         aspectName(size.aspect()) + "\n";
}

std::string elementsLine(const PageContent& content) {
  long count = 0;
  std::vector<std::pair<std::string_view, long>> kinds(content.kinds.begin(), content.kinds.end());
  std::stable_sort(kinds.begin(), kinds.end(), [](const auto& a, const auto& b) { return a.second > b.second; });
  std::string list;
  for (const auto& [kind, number] : kinds) {
    count += number;
    list += (list.empty() ? ": " : ", ") + std::to_string(number) + " " + std::string(kind);
  }
  return "  elements  " + std::to_string(count) + list + "\n";
}

std::string_view nounOf(const PageContent& content, long long unique) {
  if (content.skins.contains(unique)) return "skin";
  return content.movieNumbers.contains(unique) ? "movie" : "element";
}

std::string sharedLine(const PageContent& content) {
  std::string line;
  for (const char* const noun : {"element", "skin", "movie"}) {
    std::size_t shared = 0;
    long uses = 0;
    for (const auto& [unique, number] : content.uses) {
      if (number < 2 || nounOf(content, unique) != noun) continue;
      ++shared;
      uses += number;
    }
    if (shared == 0) continue;
    line += (line.empty() ? "  shared    " : "; ") + counted(shared, noun) + usesText(uses);
  }
  return line.empty() ? line : line + "\n";
}

std::string resourceLines(const std::vector<Resource>& resources, Content content, const std::string& title) {
  std::size_t count = 0, told = 0, bytes = 0;
  std::int64_t pixels = 0;
  std::string lines;
  for (const Resource& resource : resources) {
    if (resource.content != content) continue;
    bytes += resource.bytes;
    pixels += resource.width * resource.height * std::max(1L, resource.frames);
    count += static_cast<std::size_t>(std::max(1L, resource.frames));
    if (++told > mostLines) continue;
    lines += "    line " + std::to_string(resource.line) + ": " + resource.name + ": " + detailOf(resource) + "\n";
  }
  if (count == 0) return {};
  if (told > mostLines) lines += "    and " + std::to_string(told - mostLines) + " more\n";
  return "  " + title + std::to_string(count) + ", " + sizeText(bytes) + (pixels > 0 ? ", " + pixelText(pixels) : "") +
         "\n" + lines;
}

}  // namespace

std::string aspectName(double aspect) {
  struct Known {
    const char* name;
    double value;
  };
  static constexpr Known known[] = {{"16:9", 16.0 / 9}, {"4:3", 4.0 / 3},   {"16:10", 1.6},     {"3:2", 1.5},
                                    {"5:4", 1.25},      {"1:1", 1},         {"21:9", 21.0 / 9}, {"1.85:1", 1.85},
                                    {"2.39:1", 2.39},   {"9:16", 9.0 / 16}, {"3:4", 0.75}};
  for (const Known& ratio : known) {
    const double difference = std::abs(aspect / ratio.value - 1);
    if (difference < 1e-6) return ratio.name;
  }
  for (const Known& ratio : known)
    if (std::abs(aspect / ratio.value - 1) < 0.01) return std::string("about ") + ratio.name;
  return format("%.4g:1", aspect);
}

std::string summarise(const PageContent& content, const std::vector<Resource>& resources) {
  return pageLine(content.size) + elementsLine(content) + sharedLine(content) +
         resourceLines(resources, Content::picture, "pictures  ") +
         resourceLines(resources, Content::richText, "texts     ");
}

}  // namespace host
