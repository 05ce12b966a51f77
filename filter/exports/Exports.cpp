#include "filter/InfoStore.h"
#include "filter/Parameters.h"
#include "graphics/paint/Toolkit.h"
#include "include/mfilter/mfilter.h"

#include <wx/thread.h>

#include <new>

namespace {

using authfilter::CInfoStore;

/// Guards the making and the ending of instances.
wxCriticalSection& instances() {
  static wxCriticalSection section;
  return section;
}

CInfoStore& storeOf(void* handle) {
  return *static_cast<CInfoStore*>(handle);
}

}  // namespace

int32_t mfilter_initInfoStore(void** handle) {
  const wxCriticalSectionLocker locker(instances());
  graphics::StartToolkit();
  *handle = new (std::nothrow) CInfoStore;
  return 0;
}

int32_t mfilter_releaseInfoStore(void* handle) {
  const wxCriticalSectionLocker locker(instances());
  delete static_cast<CInfoStore*>(handle);
  return 0;
}

int32_t mfilter_setParam(void* handle, const char* key, const char* value) {
  return authfilter::SetParam(storeOf(handle), key, value) ? 0 : -1;
}

int32_t mfilter_open(void* handle) {
  storeOf(handle).Open();
  return 0;
}

int32_t mfilter_getInputCount(void* handle) {
  return storeOf(handle).noAlpha ? 0 : 1;
}

int32_t mfilter_setInputImage(void* handle, intptr_t, intptr_t, intptr_t, intptr_t, intptr_t, const void* pixels,
                              int32_t stride) {
  storeOf(handle).SetInputImage(pixels, stride);
  return 1;
}

int32_t mfilter_nextFrame(void* handle) {
  storeOf(handle).NextFrame();
  return 0;
}

int32_t mfilter_beginReadFrame(void* handle, intptr_t, intptr_t, void** pixels, int32_t* stride) {
  const graphics::CPixels frame = storeOf(handle).BeginReadFrame();
  *pixels = frame.data;
  *stride = frame.stride;
  return 0;
}

int32_t mfilter_endReadFrame(void* handle) {
  storeOf(handle).EndReadFrame();
  return 0;
}

int32_t mfilter_newThread(void* handle) {
  storeOf(handle).NewThread();
  return 1;
}

int32_t mfilter_close(void* handle) {
  storeOf(handle).Close();
  return 0;
}

const char* mfilter_getLastError(void* handle) {
  return storeOf(handle).lastError.data();
}
