/*
 * mfilter: turns a page of a disc menu into video frames.
 *
 * Usable from C99 and from C++. Load libmfilter.so, or link with it.
 *
 * Life of an instance
 *   mfilter_initInfoStore, then mfilter_setParam for each parameter, then mfilter_open once. For each frame:
 *   mfilter_nextFrame, mfilter_setInputImage when there is a new input, mfilter_beginReadFrame, read the pixels,
 *   mfilter_endReadFrame. At the end mfilter_close and mfilter_releaseInfoStore. An instance is not opened twice: a
 *   second mfilter_open does nothing.
 *
 * Pixels
 *   Input and output are rows of 32-bit pixels, bytes B, G, R, A in memory, colours premultiplied with alpha, the top
 *   row first. The stride is the number of bytes from one row to the next and may be larger than four times the width.
 *   The frame has the width and height of the parameters of these names.
 *
 * Threads
 *   Different instances may be used from different threads at the same time. The calls on one instance must not
 *   overlap. A host that moves an instance to another thread tells it so with mfilter_newThread.
 *
 * Errors
 *   Only mfilter_setParam reports through its result and mfilter_getLastError. What goes wrong in the other functions,
 *   a page with an element of an unknown type for instance, or one with movies where there is no backend library,
 *   leaves them as a C++ exception derived from std::exception. The instance can be closed and released then. A handle
 *   other than one of mfilter_initInfoStore is not detected, except for a null handle in mfilter_releaseInfoStore.
 *
 * No display, no window and no event loop is needed.
 */
#ifndef MFILTER_MFILTER_H
#define MFILTER_MFILTER_H

#include <stdint.h>

#if defined(_WIN32) && !defined(_WIN64)
#define MFILTER_CALL __stdcall
#else
#define MFILTER_CALL
#endif

#if defined(_WIN32)
#if defined(MFILTER_BUILDING)
#define MFILTER_API __declspec(dllexport)
#else
#define MFILTER_API __declspec(dllimport)
#endif
#else
#define MFILTER_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Size of the buffer behind mfilter_getLastError, in bytes. A message that fills it is cut and not terminated. */
#define MFILTER_ERROR_SIZE 512

/* Makes an instance and stores its handle in *handle: null if there is no memory for it. Always returns 0. */
MFILTER_API int32_t MFILTER_CALL mfilter_initInfoStore(void** handle);

/* Ends an instance and frees all that it holds, the memory behind its last frame included. Null is allowed. Always
 * returns 0. */
MFILTER_API int32_t MFILTER_CALL mfilter_releaseInfoStore(void* handle);

/*
 * Sets one parameter. Both texts are zero-terminated and copied. Returns 0, or -1 and a message behind
 * mfilter_getLastError. Keys, compared with case:
 *   plugindata             the page's XML, as base64 text without padding: "=" counts as a letter
 *   attachments            URI or path of a zip archive that the page's pictures and texts lie in; it is read at
 *                          mfilter_open, and what cannot be had of it counts as missing
 *   skinpath               folder of skins and of the picture "filenotfound.png", UTF-8
 *   state                  name of the state that action buttons show, UTF-8
 *   noalpha                a number; other than 0: no input, the page lies on black
 *   nomovies               a number; other than 0: movies show their still pictures, and no backend library is needed;
 *                          set before mfilter_open
 *   width, height          size of the frame in pixels
 *   duration               seconds
 *   frameratenum, framerateden
 *                          frames a second, as a fraction. Without them animations keep their first picture, and how
 *                          fast movies are is left to the library that plays them
 *   basedirs.filter.uri, basedirs.animation.uri, basedirs.theme.uri
 *                          URIs of the folders that filters, movies and themes lie in which are named without one,
 *                          UTF-8
 * Numbers are read as far as they go; a text without a number gives 0.
 */
MFILTER_API int32_t MFILTER_CALL mfilter_setParam(void* handle, const char* key, const char* value);

/* Loads the page, opens its movies and makes ready for frames. Always returns 0. A page whose aspect ratio differs from
 * that of the frame by more than 0.2 is not shown: its frames hold the input alone. */
MFILTER_API int32_t MFILTER_CALL mfilter_open(void* handle);

/* The number of input images that the instance wants: 1, or 0 with "noalpha". */
MFILTER_API int32_t MFILTER_CALL mfilter_getInputCount(void* handle);

/* Sets the image under the page: as many rows as the frame has, in the form described above. It is not copied now but
 * at each repaint until the next call: keep it valid until then. Null keeps the present frame as the background.
 * The five arguments in between are ignored. Always returns 1. */
MFILTER_API int32_t MFILTER_CALL mfilter_setInputImage(void* handle, intptr_t, intptr_t, intptr_t, intptr_t, intptr_t,
                                                       const void* pixels, int32_t stride);

/* Moves all animations and movies on by one frame. Always returns 0. */
MFILTER_API int32_t MFILTER_CALL mfilter_nextFrame(void* handle);

/* Paints the frame, if anything has changed since the last one, and hands out its first row and its stride. The memory
 * is the instance's own: read it until mfilter_endReadFrame. Without a frame to show (not opened, or a size of 0)
 * *pixels is null. The two arguments in between are ignored. Always returns 0. */
MFILTER_API int32_t MFILTER_CALL mfilter_beginReadFrame(void* handle, intptr_t, intptr_t, void** pixels,
                                                        int32_t* stride);

/* Ends the reading of a frame. Always returns 0. */
MFILTER_API int32_t MFILTER_CALL mfilter_endReadFrame(void* handle);

/* Tells the instance that its next calls come from another thread. Always returns 1. */
MFILTER_API int32_t MFILTER_CALL mfilter_newThread(void* handle);

/* Stops all animations and movies. Frees nothing. Always returns 0. */
MFILTER_API int32_t MFILTER_CALL mfilter_close(void* handle);

/* The message of the last mfilter_setParam that failed: at most MFILTER_ERROR_SIZE bytes, valid as long as the instance
 * lives. Success does not clear it. */
MFILTER_API const char* MFILTER_CALL mfilter_getLastError(void* handle);

#ifdef __cplusplus
}
#endif

#endif
