#pragma once

#include <atomic>
#include <chrono>
#include <thread>

/// A second thread, without which counts of the standard library skip their atomic instructions.
class CSecondThread {
public:
  CSecondThread() = default;
  ~CSecondThread() {
    stop_ = true;
    thread_.join();
  }
  CSecondThread(const CSecondThread&) = delete;
  CSecondThread& operator=(const CSecondThread&) = delete;

private:
  std::atomic<bool> stop_{false};
  std::thread thread_{[this] {
    while (!stop_) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }};
};
