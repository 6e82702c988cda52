// TOS layers. Three things set them apart: the style of one kind is carried over a save, the files of a
// complex model come along, and the structure's text can list the properties of the file.
#pragma once

#include "framework/border/host_owned.h"
#include "framework/resources/text_rows.h"
#include "host/vsk_styles.h"
#include "layers/resave_layer.h"

namespace vs::project_resave {

class Tvs_resave_tos_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    bool write_structure() override;
    void collect_common_directory(common_directory& common) override;
    void before_save() override;
    void after_save(bool ok) override;
    void build() override;
    // Brings the files of the complex model to the new place and rewrites the layer's record of them. A lost
    // one leaves its element empty, and the layer stays.
    void after_file_saved() override;
    // The files of the layer's data set and of the model's; nothing where the main file does not open.
    void collect_source_files(std::vector<found_file>& out) override;
    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;

private:
    struct model_file {
        wide_string old_path; // empty if the record names none
        wide_string new_path; // relative to the layer's new reference
    };

    void read_model_files();
    wide_string place_model_file(const wide_string& source, text::row lost_text);

    host_owned<vs_stl_mngr, &vs_stl_mngr_destroy> saved_style_; // both from before_save to after_save
    host_owned<vs_stl_mngr_list, &vs_stl_mngr_list_destroy> saved_style_list_;
    std::vector<model_file> model_files_; // one for each file that a record can name; empty without a record
};

class Tvs_resave_tos_lr2d : public Tvs_resave_tos_lr {
public:
    using Tvs_resave_tos_lr::Tvs_resave_tos_lr;

    void after_file_saved() override;
};

class Tvs_resave_tos_lr3d : public Tvs_resave_tos_lr {
public:
    using Tvs_resave_tos_lr::Tvs_resave_tos_lr;

    void after_file_saved() override;
};

} // namespace vs::project_resave
