// A root of the tree for the items of one resave service. Its items are no units: the service holds them.
#pragma once

#include <optional>

#include "core/copying.h"
#include "core/resave_unit.h"
#include "framework/border/ref.h"
#include "services/resave_service.h"

namespace vs::project_resave {

class resave_plugin_list final : public Tvs_resave_unit {
public:
    // A service whose bundle has gone is a null ref: it has no items then.
    resave_plugin_list(run_state& run, vs_prj* loaded, const ref<resave_service_impl>& found)
        : Tvs_resave_unit(run), service_(found), project_(loaded) {}

    bool write_structure() override { return true; }
    bool write_scene_file() override { return true; }
    bool check_path_case(bool*) override { return true; }
    uint32_t count_units(uint32_t& total) override;
    void skip_progress() override {}
    // All items take part, selected or not.
    void collect_common_directory(common_directory& common) override;
    vs_entity* entity() override { return nullptr; }
    void set_selected(bool on) override;
    // Of the first item; mixed if another differs.
    uint32_t selection_state() override;
    wide_string caption() override;
    // Saves or removes the items from the last to the first. Always true.
    bool do_save() override;
    void build() override;

    virtual void log_end();

private:
    uint32_t item_count() const;
    bool is_item_selected(uint32_t index) const;
    element_name item_name(uint32_t index);
    bool save_item(uint32_t index);
    wide_string place_and_copy(uint32_t index, const wide_string& source);
    void copy_item_files(uint32_t index, const wide_string& source, const wide_string& target);
    std::optional<failed_copy> copy_item_file(const wide_string& file, const wide_string& target);

    ref<resave_service_impl> service_;
    vs_prj* project_;
};

} // namespace vs::project_resave
