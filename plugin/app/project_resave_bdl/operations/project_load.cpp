// Loading: the host reads the project into a private copy, and the tree of units is built from it.

#include "operations/project_context.h"

#include <algorithm>
#include <string_view>

#include "containers/resave_layouts.h"
#include "containers/resave_scenes.h"
#include "containers/resave_tables.h"
#include "framework/border/encoding.h"
#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_entity.h"
#include "host/vsk_msgs.h"
#include "host/vsk_prj.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_xml_save_prj.h"
#include "operations/run/path_files.h"
#include "services/resave_plugin_list.h"

namespace vs::project_resave {

namespace {

using wait_window = host_owned<vs_wait, &vs_wait_destroy>;
using project_xml = host_owned<vs_xml_save_prj, &vs_xml_save_prj_destroy>;

// Plug-in collections whose members are sheets that are made from a file.
constexpr std::string_view well_collections[] = {"plugin_scn_2d_well_planshet_collection3",
                                                 "c_scn2d_correlation_collection2"};

bool is_well_collection(vs_scns_2d* collection) {
    vs_entity* entity = vs_entities_safe_upcast(vs_scns_2d_safe_upcast(collection));
    const std::string_view meta_id = narrow_or_empty(vs_entity_get_meta_id(entity));
    return std::find(std::begin(well_collections), std::end(well_collections), meta_id) !=
           std::end(well_collections);
}

} // namespace

project_context::project_context(const resave_services* found, run_questions& asked)
    : run_state(asked), services(found) {
    claims = &factory;
    current_exception_record() = this;
}

project_context::~project_context() {
    release_project();
    clear_tree();
    project_changed.disconnect_all();
    if (current_exception_record() == this) current_exception_record() = nullptr;
}

void project_context::record(const char* where, const char* what) noexcept {
    try {
        const wide_string place = host_text(where), reason = host_text(what);
        report.add_exception(place, reason);
        log.write(u"Exception in " + place + u": " + reason);
    } catch (const std::exception&) { // not enough memory even for that
        report.incomplete = true;
    }
}

void project_context::release_project() {
    if (project) vs_prj_destroy(project);
    project = nullptr;
}

void project_context::clear_tree() {
    tree.clear();
    units.clear();
    facts_of_tree_.clear();
}

void project_context::close_project() {
    if (!project) return;
    release_project();
    clear_tree();
    selection.clear();
    sizes.clear();
    project_changed.fire();
}

bool project_context::load_project(const wide_string& wanted, bool show_wait, bool write_open_log) {
    const wide_string path{wanted.data(), wanted.size()}; // `wanted` may be a member that the load resets
    const wait_window wait(show_wait ? vs_wait_wcreate(load_string(text::project_opens).c_str()) : nullptr);
    selection.clear();
    sizes.clear();
    log.clear_unprocessed_types();
    report.restart({});
    release_project();
    clear_tree();
    // A private copy: the project that is open in the host is never changed.
    project = vs_prj_create();
    const project_xml reader(vs_xml_save_prj_create());
    bool loaded = false;
    try {
        loaded = read_project(reader.get(), path, write_open_log);
        if (loaded) build_tree(path);
    } catch (...) { // out of memory
        record_caught("load");
        // The depth belongs to the log and would indent the next load.
        while (open_log.unindent() > 0) {
        }
        loaded = false;
    }
    if (!loaded) { // no half-loaded project remains
        // The load log got a name next to an older file's, which may belong to the source: that was not yet
        // known.
        if (open_log.enabled && open_log.path != log_wanted_) guard.remove_file(open_log.path);
        progress.questions->show_error(text::failed_to_load_project);
        release_project();
        clear_tree();
        sizes.clear();
    }
    project_changed.fire();
    return loaded;
}

bool project_context::read_project(vs_xml_save_prj* reader, const wide_string& path, bool write_open_log) {
    open_log.set_open_log_path(path, write_open_log);
    log_wanted_ = open_log.path;
    if (write_open_log && is_name_taken(log_wanted_))
        open_log.path = placement.next_free_name(log_wanted_, true);
    open_log.write_load_begin();
    if ((vs_xml_data_load_prj_w(reader, path.c_str(), project) & 0xFF) == 0) return false;
    open_log.write_load_end();
    return true;
}

void project_context::build_tree(const wide_string& path) {
    placement.set_source(path);
    guard.clear();
    // The project file itself counts in the size of the selection.
    sizes.add_file(path);
    add_root(std::make_unique<Tvs_resave_scenes_2d>(vs_prj_get_scns_2d_ptr(project), *this));
    add_root(std::make_unique<Tvs_resave_scenes_3d>(vs_prj_get_scns_3d_ptr(project), *this));
    add_root(std::make_unique<Tvs_resave_toss_data>(vs_prj_get_toss_data_ptr(project), *this));
    add_root(std::make_unique<Tvs_resave_scns_layout>(vs_prj_get_layouts_data_ptr(project), *this));
    const uint32_t collections = vs_prj_get_plugin_scns_2d_count(project);
    for (uint32_t index = 0; index < collections; ++index) {
        vs_scns_2d* collection = vs_prj_get_plugin_scns_2d_ptr(project, index);
        for (uint32_t sheet = 0; sheet < vs_scns_2d_get_size(collection); ++sheet)
            guard.add(host_string(&vs_scn_2d_get_source, vs_scns_2d_get(collection, sheet)));
        // Other collections have no unit, but their files are protected, too.
        if (is_well_collection(collection))
            add_root(std::make_unique<Tvs_resave_wells_data>(collection, *this));
    }
    if (services)
        for (const ref<resave_service_impl>& service : *services)
            add_root(std::make_unique<resave_plugin_list>(*this, project, service));
    // The tables come last: all units before them may still refer to a table.
    add_root(std::make_unique<Tvs_resave_attrs_data>(vs_prj_get_attrs_data_ptr(project), *this));
    count_units();
    settle_open_log();
    if (open_log.enabled && !open_log.failure())
        report.add(fact_kind::not_written, {}, open_log.path, open_log.failure().text());
    facts_of_tree_ = report.facts();
    log.close();
}

// A file with the log's name may belong to the source, which is known only now. Therefore the log was written
// under another name, and is renamed to its own if that is allowed.
void project_context::settle_open_log() {
    if (!open_log.enabled) return;
    const bool is_no_file = is_name_taken(log_wanted_) && !path_exists(log_wanted_); // a pipe stays
    if (is_no_file || guard.protects(log_wanted_)) {
        if (open_log.path == log_wanted_) { // else a lost source file would be found again, as a log
            const wide_string free = placement.next_free_name(log_wanted_);
            if (!platform::current_system().rename_over(log_wanted_, free)) return;
            open_log.path = free;
        }
        return report.add(fact_kind::renamed, log_wanted_, open_log.path);
    }
    if (open_log.path == log_wanted_) return;
    if (!platform::current_system().rename_over(open_log.path, log_wanted_)) return;
    open_log.path = log_wanted_;
    report.add(fact_kind::written_over, {}, log_wanted_);
}

// Each root is built before the next one is created.
void project_context::add_root(std::unique_ptr<Tvs_resave_unit> root) {
    tree.push_back(std::move(root));
    tree.back()->build_once();
}

uint32_t project_context::count_units() {
    uint32_t total = 0;
    for (const auto& root : tree) root->count_units(total);
    return total_units = total;
}

} // namespace vs::project_resave
