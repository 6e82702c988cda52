// Walks the items of a service. Every call can fail to answer, since the bundle of the service may be
// unloaded.

#include "services/resave_plugin_list.h"

#include "core/copying.h"
#include "core/layer_group_writer.h"
#include "host/vsk_basic.h"
#include "operations/run/path_files.h"
#include "operations/run/placed_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "services/service_answers.h"

namespace vs::project_resave {

namespace {

std::vector<wide_string> files_of(const resave_service& service, uint32_t index) {
    wide_string_list files;
    call<&resave_service_impl::item_files>(service, index, files);
    return files.texts();
}

} // namespace

uint32_t resave_plugin_list::item_count() const {
    return count_from<&resave_service_impl::item_count>(service_.get()).value_or(0);
}

wide_string resave_plugin_list::caption() { return text_from<&resave_service_impl::caption>(service_.get()); }

void resave_plugin_list::build() {
    call<&resave_service_impl::set_project>(service_.get(), project_);
    const uint32_t count = item_count();
    for (uint32_t index = 0; index < count; ++index) {
        const wide_string_list files;
        call<&resave_service_impl::item_files>(service_.get(), index, files);
        context->sizes.add_wstrings(files);
        context->guard.add(text_from<&resave_service_impl::item_source>(service_.get(), index));
    }
}

uint32_t resave_plugin_list::count_units(uint32_t& total) {
    const uint32_t own = item_count();
    total += own;
    return own;
}

// Kept as users know it: items that are left out count, too.
void resave_plugin_list::collect_common_directory(common_directory& common) {
    const uint32_t count = item_count();
    for (uint32_t index = 0; index < count; ++index)
        for (const wide_string& file : files_of(service_.get(), index)) common.add_path(file);
}

bool resave_plugin_list::is_item_selected(uint32_t index) const {
    const wide_string uuid = uuid_to_text(call<&resave_service_impl::item_uuid>(service_.get(), index));
    // An item without a uuid has no row to uncheck.
    return uuid.empty() || context->selection.is_selected(uuid);
}

element_name resave_plugin_list::item_name(uint32_t index) {
    return {uuid_to_text(call<&resave_service_impl::item_uuid>(service_.get(), index)),
            text_from<&resave_service_impl::item_caption>(service_.get(), index), caption()};
}

void resave_plugin_list::set_selected(bool on) {
    const uint32_t count = item_count();
    for (uint32_t index = 0; index < count; ++index) // an empty uuid changes nothing
        context->selection.set_selected(
            uuid_to_text(call<&resave_service_impl::item_uuid>(service_.get(), index)), on);
}

uint32_t resave_plugin_list::selection_state() {
    const uint32_t count = item_count();
    // Nothing that could be left out.
    if (count == 0) return vs_state_true;
    const bool first = is_item_selected(0);
    for (uint32_t index = 1; index < count; ++index)
        if (is_item_selected(index) != first) return vs_state_mixed;
    return vs_bool_to_3state(first);
}

void resave_plugin_list::log_end() { context->log.service_end(caption()); }

bool resave_plugin_list::do_save() {
    context->log.service_begin(caption());
    context->progress.set_caption(text_from<&resave_service_impl::progress_caption>(service_.get()));
    // Asked again: the items may be others than when the tree was built.
    const std::optional<uint32_t> count = count_from<&resave_service_impl::item_count>(service_.get());
    if (!count) record_copy_failure(*context, {{}, {}, impossible_count}, caption());
    // Backwards, so that removing an item does not move those that are still to be saved.
    for (uint32_t index = count.value_or(0); index-- > 0;) {
        if (context->progress.is_stopped()) break;
        const current_element item(context->report, item_name(index));
        if (!is_item_selected(index)) {
            call<&resave_service_impl::remove_item>(service_.get(), index);
        } else if (!save_item(index) && context->options.delete_lost_sources) {
            call<&resave_service_impl::remove_item>(service_.get(), index);
            context->log.service_file_removed(caption());
        }
        context->progress.advance(1);
    }
    log_end();
    return true;
}

bool resave_plugin_list::save_item(uint32_t index) {
    const wide_string source = text_from<&resave_service_impl::item_source>(service_.get(), index);
    if (source.empty()) return true;
    if (!path_exists(source)) {
        record_lost_source(*context, source, caption());
        return false;
    }
    wide_string target = context->placement.lookup_placed(source);
    if (target.empty()) target = place_and_copy(index, source);
    // Kept as users know it: also if the copy failed, and with an empty path if there is no place.
    call<&resave_service_impl::set_item_source>(service_.get(), index, target.c_str());
    return true;
}

wide_string resave_plugin_list::place_and_copy(uint32_t index, const wide_string& source) {
    const type_folder_scope type(
        context->placement, folder_below(text_from<&resave_service_impl::default_folder>(service_.get())));
    wide_string target = context->placement.new_path(source);
    if (target.empty())
        record_no_place(*context, source, source);
    else
        copy_item_files(index, source, target);
    return target;
}

// Each file keeps its place relative to the item's source, even if the source itself got another name.
void resave_plugin_list::copy_item_files(uint32_t index, const wide_string& source,
                                         const wide_string& target) {
    const wide_string source_head = path_head(source), target_head = path_head(target);
    for (const wide_string& file : files_of(service_.get(), index)) {
        // Another element may have brought the file already.
        if (context->placement.is_placed(file)) continue;
        wide_string copy = path_join(target_head, path_relative(source_head, file));
        // The main file got its case from the placement; the others must match it.
        if (context->options.lower_case) platform::lower_in_place(copy);
        if (const auto failed = copy_item_file(file, copy))
            record_copy_failure(*context, *failed, file);
        else
            context->placement.register_placed(file, copy);
    }
}

std::optional<failed_copy> resave_plugin_list::copy_item_file(const wide_string& file,
                                                              const wide_string& target) {
    switch (platform::current_system().kind_of(file)) {
    case platform::entry_kind::file:
        if (const auto copied = platform::current_system().copy_file(file, target, false); !copied)
            return failed_copy{file, target, copied};
        context->placement.made.add_copy(file, target);
        return std::nullopt;
    case platform::entry_kind::folder:
        return copy_folder(file, target, false, false, *context);
    case platform::entry_kind::none:
        break;
    }
    return failed_copy{file, target, platform::failure::missing};
}

} // namespace vs::project_resave
