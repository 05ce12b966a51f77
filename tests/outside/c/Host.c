#include "mfilter/mfilter.h"

#include <stdio.h>

static int failures = 0;

static void expect(int holds, const char* what) {
  if (holds) return;
  fprintf(stderr, "not so: %s\n", what);
  ++failures;
}

int main(void) {
  void* handle = NULL;
  void* pixels = NULL;
  int32_t stride = 0;
  const unsigned char* frame;

  expect(mfilter_initInfoStore(&handle) == 0 && handle, "an instance is made");
  expect(mfilter_setParam(handle, "width", "16") == 0, "the width is taken");
  expect(mfilter_setParam(handle, "height", "9") == 0, "the height is taken");
  expect(mfilter_setParam(handle, "noalpha", "1") == 0, "black is wanted");
  expect(mfilter_setParam(handle, "colour", "red") == -1, "an unknown parameter is refused");
  expect(mfilter_getLastError(handle)[0] == 's', "a message says so");
  expect(mfilter_open(handle) == 0, "it opens");
  expect(mfilter_getInputCount(handle) == 0, "no input is wanted");
  expect(mfilter_newThread(handle) == 1, "threads may change");
  expect(mfilter_nextFrame(handle) == 0, "the first frame comes");
  expect(mfilter_setInputImage(handle, 0, 0, 0, 0, 0, NULL, 0) == 1, "no input is an input");
  expect(mfilter_beginReadFrame(handle, 0, 0, &pixels, &stride) == 0 && pixels, "a frame can be read");
  expect(stride >= 64, "rows follow one another");
  frame = pixels;
  expect(frame && frame[0] == 0 && frame[3] == 255, "it is black");
  expect(mfilter_endReadFrame(handle) == 0, "reading ends");
  expect(mfilter_close(handle) == 0, "it closes");
  expect(mfilter_releaseInfoStore(handle) == 0, "it goes");
  return failures == 0 ? 0 : 1;
}
