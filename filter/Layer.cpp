#include "filter/Layer.h"

namespace authfilter {

void CLayer::Open(const wxString&, const wxString&, const wxString&) {}

}  // namespace authfilter
