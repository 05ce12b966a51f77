#include "host/Findings.h"

#include "host/Errors.h"

#include <algorithm>
#include <limits>

namespace host {

std::vector<Finding> Findings::sorted() const {
  const auto place = [](const Finding& finding) {
    return finding.line > 0 ? finding.line : std::numeric_limits<long>::max();
  };
  std::vector<Finding> result = list_;
  std::stable_sort(result.begin(), result.end(),
                   [&](const Finding& a, const Finding& b) { return place(a) < place(b); });
  return result;
}

void Findings::add(Finding::Level level, long line, const std::string& text) {
  (level == Finding::Level::error ? errors_ : warnings_) += 1;
  if (list_.size() < most) list_.push_back({level, line, oneLine(text)});
}

}  // namespace host
