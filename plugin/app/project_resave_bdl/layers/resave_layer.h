// The base of all units of layers, the record of a complex model, and vector layers. Main thread only.
#pragma once

#include <cstdint>

#include "core/resave_file.h"
#include "host/types.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Base of the units of 2D and 3D layers: copies the files of its layer and makes the layer refer to the
// copies.
class Tvs_resave_layer : public Tvs_resave_file {
public:
    // The layer belongs to the scene.
    Tvs_resave_layer(vs_lr* handle, run_state& run) : Tvs_resave_file(run), layer(handle) {}

    // Writes one line: the caption and, if requested, the reference as the layer stores it.
    bool write_structure() override;
    vs_entity* entity() override;
    // Returns the layer's reference exactly as the layer stores it.
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
    wide_string default_folder() override;
    // For kinds of layers that do not override it: writes only a message to the log and returns false.
    bool copy_files(const wide_string& source, const wide_string& target) override;

protected:
    vs_lr* const layer;
};

// The settings of a complex model, which a TOS layer may store under the key "BumpsSettings": a record of 70
// dynamic values, four of which refer to data files. The others are not changed.
class complex_model_record {
public:
    // True if the layer's table of extra values has the record.
    static bool is_listed(vs_lr* layer);

    // Finds the record of the layer and repairs its form: a value that is not a tuple becomes one, and the
    // tuple is resized to 70 elements.
    explicit complex_model_record(vs_lr* layer);
    // True if the layer has the record. Required by the functions below.
    explicit operator bool() const { return elements_ != nullptr; }

    // Returns the text of an element. An element of another type becomes an empty text in the layer.
    wide_string text(uint32_t element);
    // Replaces the element by this text.
    void set_text(uint32_t element, const wide_string& text);

private:
    vs_tuple* elements_ = nullptr; // belongs to the layer; null if it has no record
};

// A vector layer uses any source that the host can open: a file, a folder, or a connection without any file.
class Tvs_resave_vector_lr2d : public Tvs_resave_layer {
public:
    // Accesses the disk once, to find the kind of the layer's reference.
    Tvs_resave_vector_lr2d(vs_lr* handle, run_state& run);

    void collect_common_directory(common_directory& common) override;
    // Empty for a connection, so that a save does not change its reference.
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;

private:
    enum kind : uint32_t {
        source_link = 0,   // begins with "*", so it is not a path
        source_folder = 1, // an existing folder
        source_file = 2,   // anything else, including an empty or missing path
    };
    // Looks at the disk, unless the reference is a connection.
    static kind kind_of(const wide_string& reference);

    const kind source_kind_; // of the reference at construction
};

} // namespace vs::project_resave
