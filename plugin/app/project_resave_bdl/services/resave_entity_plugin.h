// The unit of an element of a kind that another bundle claims: its service names its files, copies them and
// writes the new paths back, as services/resave_entity_service.h says.
//
// Made by the entity factory at each load, ends with the tree. Each file of the element has its own path and
// folder, so the operations for one source are not used. Main thread only.
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
    // The element belongs to the project. The unit keeps its own ref to the service. It becomes null when the
    // service's bundle goes: every copy fails then, and is reported.
    resave_entity_plugin(run_state& run, vs_entity* claimed, const ref<resave_entity_service_impl>& claimant)
        : Tvs_resave_file(run), entity_(claimed), service_(claimant) {}

    // Writes one line: the caption and, if the user wants paths, each of them.
    bool write_structure() override;
    // Adds the elements that this one needs to the selection, if the user agrees. True if nothing changed.
    bool correct_selection() override;
    vs_entity* entity() override { return entity_; }
    // Returns the paths of its files, which the service is asked for again; without the empty ones.
    std::vector<wide_string> named_files();
    // Copies each file that has no copy yet and has the service write the new paths back; then writes the
    // scene or layer file, if the user wants those. False if the element has files and not one of them was
    // found.
    bool do_save() override;
    // Asks the service for references and files, and adds the sizes.
    void build() override;
    // Sets `out` to the existing files that the service lists. If the service leaves that to the host's data
    // sources, those are asked for each path, up to the first that does not open.
    void collect_source_files(std::vector<found_file>& out) override;

    // Not used: see above.
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

    // Returns the count; 0 for an impossible one, which do_save then reports.
    uint32_t believed(const std::optional<uint32_t>& count);
    void collect_references();
    void collect_rows();
    // True if the file was found.
    bool save_row(uint32_t index);
    // Returns the new path; empty if there is no place for it.
    wide_string place_and_copy_row(uint32_t index);
    // Has the service copy the file; records the copies, or removes what a failed one left.
    void copy_row(uint32_t index, const wide_string& target);
    void enter_copy(const wide_string& source, const wide_string& target);
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
