// What a tool that resaves would work on now, and what became of its last run, as facts: for a host that
// shows more of them than the tool's own message.
//
// The service of such a tool implements run_record in addition to custom_app_service. Main thread only.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"

namespace vs::project_resave {

// Who implements: the host, for one call. Who calls: the tool. Texts are borrowed for the call, paths are as
// the project stores them, and a text that there is none for is empty.
class run_record_visitor_impl : public interface_of<run_record_visitor_impl> {
public:
    static constexpr const char* name = "vs_run_record_visitor_interface_1";
    // First and once: the project that is read and the one that is written; how many kilobytes are selected.
    virtual void visit_paths(const char16_t* source, const char16_t* target, double kilobytes) = 0;
    // A choice: "structure" with its number, or, as 0 and 1, "rename", "delete_lost", "scene_files",
    // "layer_files", "log", "project_file", "lower_case".
    virtual void visit_choice(const char* choice, uint32_t value) = 0;
    // An element that is not to be in the new project, by the text of its uuid; in no order.
    virtual void visit_left_out(const char16_t* uuid) = 0;
    // A file, or a folder that is copied whole, that has its place in the new project, in the order of the
    // run. `source` is empty for what the run wrote itself.
    virtual void visit_placed(const char16_t* source, const char16_t* target) = 0;
    // A single file that was made; after all that visit_placed passes, in the order of the run. `source` as
    // there.
    virtual void visit_made(const char16_t* source, const char16_t* target) = 0;
    // Something that went otherwise than planned. `kind` is a fact_kind of operations/run/run_report.h, whose
    // numbers never change; a text that the kind does not use is empty.
    virtual void visit_fact(uint32_t kind, const char16_t* path, const char16_t* new_path,
                            const char16_t* reason) = 0;
    // Right after visit_fact: the element that the fact is about, by its uuid, its caption and the caption of
    // the list it is in; `subject` is what else the fact names.
    virtual void visit_element(const char16_t* uuid, const char16_t* caption, const char16_t* list,
                               const char16_t* subject) = 0;
    using operations =
        operation_list<&run_record_visitor_impl::visit_paths, &run_record_visitor_impl::visit_choice,
                       &run_record_visitor_impl::visit_left_out, &run_record_visitor_impl::visit_placed,
                       &run_record_visitor_impl::visit_made, &run_record_visitor_impl::visit_fact,
                       &run_record_visitor_impl::visit_element>;

protected:
    ~run_record_visitor_impl() = default;
};
using run_record_visitor = interface_to<run_record_visitor_impl>;

// How a run ended; `none` if none has. A project that was saved can lack files, which are facts.
enum class recorded_end : uint32_t { none = 0, saved = 1, not_saved = 2, stopped = 3 };

// Who implements: the host, who keeps it alive as long as it is set. Who calls: the tool, while it copies.
class transfer_observer_impl : public interface_of<transfer_observer_impl> {
public:
    static constexpr const char* name = "vs_transfer_observer_interface_1";
    // This number of bytes was copied since the last call, which comes often in a large file. The host may
    // handle the user's events meanwhile.
    virtual void on_moved(uint64_t bytes) = 0;
    using operations = operation_list<&transfer_observer_impl::on_moved>;

protected:
    ~transfer_observer_impl() = default;
};
using transfer_observer = interface_to<transfer_observer_impl>;

// Who implements: the tool's service. Who calls: the host.
class run_record_impl : public interface_of<run_record_impl> {
public:
    static constexpr const char* name = "vs_run_record_interface_1";
    // Returns how many runs have ended since the library was loaded.
    virtual uint32_t run_count() = 0;
    // Returns how the last one ended.
    virtual recorded_end last_end() = 0;
    // Passes paths, choices and what is left out, as they stand now. The source is empty while no project is
    // loaded.
    virtual void pass_settings(run_record_visitor visitor) = 0;
    // Passes all of the last run; nothing if there was none.
    virtual void pass_last_run(run_record_visitor visitor) = 0;
    // Sets who learns of the bytes that the next runs copy; null for nobody.
    virtual void set_transfer_observer(transfer_observer observer) = 0;
    // Has elements of the loaded project left out, by the texts of their uuids: their ticks go off. Others
    // keep theirs, and a uuid that the project does not have does nothing. Texts are borrowed for the call.
    virtual void leave_out(const char16_t* const* uuids, uint32_t count) = 0;
    using operations = operation_list<&run_record_impl::run_count, &run_record_impl::last_end,
                                      &run_record_impl::pass_settings, &run_record_impl::pass_last_run,
                                      &run_record_impl::set_transfer_observer, &run_record_impl::leave_out>;

protected:
    ~run_record_impl() = default;
};
using run_record = interface_to<run_record_impl>;

} // namespace vs::project_resave
