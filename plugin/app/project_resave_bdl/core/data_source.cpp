#include "core/data_source.h"

#include "framework/border/visitors.h"
#include "host/vsk_basic.h"

namespace vs::project_resave {

namespace {

ref<stat_source_impl> open_source(const wide_string& source, vs_data* data) {
    interface_pointer opened;
    vs_datasource_open(&opened, source.c_str(), data);
    // Held by itself too, so that an object which is no such source is closed again.
    const ref<interface_impl> object(identity_pointer{opened});
    return ref<stat_source_impl>(cast_to<stat_source_impl>(object.get()));
}

} // namespace

bool data_source_files(const wide_string& path, std::vector<wide_string>& out) {
    out.clear();
    if (path.empty()) return false;
    const ref<stat_source_impl> source = open_source(path, nullptr);
    if (!source) return false;
    stdwstring_list_visitor visitor(out);
    call<&stat_source_impl::files>(source.get(), visitor);
    return true;
}

bool append_existing_files(const wide_string& path, std::vector<found_file>& out) {
    std::vector<wide_string> named;
    if (!data_source_files(path, named)) return false;
    for (const wide_string& file : named) append_if_exists(file, out);
    return true;
}

bool vector_datasource::open(const wide_string& source, vs_data* data) {
    source_.reset();
    source_ = open_source(source, data);
    return static_cast<bool>(source_);
}

int32_t vector_datasource::find_field(const wide_string& name) const {
    return source_ ? call<&stat_source_impl::find_field>(source_.get(), name.c_str()) : -1;
}

bool vector_datasource::first() const { return call<&stat_source_impl::first>(source_.get()); }

bool vector_datasource::next() const { return call<&stat_source_impl::next>(source_.get()); }

wide_string vector_datasource::text(int32_t field) const {
    wide_string text;
    stdwstring_visitor visitor(text);
    call<&stat_source_impl::field_text>(source_.get(), field, visitor);
    return text;
}

} // namespace vs::project_resave
