// An element of a kind that another bundle claims: its service knows its files, copies them and writes the
// new paths back.
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
    // The element is the project's. A service whose bundle has gone is a null ref: every copy fails then.
    resave_entity_plugin(run_state& run, vs_entity* claimed, const ref<resave_entity_service_impl>& claimant)
        : Tvs_resave_file(run), entity_(claimed), service_(claimant) {}

    // One line: the caption and, if wanted, each of the paths.
    bool write_structure() override;
    // Brings the elements that this one needs into the selection, if the user agrees.
    bool correct_selection() override;
    vs_entity* entity() override { return entity_; }
    // The paths of its files as the service tells them now.
    std::vector<wide_string> named_files();
    // False if the element has files and none of them exists.
    bool do_save() override;
    void build() override;
    // What the service names; where it cannot tell, what the host's data sources name for the first files,
    // up to one that does not open.
    void collect_source_files(std::vector<found_file>& out) override;

    // Each of the files has a path and a folder of its own, so these are not asked.
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

    // The count, or 0 where it cannot be, which is remembered.
    uint32_t believed(const std::optional<uint32_t>& count);
    void collect_references();
    void collect_rows();
    bool save_row(uint32_t index);
    wide_string place_and_copy_row(uint32_t index);
    void copy_row(uint32_t index, const wide_string& target);
    wide_string own_file(wide_view extension);
    void save_own_file();
    void save_own_scene();

    std::vector<file_row> files_;
    vs_entity* const entity_;
    std::vector<owned_uuid> references_;
    ref<resave_entity_service_impl> service_;
    bool has_miscounted_ = false; // the service told counts that cannot be
};

} // namespace vs::project_resave
