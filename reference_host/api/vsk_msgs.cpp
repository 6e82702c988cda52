// The C functions of vsk_msgs. They pass every message, question and progress update to the current front
// end.
#include "host/vsk_msgs.h"

#include "reference_host/api/calls.h"
#include "reference_host/api/objects.h"

using namespace vestra::api;
using vestra::shell::current_front_end;

// The window is closed in the front end that is current now, even if another one opened it.
progress_window::~progress_window() {
    guarded([] { current_front_end().progress_closed(); });
}

wait_window::~wait_window() {
    guarded([] { current_front_end().wait_closed(); });
}

vs_progress* vs_progress_create(uint32_t stoppable) { return create<vs_progress>(stoppable != 0); }

void vs_progress_destroy(vs_progress* window) { destroy(window); }

// The object of the window has no state; it only shows that the caller has opened one.
void vs_progress_show(vs_progress* window, uint32_t current, uint32_t total) {
    on(window, [&](auto&) { current_front_end().progress_shown(current, total); });
}

void vs_progress_indeterminate(vs_progress* window, uint32_t on_off) {
    on(window, [&](auto&) { current_front_end().progress_indeterminate(on_off != 0); });
}

void vs_progress_wcaption(vs_progress* window, const char16_t* text) {
    on(window, [&](auto&) { current_front_end().progress_caption(text_of(text)); });
}

bool vs_progress_get_stopped(vs_progress* window) {
    return on(window, [](auto&) { return current_front_end().stop_requested(); });
}

void vs_progress_reset(vs_progress* window) {
    on(window, [](auto&) { current_front_end().stop_reset(); });
}

vs_wait* vs_wait_wcreate(const char16_t* text) { return create<vs_wait>(text_of(text)); }

void vs_wait_destroy(vs_wait* wait) { destroy(wait); }

void vs_show_werror(const char16_t* text) {
    guarded([&] { current_front_end().error(text_of(text)); });
}

void vs_show_wwarning(const char16_t* text) {
    guarded([&] { current_front_end().warning(text_of(text)); });
}

void vs_show_wmessage(const char16_t* text) {
    guarded([&] { current_front_end().message(text_of(text)); });
}

bool vs_yesno_wmessage(const char16_t* text) {
    return guarded([&] { return current_front_end().yes_no(text_of(text)); });
}

int32_t vs_yesnocancel_wmessage(const char16_t* text) {
    // Cancel changes nothing, so it is the safe answer.
    auto given = vestra::shell::answer::cancel; // if the question could not be asked
    guarded([&] { given = current_front_end().yes_no_cancel(text_of(text)); });
    return static_cast<int32_t>(given);
}
