#pragma once

namespace authfilter {

struct CInfoStore;

/// Loads the page of an instance that has its bitmap: page transform, and layers that are still to be opened. A page
/// whose aspect ratio is more than 0.2 from the bitmap's gets no layers.
void LoadPage(CInfoStore& store);

}  // namespace authfilter
