#include "authed/data/ScaleMode.h"

#include "foundation/Error.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace authed::data {

namespace {

constexpr std::array kWords = {"scale-width", "scale-height", "scale-fitting"};

}  // namespace

wxString WordOf(EScaleMode mode) {
  const auto index = static_cast<std::size_t>(mode);
  return index < kWords.size() ? kWords[index] : "unknown";
}

EScaleMode ScaleModeOf(const wxString& word) {
  const auto* const found = std::find(kWords.begin(), kWords.end(), word);
  if (found == kWords.end()) throw orlo::CException("Unknown Scale mode");
  return static_cast<EScaleMode>(found - kWords.begin());
}

}  // namespace authed::data
