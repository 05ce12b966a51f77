#pragma once

namespace authfilter {

/// What the process needs once before its first page: picture formats and the kinds of elements. Call it with the
/// toolkit locked.
void StartUp();

}  // namespace authfilter
