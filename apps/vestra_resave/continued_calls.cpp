// The file operations of a continued disk. continued_disk.cpp decides what happens to the earlier copies.
#include <utility>

#include "apps/vestra_resave/continued_disk.h"
#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/journal_disk.h"
#include "platform/path_text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;
using platform::outcome;

namespace {

constexpr const char16_t* changed_reason = u"it was changed since the earlier resave";

} // namespace

outcome continued_disk::remove_hidden(const earlier_file& file) {
    if (file.state != made_state::folder && !is_still(*find(file.path)))
        return outcome::because(changed_reason);
    const outcome removed =
        file.state == made_state::folder ? inner().remove_folder(file.path) : inner().delete_file(file.path);
    if (removed) find(file.path)->what = fate::missing;
    return removed;
}

platform::entry_status continued_disk::status_of(const wide_string& path) {
    const entry* const found = hidden(path);
    // A reserved path counts as taken for all other sources, although nothing else can be seen of it.
    if (found && !is_reserved(*found)) return {entry_kind::none, 0, platform::failure::missing};
    return inner().status_of(path);
}

outcome continued_disk::copy_file(const wide_string& source, const wide_string& target, bool replace) {
    entry* const found = hidden(target);
    // Over a folder the copy fails below, as it would without the earlier run.
    if (!found || found->file.state == made_state::folder) return inner().copy_file(source, target, replace);
    if (is_unchanged(*found, source)) {
        found->what = fate::kept;
        // Recorded again, since this run may be killed and resumed, too.
        if (journal_) journal_->add_kept(found->file.path, source, found->now, digest_of(*found));
        return {};
    }
    if (!is_still(*found)) return outcome::because(changed_reason);
    // To the path as the earlier run spelled it. The older copy is replaced only when the new one is
    // complete.
    const outcome copied = inner().copy_file(source, found->file.path, true);
    found->what = copied ? fate::replaced : fate::failed;
    // The older copy is still there.
    if (!copied && journal_) journal_->add_kept(found->file.path, source, found->now, {});
    return copied;
}

outcome continued_disk::delete_file(const wide_string& path) {
    entry* const found = find(path);
    if (!found || found->what == fate::changed || found->what == fate::missing)
        return inner().delete_file(path);
    // Erasing what a stopped run made must not remove an earlier copy, so it is only hidden again.
    if (found->what == fate::hidden) return platform::failure::missing;
    found->what = fate::hidden;
    return {};
}

outcome continued_disk::create_folder(const wide_string& path) {
    entry* const found = hidden(path);
    if (!found || found->file.state != made_state::folder) return inner().create_folder(path);
    found->what = fate::kept;
    return {};
}

outcome continued_disk::remove_folder(const wide_string& path) {
    entry* const found = find(path);
    if (!found || found->file.state != made_state::folder || found->what == fate::missing)
        return inner().remove_folder(path);
    std::vector<platform::folder_entry> entries;
    if (const outcome listed = list(path, entries); !listed) return listed;
    if (!entries.empty()) return inner().remove_folder(path); // fails, with the reason
    found->what = fate::hidden;
    return {};
}

outcome continued_disk::list(const wide_string& path, std::vector<platform::folder_entry>& entries) {
    entries.clear();
    if (hidden(path)) return platform::failure::missing;
    const outcome listed = inner().list(path, entries);
    const auto made = inside_.find(path_key(path));
    if (!listed || made == inside_.end()) return listed;
    // Only folders of the earlier run get here; all others are listed as they are.
    std::erase_if(entries, [&](const platform::folder_entry& each) {
        return hidden(path_join(path, each.name)) != nullptr;
    });
    return listed;
}

bool continued_disk::true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) {
    return !hidden(path_join(folder, name)) && inner().true_name(folder, name, spelling);
}

platform::file_identity continued_disk::identity_of(const wide_string& path) {
    return hidden(path) ? platform::file_identity() : inner().identity_of(path);
}

bool continued_disk::same_file(const wide_string& a, const wide_string& b) {
    return !hidden(a) && !hidden(b) && inner().same_file(a, b);
}

outcome continued_disk::rename_over(const wide_string& from, const wide_string& to) {
    entry* const found = hidden(to);
    if (is_kept_from_writing(to)) return outcome::because(changed_reason);
    if (!found) return inner().rename_over(from, to);
    // `let_go` allows to lose changes, for example with --overwrite.
    if (!may_go(to) && !is_still(*found)) return outcome::because(changed_reason);
    if (!found->file.is_lost && is_same_text(inner(), from, to)) {
        found->what = fate::kept;
        return inner().delete_file(from);
    }
    const outcome renamed = inner().rename_over(from, to);
    found->what = renamed ? fate::replaced : fate::failed;
    return renamed;
}

outcome continued_disk::open(const wide_string& path, platform::access wanted, platform::disposition how,
                             std::unique_ptr<platform::file>& result) {
    result.reset();
    entry* const found = hidden(path);
    if (how == platform::disposition::create_always && is_kept_from_writing(path))
        return outcome::because(changed_reason);
    if (!found) return inner().open(path, wanted, how, result);
    // Whoever reads or creates this file must not see the old content; `create_new` succeeds as if nothing
    // were there.
    if (how == platform::disposition::open_existing) return platform::failure::missing;
    if (found->file.state == made_state::folder) return inner().open(path, wanted, how, result);
    if (inner().identity_of(path).names > 1) // emptying it would empty it under its other name, too
        if (const outcome removed = inner().delete_file(path); !removed) return removed;
    const outcome opened = inner().open(path, wanted, platform::disposition::create_always, result);
    if (opened) found->what = fate::replaced;
    return opened;
}

outcome continued_disk::free_space(const wide_string& folder, uint64_t& bytes) {
    const outcome found = inner().free_space(folder, bytes);
    if (!found) return found;
    for (const auto& [key, each] : entries_)
        if (hidden(each.file.path)) bytes += each.now.bytes;
    return found;
}

} // namespace vestra::command
