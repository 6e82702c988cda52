// The current settings of a tool that resaves, and the result of its last run, as facts, for a host that
// shows more of them than the tool's own message.
//
// The service of such a tool implements run_record in addition to custom_app_service. Main thread only.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"

namespace vs::project_resave {

// Who implements: the host, for one call. Who calls: the tool. Texts are borrowed for the call, paths are as
// the project stores them, and a text without a value is empty.
class run_record_visitor_impl : public interface_of<run_record_visitor_impl> {
public:
    static constexpr const char* name = "vs_run_record_visitor_interface_1";
    // Called first and once: the project that is read, the one that is written, and the selected size in
    // kilobytes.
    virtual void visit_paths(const char16_t* source, const char16_t* target, double kilobytes) = 0;
    // Passes one setting: "structure" with its number, or, with 0 or 1, "rename", "delete_lost",
    // "scene_files", "layer_files", "log", "project_file", "lower_case".
    virtual void visit_choice(const char* choice, uint32_t value) = 0;
    // Passes the uuid text of an element that will not be in the new project; in no particular order.
    virtual void visit_left_out(const char16_t* uuid) = 0;
    // Passes a file, or a folder that is copied as a whole, that has a new path in the project. Called in the
    // order of the run. `source` is empty for a file that the run wrote itself.
    virtual void visit_placed(const char16_t* source, const char16_t* target) = 0;
    // Passes a single file that was created. Called after all calls of visit_placed, in the order of the run.
    // `source` is as in visit_placed.
    virtual void visit_made(const char16_t* source, const char16_t* target) = 0;
    // Passes something that did not go as planned. `kind` is a fact_kind of operations/run/run_report.h,
    // whose numbers never change; a text that the kind does not use is empty.
    virtual void visit_fact(uint32_t kind, const char16_t* path, const char16_t* new_path,
                            const char16_t* reason) = 0;
    // Called right after visit_fact with the element that the fact is about: its uuid, its caption and the
    // caption of its list; `subject` is anything else that the fact names.
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

// How a run ended; `none` if no run has. A project that was saved can lack files, which are reported as
// facts.
enum class recorded_end : uint32_t { none = 0, saved = 1, not_saved = 2, stopped = 3 };

// Who implements: the host, who keeps it alive as long as it is set. Who calls: the tool, while it copies.
class transfer_observer_impl : public interface_of<transfer_observer_impl> {
public:
    static constexpr const char* name = "vs_transfer_observer_interface_1";
    // This number of bytes was copied since the last call. Called several times for a large file. The host
    // may process the user's events during the call.
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
    // Passes the current paths, settings and left-out elements. The source is empty while no project is
    // loaded.
    virtual void pass_settings(run_record_visitor visitor) = 0;
    // Passes everything about the last run; nothing if there was none.
    virtual void pass_last_run(run_record_visitor visitor) = 0;
    // Sets the observer of the bytes that the next runs copy; null for no observer.
    virtual void set_transfer_observer(transfer_observer observer) = 0;
    // Leaves elements of the loaded project out, by their uuid texts: unchecks them. The other elements keep
    // their check marks, and a uuid that the project does not have is ignored. Texts are borrowed for the
    // call.
    virtual void leave_out(const char16_t* const* uuids, uint32_t count) = 0;
    using operations = operation_list<&run_record_impl::run_count, &run_record_impl::last_end,
                                      &run_record_impl::pass_settings, &run_record_impl::pass_last_run,
                                      &run_record_impl::set_transfer_observer, &run_record_impl::leave_out>;

protected:
    ~run_record_impl() = default;
};
using run_record = interface_to<run_record_impl>;

} // namespace vs::project_resave
