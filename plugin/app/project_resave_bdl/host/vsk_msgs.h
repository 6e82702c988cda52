// Host library vsk_msgs: progress and wait windows, message boxes. Every box is modal.
#pragma once

#include "host/types.h"

extern "C" {

// Progress window, owned by the one who created it. `stoppable` 1 gives it a stop button.
vs_progress* vs_progress_create(uint32_t stoppable);
void vs_progress_destroy(vs_progress* window);
void vs_progress_show(vs_progress* window, uint32_t current, uint32_t total);
void vs_progress_indeterminate(vs_progress* window, uint32_t on);
void vs_progress_wcaption(vs_progress* window, const char16_t* text);
// True from the click on the stop button until vs_progress_reset.
bool vs_progress_get_stopped(vs_progress* window);
void vs_progress_reset(vs_progress* window);

// Wait window without progress, owned by the one who created it; may be null.
vs_wait* vs_wait_wcreate(const char16_t* text);
void vs_wait_destroy(vs_wait* wait);

void vs_show_werror(const char16_t* text);
void vs_show_wwarning(const char16_t* text);
void vs_show_wmessage(const char16_t* text);
// True for yes.
bool vs_yesno_wmessage(const char16_t* text);
// 6 yes, 7 no, 2 cancel; anything else is the box closed by the system and counts as yes.
int32_t vs_yesnocancel_wmessage(const char16_t* text);
}
