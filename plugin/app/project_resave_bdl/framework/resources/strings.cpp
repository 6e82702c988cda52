// Looks up texts by number, in the host's current language or else in the base language.

#include "framework/resources/strings.h"

#include "framework/border/ref.h"
#include "host/vsk_basic.h"
#include "host/vsk_msgs.h"

namespace vs::project_resave {

namespace {

// Created on first use, since static objects of other sources set the localizer.
weak_ref<localizer_impl>& localizer_in_force() {
    static weak_ref<localizer_impl> found;
    return found;
}

// A row need not end in a zero, and may have an embedded zero, which ends its text.
void tell_row(const string_visitor& visitor, wide_view row) {
    if (row.back() == 0)
        call<&string_visitor_impl::visit>(visitor, row.data());
    else
        tell(visitor, wide_string(row));
}

void tell_text_of_row(const string_key& key, const string_visitor& visitor) {
    wide_view row;
    if (platform::find_text_row(key.module, key.id + vs_res_get_lng(), row) ||
        platform::find_text_row(key.module, key.id, row))
        tell_row(visitor, row);
}

} // namespace

void localized_text(const string_key& key, const string_visitor& visitor) {
    if (const localizer found = current_localizer())
        call<&localizer_impl::text>(found, key.module.value, key.id, visitor);
    else
        tell_text_of_row(key, visitor);
}

void load_string(int32_t id, wide_string& out) {
    stdwstring_visitor visitor(out);
    if (id > 0)
        localized_text({platform::own_module(), static_cast<uint32_t>(id)}, visitor);
    else
        tell_text_of_row({platform::host_basic_module(), 0u - static_cast<uint32_t>(id)}, visitor);
}

wide_string load_string(int32_t id) {
    wide_string text;
    load_string(id, text);
    return text;
}

void show_error(int32_t id) { vs_show_werror(load_string(id).c_str()); }
void show_message(int32_t id) { vs_show_wmessage(load_string(id).c_str()); }
bool ask_yes_no(int32_t id) { return vs_yesno_wmessage(load_string(id).c_str()); }

localizer current_localizer() { return localizer_in_force().get(); }
void set_current_localizer(const localizer& found) { localizer_in_force().assign(found); }

} // namespace vs::project_resave
