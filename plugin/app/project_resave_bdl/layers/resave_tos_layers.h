// TOS layers. They do three things that other layers do not: the style of one kind is preserved during a
// save, the files of a complex model are copied, and the structure text can list the file's properties. Main
// thread only.
#pragma once

#include "framework/border/host_owned.h"
#include "framework/resources/text_rows.h"
#include "host/vsk_styles.h"
#include "layers/resave_layer.h"

namespace vs::project_resave {

// The common part of 2D and 3D TOS layers.
class Tvs_resave_tos_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    bool write_structure() override;
    void collect_common_directory(common_directory& common) override;
    // Keeps a copy of the style, for the kind of layer that loses it.
    void before_save() override;
    // Restores the style.
    void after_save(bool ok) override;
    // Also reads the paths of the complex model from the layer's record.
    void build() override;
    // Copies the files of the complex model and updates the layer's record of them. A lost file leaves its
    // element empty, and the layer stays.
    void after_file_saved() override;
    // Sets `out` to the files of the layer's data set and of the model; to nothing if the main file does not
    // open.
    void collect_source_files(std::vector<found_file>& out) override;
    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;

private:
    struct model_file {
        wide_string old_path; // empty if the record names no file
        wide_string new_path; // relative to the layer's new reference
    };

    // Reads the paths of the model from the layer's record.
    void read_model_files();
    // Copies one file of the model and returns the text for the record; empty if the file is lost or has no
    // place.
    wide_string place_model_file(const wide_string& source, text::row lost_text);

    host_owned<vs_stl_mngr, &vs_stl_mngr_destroy> saved_style_; // both are set from before_save to after_save
    host_owned<vs_stl_mngr_list, &vs_stl_mngr_list_destroy> saved_style_list_;
    std::vector<model_file> model_files_; // one for each file of the record; empty without a record
};

// A TOS layer in a 2D scene, which also writes a layer file.
class Tvs_resave_tos_lr2d : public Tvs_resave_tos_lr {
public:
    using Tvs_resave_tos_lr::Tvs_resave_tos_lr;

    void after_file_saved() override;
};

// A TOS layer in a 3D scene, which also writes a layer file.
class Tvs_resave_tos_lr3d : public Tvs_resave_tos_lr {
public:
    using Tvs_resave_tos_lr::Tvs_resave_tos_lr;

    void after_file_saved() override;
};

} // namespace vs::project_resave
