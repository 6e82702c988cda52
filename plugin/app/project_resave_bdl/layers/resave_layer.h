#pragma once

#include <cstdint>

#include "core/resave_file.h"
#include "host/types.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Common base of the units of 2D and 3D layers: sees to it that the files of its layer stand in the new place
// and that the layer refers to them there.
class Tvs_resave_layer : public Tvs_resave_file {
public:
    // The layer is the scene's.
    Tvs_resave_layer(vs_lr* handle, run_state& run) : Tvs_resave_file(run), layer(handle) {}

    // One line: the caption and, if wanted, the reference as the layer holds it.
    bool write_structure() override;
    vs_entity* entity() override;
    // The layer's reference, exactly as it holds it.
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
    wide_string default_folder() override;
    // A kind of layer that tells nothing of its files: only the log is told of it.
    bool copy_files(const wide_string& source, const wide_string& target) override;

protected:
    vs_lr* const layer;
};

// The settings of a complex model that a TOS layer may hold under the key "BumpsSettings": a record of 70
// dynamic values, of which four refer to data files. The others pass untouched.
class complex_model_record {
public:
    // True if the layer's table of extra values names the record.
    static bool is_listed(vs_lr* layer);

    // Finds the record of the layer and mends its form there: what is no tuple becomes one, and the tuple
    // gets its 70 elements.
    explicit complex_model_record(vs_lr* layer);
    explicit operator bool() const { return elements_ != nullptr; }

    // Text of an element. One that holds no text is made an empty text in the layer.
    wide_string text(uint32_t element);
    void set_text(uint32_t element, const wide_string& text);

private:
    vs_tuple* elements_ = nullptr; // the layer's; null if it has no record
};

// A vector layer rests on whatever the host's data sources can open: a file, a folder, or a connection that
// is no file at all.
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
