// A vector layer rests on whatever the host's data sources can open: a file, a folder, or a connection that
// is no file at all.
#pragma once

#include "layers/resave_layer.h"

namespace vs::project_resave {

class Tvs_resave_vector_lr2d : public Tvs_resave_layer {
public:
    // Looks at the disk once, for the kind of the layer's reference.
    Tvs_resave_vector_lr2d(vs_lr* handle, run_state& run);

    void collect_common_directory(common_directory& common) override;
    // Empty for a link, so that a save leaves its reference alone.
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;

private:
    enum kind : uint32_t {
        source_link = 0,   // a reference that begins with "*" is no path
        source_folder = 1, // a folder that exists
        source_file = 2,   // all others, also an empty one and one that does not exist
    };
    static kind kind_of(const wide_string& reference);

    const kind source_kind_; // of the reference at construction; never looked at again
};

} // namespace vs::project_resave
