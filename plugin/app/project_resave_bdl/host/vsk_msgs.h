// Host library vsk_msgs: progress and wait windows, message boxes. Implemented by the host, called by bundles
// on the main thread. host/types.h has the rules on null handles, ownership and texts. Texts are complete and
// in the user's language. Every box is modal: the call returns when the user has answered it.
#pragma once

#include "host/types.h"

extern "C" {

// Opens a progress window, the caller's; with a stop button if `stoppable` is 1, without one if it is 0.
vs_progress* vs_progress_create(uint32_t stoppable);
// Closes the window and frees it.
void vs_progress_destroy(vs_progress* window);
// Shows that `current` of `total` steps are done; a total of 0 shows no progress.
void vs_progress_show(vs_progress* window, uint32_t current, uint32_t total);
// 1 shows that the length of the work is unknown, 0 goes back to steps.
void vs_progress_indeterminate(vs_progress* window, uint32_t on);
// Shows what is being done.
void vs_progress_wcaption(vs_progress* window, const char16_t* text);
// True from the user's click on the stop button until vs_progress_reset. To be asked between steps.
bool vs_progress_get_stopped(vs_progress* window);
// Forgets the click, so that the work can go on.
void vs_progress_reset(vs_progress* window);

// Opens a window that says what the user is waiting for, the caller's; may be null.
vs_wait* vs_wait_wcreate(const char16_t* text);
// Closes the window and frees it.
void vs_wait_destroy(vs_wait* wait);

// Shows an error and waits until the user has closed the box.
void vs_show_werror(const char16_t* text);
// Shows a warning in the same way.
void vs_show_wwarning(const char16_t* text);
// Shows a message in the same way.
void vs_show_wmessage(const char16_t* text);
// Asks a question. True for yes; false for no, and if no answer can be had.
bool vs_yesno_wmessage(const char16_t* text);
// Asks a question. Returns 6 yes, 7 no, 2 cancel. Any other number means that the operating system closed the
// box, and callers take it for yes.
int32_t vs_yesnocancel_wmessage(const char16_t* text);
}
