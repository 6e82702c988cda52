// A root of the tree for the items of one resave service. The items have no units: the service keeps them,
// and services/resave_service.h says in which order it is called.
//
// Created for each collected service at each load, and destroyed with the tree. The project is destroyed
// first, so the destructor does not call the service. A service takes no part in the structure text, in scene
// files or in the check of letter case. Main thread only.
#pragma once

#include <optional>

#include "core/copying.h"
#include "core/resave_unit.h"
#include "framework/border/ref.h"
#include "services/resave_service.h"

namespace vs::project_resave {

class resave_plugin_list final : public Tvs_resave_unit {
public:
    // The list keeps its own ref to the service. The ref becomes null when the service's bundle is unloaded;
    // then the list has no items.
    resave_plugin_list(run_state& run, vs_prj* loaded, const ref<resave_service_impl>& found)
        : Tvs_resave_unit(run), service_(found), project_(loaded) {}

    bool write_structure() override { return true; }
    bool write_scene_file() override { return true; }
    bool check_path_case(bool*) override { return true; }
    // Adds one step of progress for each item.
    uint32_t count_units(uint32_t& total) override;
    void skip_progress() override {}
    // Adds the files of all items, selected or not.
    void collect_common_directory(common_directory& common) override;
    // Null, so a run with a folder for each scene skips the list.
    vs_entity* entity() override { return nullptr; }
    // Selects or deselects each item that has a uuid.
    void set_selected(bool on) override;
    // Returns the state of the first item, mixed if another differs; true without items.
    uint32_t selection_state() override;
    // Returns the name of the service; empty if its bundle was unloaded.
    wide_string caption() override;
    // Saves the selected items and removes the others, from the last to the first, until the user stops the
    // run. Also removes an item whose source is lost, if the options ask for it. Always returns true:
    // failures are recorded.
    bool do_save() override;
    // Connects the service to the project and enters the sizes of all files.
    void build() override;

    // Writes the line that ends the service in the log.
    virtual void log_end();

private:
    // Returns 0 if the count is impossible.
    uint32_t item_count() const;
    // True also for an item without a uuid.
    bool is_item_selected(uint32_t index) const;
    element_name item_name(uint32_t index);
    // Returns false if the source of the item is lost.
    bool save_item(uint32_t index);
    // Returns the new path; empty if the structure has no place for it.
    wide_string place_and_copy(uint32_t index, const wide_string& source);
    void copy_item_files(uint32_t index, const wide_string& source, const wide_string& target);
    // Returns why a file or folder was not copied; nothing on success.
    std::optional<failed_copy> copy_item_file(const wide_string& file, const wide_string& target);

    ref<resave_service_impl> service_;
    vs_prj* project_;
};

} // namespace vs::project_resave
