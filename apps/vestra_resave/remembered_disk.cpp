#include "apps/vestra_resave/remembered_disk.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::outcome;

namespace {

// Returns the stored answer for a path; calls `ask` if there is none.
template <class Table, class Question>
auto kept_or_new(Table& table, const wide_string& path, const Question& ask) {
    if (const auto at = table.find(std::u16string_view(path)); at != table.end()) return at->second;
    const auto answer = ask();
    table.emplace(path, answer);
    return answer;
}

} // namespace

remembered_disk::answers& remembered_disk::known() {
    if (!known_) known_ = std::make_unique<answers>();
    return *known_;
}

platform::entry_status remembered_disk::status_of(const wide_string& path) {
    if (!remembers_) return inner().status_of(path);
    return kept_or_new(known().statuses, path, [&] { return inner().status_of(path); });
}

platform::file_identity remembered_disk::identity_of(const wide_string& path) {
    if (!remembers_) return inner().identity_of(path);
    return kept_or_new(known().identities, path, [&] { return inner().identity_of(path); });
}

outcome remembered_disk::copy_file(const wide_string& source, const wide_string& target, bool replace) {
    forget();
    return inner().copy_file(source, target, replace);
}

outcome remembered_disk::delete_file(const wide_string& path) {
    forget();
    return inner().delete_file(path);
}

outcome remembered_disk::create_folder(const wide_string& path) {
    forget();
    return inner().create_folder(path);
}

outcome remembered_disk::remove_folder(const wide_string& path) {
    forget();
    return inner().remove_folder(path);
}

outcome remembered_disk::rename_over(const wide_string& from, const wide_string& to) {
    forget();
    return inner().rename_over(from, to);
}

outcome remembered_disk::open(const wide_string& path, platform::access wanted, platform::disposition how,
                              std::unique_ptr<platform::file>& result) {
    const bool writes = wanted != platform::access::read || how != platform::disposition::open_existing;
    if (writes) forget();
    return inner().open(path, wanted, how, result);
}

} // namespace vestra::command
