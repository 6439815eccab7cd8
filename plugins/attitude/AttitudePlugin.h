/* The interface of an attitude plug-in: a shared library in the folder "plugins" beside the program
 * that draws the page "Attitude" from what an attitude module says on the serial port. It exports
 * the three functions below with C linkage under these very names. The program calls them
 * on one thread, the one that draws. Plain C, so that a plug-in may be written in any language and
 * by any compiler. */
#ifndef KORVEL_ATTITUDE_PLUGIN_H
#define KORVEL_ATTITUDE_PLUGIN_H

#include <stdint.h>

#ifdef _WIN32
#define KORVEL_PLUGIN_EXPORT __declspec(dllexport)
#else
#define KORVEL_PLUGIN_EXPORT __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* What to draw into, good only during the call. */
struct KorvelPicture {
    uint32_t size;       /* of this structure in bytes; later versions only add at its end */
    int32_t width;       /* in pixels, above 0 */
    int32_t height;      /* in pixels, above 0 */
    uint32_t background; /* colours of the scheme in force, 0xAARRGGBB */
    uint32_t ink;
    uint32_t sky;
    uint32_t ground;
    uint32_t* pixels; /* width * height of them, rows from the top, 0xAARRGGBB; all get drawn */
};

/* Draws the page. */
KORVEL_PLUGIN_EXPORT void Draw(const struct KorvelPicture* picture);

/* Takes a sentence of the module ("$RPY,..."), without its line end, ended by a zero. Called only
 * while the page is shown, for all that have come since the last picture, before CheckAlive. */
KORVEL_PLUGIN_EXPORT void ProcessMessage(const char* sentence);

/* Tells whether what Draw shows is fresh; if not, the program crosses the page out. `now_ms` are
 * milliseconds that only grow. Called before each Draw. */
KORVEL_PLUGIN_EXPORT int32_t CheckAlive(int64_t now_ms);

#ifdef __cplusplus
}
#endif

#endif
