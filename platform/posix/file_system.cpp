#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <string_view>
#include <thread>

#include "platform/posix/copying.h"
#include "platform/posix/open_file.h"
#include "platform/posix/volumes.h"
#include "platform/system.h"
#include "platform/text.h"

namespace vs::project_resave::platform {

namespace {

folder_names& names() { return mapped_volumes().names(); }

std::optional<std::string> existing(const wide_string& path) { return mapped_volumes().native(path, true); }
std::optional<std::string> wanted(const wide_string& path) { return mapped_volumes().to_create(path); }

folder_entry entry_of(const std::string& folder, const dirent& found) {
    const std::string path = folder + "/" + found.d_name;
    struct stat status {};
    const bool is_known = found.d_type != DT_UNKNOWN;
    const bool is_link =
        is_known ? found.d_type == DT_LNK : ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
    const bool is_folder = is_known && !is_link
                               ? found.d_type == DT_DIR
                               : ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    return {from_utf8(found.d_name), is_folder, is_link};
}

class posix_system final : public system {
public:
    entry_kind kind_of(const wide_string& path) override { return status_of(path).kind; }

    uint64_t file_size(const wide_string& path) override { return status_of(path).bytes; }

    entry_status status_of(const wide_string& path) override {
        const auto status = mapped_volumes().status(path);
        if (!status) return {};
        if (S_ISDIR(status->st_mode)) return {entry_kind::folder};
        return S_ISREG(status->st_mode) ? entry_status{entry_kind::file, uint64_t(status->st_size)}
                                        : entry_status{};
    }

    bool copy_file(const wide_string& source, const wide_string& target, bool replace) override {
        return copy_regular_file(source, target, replace);
    }

    bool delete_file(const wide_string& path) override {
        const auto native = existing(path);
        if (!native) return false;
        names().before_change(*native);
        if (::unlink(native->c_str()) != 0) return false;
        names().removed(*native);
        return true;
    }

    bool create_folder(const wide_string& path) override {
        const auto native = wanted(path);
        if (!native) return false;
        names().before_change(*native);
        if (::mkdir(native->c_str(), 0777) != 0) return false;
        names().created(*native);
        return true;
    }

    bool remove_folder(const wide_string& path) override {
        const auto native = existing(path);
        if (!native) return false;
        names().before_change(*native);
        if (::rmdir(native->c_str()) != 0) return false;
        names().removed(*native);
        return true;
    }

    std::optional<std::vector<folder_entry>> list(const wide_string& path) override {
        std::vector<folder_entry> entries;
        const auto native = existing(path);
        if (!native) return std::nullopt;
        const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir(native->c_str()), ::closedir);
        if (!folder) return std::nullopt;
        for (;;) {
            errno = 0;
            const dirent* const found = ::readdir(folder.get());
            if (found == nullptr) break;
            const std::string_view name = found->d_name;
            if (name != "." && name != "..") entries.push_back(entry_of(*native, *found));
        }
        if (errno != 0) return std::nullopt;
        std::ranges::sort(entries, {}, &folder_entry::name);
        return entries;
    }

    bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override {
        if (name == u"." || name == u"..") {
            spelling = name;
            return true;
        }
        const auto native = existing(folder);
        bool is_folder = false;
        const auto found = native ? names().find(*native, to_utf8(name), is_folder) : std::nullopt;
        if (!found) return false;
        spelling = from_utf8(*found);
        return true;
    }

    bool same_file(const wide_string& a, const wide_string& b) override {
        const auto first = mapped_volumes().status(a);
        const auto second = mapped_volumes().status(b);
        return first && second && first->st_dev == second->st_dev && first->st_ino == second->st_ino;
    }

    bool rename_over(const wide_string& from, const wide_string& to) override {
        const auto source = existing(from);
        const auto target = wanted(to);
        if (!source || !target) return false;
        names().before_change(*source);
        if (std::rename(source->c_str(), target->c_str()) != 0) return false;
        if (*source != *target) names().removed(*source);
        names().created(*target);
        return true;
    }

    open_result open(const wide_string& path, access access_wanted, disposition how,
                     std::unique_ptr<file>& result) override {
        result.reset();
        const bool writes = access_wanted == access::read_write;
        if (how == disposition::open_existing)
            return lock_regular_file(open_existing(path, writes ? O_RDWR : O_RDONLY), writes, false, result);
        const auto native = wanted(path);
        if (!native) return open_result::failed;
        descriptor opened = create_native(*native, O_RDWR, 0666);
        if (opened) names().created(*native);
        return lock_regular_file(std::move(opened), true, true, result);
    }

    void pause_1ms() override { std::this_thread::sleep_for(std::chrono::milliseconds(1)); }

    std::optional<uint64_t> free_space(const wide_string& folder) override {
        const auto native = existing(folder);
        struct statvfs status {};
        if (!native || ::statvfs(native->c_str(), &status) != 0) return std::nullopt;
        return static_cast<uint64_t>(status.f_bavail) * status.f_frsize;
    }
};

} // namespace

system& operating_system() {
    static posix_system own;
    return own;
}

} // namespace vs::project_resave::platform
