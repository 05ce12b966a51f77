#pragma once

#include <mutex>

namespace graphics {

/// Makes the toolkit usable in this process: without a display, without a window, from any thread, any number of
/// times. An application object of the host stays in charge of its own settings. Throws orlo::CError if the
/// toolkit refuses to start.
void StartToolkit();

/// The lock that everything holds that touches the toolkit or an object of it: the toolkit counts references without
/// atomics, and its stock objects are shared by all threads.
std::recursive_mutex& ToolkitLock();

/// Holds the toolkit's lock for a scope, with the toolkit started.
class CToolkitLock {
public:
  CToolkitLock() : guard_(ToolkitLock()) { StartToolkit(); }

private:
  std::lock_guard<std::recursive_mutex> guard_;
};

}  // namespace graphics
