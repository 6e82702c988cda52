#include "apps/vestra_resave/archive/archive_disk.h"

#include "apps/vestra_resave/archive/archive_place.h"
#include "platform/path_text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::outcome;

archive_disk::archive_disk(const wide_string& archive) : archive_key_(path_key(archive)) {
    made_.hide(archive);
}

bool archive_disk::is_inside(const wide_string& path) const { return is_in_archive(path, archive_key_); }

platform::entry_status archive_disk::status_of(const wide_string& path) {
    return disk_of(path).status_of(path);
}

outcome archive_disk::copy_file(const wide_string& source, const wide_string& target, bool replace) {
    return disk_of(target).copy_file(source, target, replace);
}

outcome archive_disk::delete_file(const wide_string& path) { return disk_of(path).delete_file(path); }

outcome archive_disk::create_folder(const wide_string& path) { return disk_of(path).create_folder(path); }

outcome archive_disk::remove_folder(const wide_string& path) { return disk_of(path).remove_folder(path); }

outcome archive_disk::list(const wide_string& path, std::vector<platform::folder_entry>& entries) {
    return disk_of(path).list(path, entries);
}

bool archive_disk::true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) {
    return disk_of(path_join(folder, name)).true_name(folder, name, spelling);
}

platform::file_identity archive_disk::identity_of(const wide_string& path) {
    return disk_of(path).identity_of(path);
}

bool archive_disk::same_file(const wide_string& a, const wide_string& b) {
    return disk_of(is_inside(a) ? a : b).same_file(a, b);
}

outcome archive_disk::rename_over(const wide_string& from, const wide_string& to) {
    return disk_of(to).rename_over(from, to);
}

outcome archive_disk::open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) {
    return disk_of(path).open(path, wanted, how, result);
}

outcome archive_disk::free_space(const wide_string& folder, uint64_t& bytes) {
    return made_.free_space(folder, bytes);
}

outcome archive_disk::flush(const wide_string& path) { return disk_of(path).flush(path); }

outcome archive_disk::flush_volume(const wide_string& folder) { return disk_of(folder).flush_volume(folder); }

} // namespace vestra::command
