#include "authed/data/AspectRatio.h"

#include "foundation/Error.h"

namespace authed::data {

wxString WordOf(EAspectRatio ratio) {
  switch (ratio) {
    case EAspectRatio::wide:
      return "16:9";
    case EAspectRatio::narrow:
      return "4:3";
  }
  throw orlo::CException("Unkown Screen Type");
}

std::optional<EAspectRatio> AspectRatioOf(const wxString& word) {
  for (const auto ratio : {EAspectRatio::wide, EAspectRatio::narrow})
    if (WordOf(ratio) == word) return ratio;
  return {};
}

double HeightOverWidth(EAspectRatio ratio) {
  switch (ratio) {
    case EAspectRatio::wide:
      return 0.5625;
    case EAspectRatio::narrow:
      return 0.75;
  }
  return 1.0;
}

}  // namespace authed::data
