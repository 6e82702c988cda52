// Host library vsk_msgs: progress and wait windows, message boxes. Implemented by the host, called by bundles
// on the main thread. host/types.h has the rules on null handles, ownership and texts. Texts are complete and
// in the user's language. Every box is modal: the call returns when the user has answered it.
#pragma once

#include "host/types.h"

extern "C" {

// Opens a progress window, owned by the caller; it has a stop button if `stoppable` is 1, and none if it is
// 0.
vs_progress* vs_progress_create(uint32_t stoppable);
// Closes the window and frees it.
void vs_progress_destroy(vs_progress* window);
// Shows that `current` of `total` steps are done; shows no progress if `total` is 0.
void vs_progress_show(vs_progress* window, uint32_t current, uint32_t total);
// 1 shows that the length of the work is unknown, 0 returns to showing steps.
void vs_progress_indeterminate(vs_progress* window, uint32_t on);
// Shows the current activity.
void vs_progress_wcaption(vs_progress* window, const char16_t* text);
// True from the user's click on the stop button until vs_progress_reset. Callers ask between steps.
bool vs_progress_get_stopped(vs_progress* window);
// Clears the click, so that the work can continue.
void vs_progress_reset(vs_progress* window);

// Opens a window that shows what the user is waiting for, owned by the caller; may return null.
vs_wait* vs_wait_wcreate(const char16_t* text);
// Closes the window and frees it.
void vs_wait_destroy(vs_wait* wait);

// Shows an error and returns when the user has closed the box.
void vs_show_werror(const char16_t* text);
// Shows a warning in the same way.
void vs_show_wwarning(const char16_t* text);
// Shows a message in the same way.
void vs_show_wmessage(const char16_t* text);
// Asks a question. Returns true for yes; false for no, and if the question cannot be shown.
bool vs_yesno_wmessage(const char16_t* text);
// Asks a question. Returns 6 for yes, 7 for no, 2 for cancel. Any other number means that the operating
// system closed the box, and callers treat it as yes.
int32_t vs_yesnocancel_wmessage(const char16_t* text);
}
