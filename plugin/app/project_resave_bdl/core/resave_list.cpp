// Walks the members of a container in every operation.

#include "core/resave_list.h"

#include "core/layer_group_writer.h"
#include "host/vsk_basic.h"
#include "host/vsk_entity.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

vs_entity* Tvs_resave_list::entity() {
    vs_entities* own = container();
    return own ? vs_entities_safe_upcast(own) : nullptr;
}

void Tvs_resave_list::place(uint32_t index, std::unique_ptr<Tvs_resave_unit> unit) {
    children[index] = std::move(unit);
    if (children[index]) children[index]->build_once();
}

// Whatever the register does not know stays in the project: only what the user has left out is removed.
bool Tvs_resave_list::is_child_selected(uint32_t index) {
    const auto& child = children[index];
    vs_entity* member = child ? child->entity() : nullptr;
    return !member || context->selection.is_selected(entity_uuid_text(member));
}

bool Tvs_resave_list::do_save() {
    const wide_string list = caption();
    context->report.current_unit = list;
    before_children();
    // Backwards, so that removing a member does not move those that are still to be saved.
    for (auto index = static_cast<uint32_t>(children.size()); index-- > 0;) {
        if (context->progress.is_stopped()) break;
        if (children[index]) save_child(index, list);
    }
    // Also after a stop, so that a scene whose layers are saved in part still gets its file.
    after_children();
    return true;
}

void Tvs_resave_list::save_child(uint32_t index, const wide_string& list) {
    Tvs_resave_unit& child = *children[index];
    if (!is_child_selected(index)) {
        child.skip_progress();
        remove_child(index);
        return;
    }
    // Named before the save: a member that is removed has no name any more.
    const current_element saved(context->report, child.name_in(list));
    child.before_save();
    const bool ok = child.do_save();
    child.after_save(ok);
    if (ok || !context->options.delete_lost_sources) return;
    remove_child(index);
    context->log.layer_3d_removed(); // Kept as users know it: the same words for every kind of list
}

bool Tvs_resave_list::write_structure() {
    context->log.write_indented(heading());
    if (!has_structure_content()) return true;
    context->log.indent();
    if (vs_lr_group* group = layer_group())
        layer_group_writer(*context, children).write(group);
    else
        write_children();
    context->log.unindent();
    return true;
}

void Tvs_resave_list::write_children() {
    for (uint32_t index = 0; index < children.size(); ++index) {
        if (context->progress.is_stopped()) return;
        const auto& child = children[index];
        if (!is_child_selected(index)) {
            if (child) child->skip_progress();
        } else if (child) {
            child->write_structure();
        } else {
            on_missing_child(index);
        }
    }
}

bool Tvs_resave_list::check_path_case(bool* found) {
    for (uint32_t index = 0; index < children.size(); ++index) {
        if (context->progress.is_stopped()) break;
        const auto& child = children[index];
        if (!child) continue;
        if (is_child_selected(index))
            child->check_path_case(found);
        else
            child->skip_progress();
    }
    return true;
}

// Counts members that are left out, too: each of them makes its steps by skip_progress().
uint32_t Tvs_resave_list::count_units(uint32_t& total) {
    uint32_t own = 0;
    for (const auto& child : children)
        if (child) own += child->count_units(total);
    return own;
}

void Tvs_resave_list::skip_progress() {
    for (const auto& child : children)
        if (child) child->skip_progress();
}

void Tvs_resave_list::collect_common_directory(common_directory& common) {
    for (uint32_t index = 0; index < children.size(); ++index)
        if (children[index] && is_child_selected(index)) children[index]->collect_common_directory(common);
}

bool Tvs_resave_list::correct_selection() {
    bool unchanged = true;
    for (uint32_t index = 0; index < children.size(); ++index)
        if (children[index] && is_child_selected(index) && !children[index]->correct_selection())
            unchanged = false;
    return unchanged;
}

void Tvs_resave_list::set_selected(bool on) {
    context->selection.set_selected(entity_uuid_text(entity()), on);
    for (const auto& child : children)
        if (child) child->set_selected(on);
}

uint32_t Tvs_resave_list::selection_state() {
    // Mixed also if the container itself is left out and one of its members is not.
    const uint32_t own = vs_bool_to_3state(context->selection.is_selected(entity_uuid_text(entity())));
    for (const auto& child : children)
        if (child && child->selection_state() != own) return vs_state_mixed;
    return own;
}

} // namespace vs::project_resave
