#include "layers/resave_vector_layer.h"

#include "core/copying.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_lr2d.h"
#include "operations/run/run_state.h"
#include "platform/system.h"

namespace vs::project_resave {

Tvs_resave_vector_lr2d::kind Tvs_resave_vector_lr2d::kind_of(const wide_string& reference) {
    if (reference.starts_with(u'*')) return source_link;
    const bool is_folder = platform::current_system().kind_of(reference) == platform::entry_kind::folder;
    return is_folder ? source_folder : source_file;
}

Tvs_resave_vector_lr2d::Tvs_resave_vector_lr2d(vs_lr* handle, run_state& run)
    : Tvs_resave_layer(handle, run), source_kind_(kind_of(host_string(&vs_lr2d_get_wfilename, handle))) {}

void Tvs_resave_vector_lr2d::collect_common_directory(common_directory& common) {
    if (source_kind_ != source_link) Tvs_resave_layer::collect_common_directory(common);
}

wide_string Tvs_resave_vector_lr2d::source_path() {
    return source_kind_ == source_link ? wide_string() : Tvs_resave_layer::source_path();
}

void Tvs_resave_vector_lr2d::set_new_path(const wide_string& path) {
    if (source_kind_ != source_link) Tvs_resave_layer::set_new_path(path);
}

wide_string Tvs_resave_vector_lr2d::default_folder() { return load_string(text::vector_folder); }

bool Tvs_resave_vector_lr2d::copy_files(const wide_string& source, const wide_string& target) {
    switch (source_kind_) {
    case source_link:
        return true;
    case source_folder:
        return copy_data_folder(source, target, *context);
    default:
        return copy_data_set(source, target, *context);
    }
}

} // namespace vs::project_resave
