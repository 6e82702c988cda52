// The unit of an element of a kind that another bundle claims: the bundle's service lists its files, copies
// them and writes the new paths back, as services/resave_entity_service.h says.
//
// Created by the entity factory at each load, destroyed with the tree. Each file of the element has its own
// path and folder, so the operations for a single source are not used. Main thread only.
#pragma once

#include <memory>
#include <optional>

#include "core/resave_file.h"
#include "framework/border/host_owned.h"
#include "framework/border/ref.h"
#include "host/vsk_basic.h"
#include "services/resave_entity_service.h"

namespace vs::project_resave {

class resave_entity_plugin final : public Tvs_resave_file {
public:
    // The element belongs to the project. The unit keeps its own ref to the service. The ref becomes null
    // when the service's bundle is unloaded; then every copy fails and is reported.
    resave_entity_plugin(run_state& run, vs_entity* claimed, const ref<resave_entity_service_impl>& claimant)
        : Tvs_resave_file(run), entity_(claimed), service_(claimant) {}

    // Writes one line: the caption and, if requested, each path.
    bool write_structure() override;
    // Adds the elements that this one needs to the selection, if the user agrees. Returns true if nothing
    // changed.
    bool correct_selection() override;
    vs_entity* entity() override { return entity_; }
    // Asks the service for its files again and returns their paths, without empty ones.
    std::vector<wide_string> named_files();
    // Copies each file that has no copy yet and has the service write the new paths back; then writes the
    // scene or layer file, if the options ask for it. Returns false if the element has files and none of them
    // was found.
    bool do_save() override;
    // Asks the service for references and files, and enters the files in the registers.
    void build() override;
    // Sets `out` to the existing files that the service lists. If the service does not list them, asks the
    // host's data sources for each path, up to the first one that does not open.
    void collect_source_files(std::vector<found_file>& out) override;

    // Not used, as each file has its own path.
    wide_string source_path() override { return {}; }
    void set_new_path(const wide_string&) override {}
    wide_string default_folder() override { return u"entity_plugin"; }
    bool copy_files(const wide_string&, const wide_string&) override { return false; }

private:
    struct file_row {
        wide_string source;
        wide_string folder;
    };
    using owned_uuid = host_owned<vs_uuid, &vs_uuid_destroy>;

    // Returns the count; 0 for an impossible one, which do_save reports.
    uint32_t believed(const std::optional<uint32_t>& count);
    void collect_references();
    void collect_rows();
    // Returns true if the file was found.
    bool save_row(uint32_t index);
    // Returns the new path; empty if the structure has no place for the file.
    wide_string place_and_copy_row(uint32_t index);
    // Makes the service copy the file. Records the copies, or removes what a failed copy left behind.
    void copy_row(uint32_t index, const wide_string& target);
    // Records one copied file or folder as placed and, if it is new, as made.
    void enter_copy(const wide_string& source, const wide_string& target);
    // Removes what a failed copy left at `target`, if it is safe to do so; otherwise reports it.
    void clean_up(const wide_string& target);
    // Returns the path of a scene or layer file for this element, next to the new project.
    wide_string own_file(wide_view extension);
    void save_own_file();
    void save_own_scene();

    std::vector<file_row> files_;
    vs_entity* const entity_;
    std::vector<owned_uuid> references_;
    ref<resave_entity_service_impl> service_;
    bool has_miscounted_ = false; // the service returned an impossible count
};

} // namespace vs::project_resave
