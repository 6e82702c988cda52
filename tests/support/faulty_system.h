// A system on which selected calls of some kinds fail like real ones: nothing is changed, and there is a
// reason. The paths of failed calls are recorded.
//
//     faulty_system faults({"copy"}, 3);                                // the third copy
//     faulty_system faults(faulty_system::disk_full, 3, SIZE_MAX, n);   // all from there on that go to N:
//     platform::system_override in_force(faults);
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <set>
#include <string_view>
#include <utility>

#include "platform/forwarding_system.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vs::project_resave {

class faulty_system final : public forwarding_system {
public:
    // The names below, and "delete", "remove folder", "name" and "same file".
    using kinds = std::set<std::string_view>;
    // The calls that a run makes from its load to its end if nothing is to be erased.
    static constexpr const char* calls[] = {"copy",          "create folder", "list",  "open to read",
                                            "open to write", "read",          "write", "rename",
                                            "kind",          "size",          "close"};
    static inline const kinds disk_full{"copy", "create folder", "open to write", "write"};

    // Fails the calls with numbers `first` to `last`, counted from 1, among all calls of these kinds on paths
    // that begin with `below`.
    explicit faulty_system(kinds failing, size_t first = 0, size_t last = 0, wide_string below = {})
        : failing_(std::move(failing)), first_(first), last_(std::max(first, last)),
          below_(std::move(below)) {}

    // Path keys that no call may write, replace or remove, for all such systems.
    static inline std::set<wide_string> kept;

    bool breaks_off = false;         // the calls do not fail but throw
    size_t count = 0;                // of such calls
    std::vector<wide_string> failed; // their paths; of a copy that of the source

    platform::entry_status status_of(const wide_string& path) override {
        if (fails("kind", path)) return {platform::entry_kind::none, 0, failure::denied};
        platform::entry_status status = forwarding_system::status_of(path);
        if (fails("size", path)) status.bytes = 0;
        return status;
    }
    platform::outcome copy_file(const wide_string& from, const wide_string& to, bool replace) override {
        expect_not_kept(to);
        if (fails("copy", from, to)) return failure::disk_full;
        return forwarding_system::copy_file(from, to, replace);
    }
    platform::outcome delete_file(const wide_string& path) override {
        expect_not_kept(path);
        return fails("delete", path) ? failure::denied : forwarding_system::delete_file(path);
    }
    platform::outcome create_folder(const wide_string& path) override {
        return fails("create folder", path) ? failure::disk_full : forwarding_system::create_folder(path);
    }
    platform::outcome remove_folder(const wide_string& path) override {
        expect_not_kept(path);
        return fails("remove folder", path) ? failure::denied : forwarding_system::remove_folder(path);
    }
    platform::outcome list(const wide_string& path, std::vector<platform::folder_entry>& entries) override {
        return fails("list", path) ? failure::denied : forwarding_system::list(path, entries);
    }
    bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override {
        return !fails("name", folder) && forwarding_system::true_name(folder, name, spelling);
    }
    bool same_file(const wide_string& a, const wide_string& b) override {
        return !fails("same file", a) && forwarding_system::same_file(a, b);
    }
    platform::outcome rename_over(const wide_string& from, const wide_string& to) override {
        expect_not_kept(from);
        expect_not_kept(to);
        return fails("rename", to) ? failure::denied : forwarding_system::rename_over(from, to);
    }
    platform::outcome open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) override {
        if (wanted == platform::access::read && fails("open to read", path)) return failure::denied;
        if (wanted != platform::access::read) expect_not_kept(path);
        if (wanted != platform::access::read && fails("open to write", path)) return failure::disk_full;
        const platform::outcome opened = forwarding_system::open(path, wanted, how, result);
        if (result) result = std::make_unique<faulty_file>(*this, path, std::move(result));
        return opened;
    }

private:
    using failure = platform::failure;

    class faulty_file final : public platform::file {
    public:
        faulty_file(faulty_system& faults, wide_string path, std::unique_ptr<platform::file> inner)
            : faults_(faults), path_(std::move(path)), inner_(std::move(inner)) {}
        platform::outcome read(void* buffer, size_t length, size_t& count) override {
            count = 0;
            return faults_.fails("read", path_) ? failure::damaged : inner_->read(buffer, length, count);
        }
        // Writes half of the bytes.
        platform::outcome write(const void* bytes, size_t length) override {
            if (!faults_.fails("write", path_)) return inner_->write(bytes, length);
            inner_->write(bytes, length / 2);
            return failure::disk_full;
        }
        platform::outcome seek_end() override { return inner_->seek_end(); }
        uint64_t size() override { return inner_->size(); }
        platform::outcome close() override {
            const platform::outcome closed = inner_->close();
            return closed && faults_.fails("close", path_) ? failure::disk_full : closed;
        }

    private:
        faulty_system& faults_;
        wide_string path_;
        std::unique_ptr<platform::file> inner_;
    };

    static void expect_not_kept(const wide_string& path) {
        EXPECT_FALSE(!kept.empty() && kept.contains(path_key(path))) << platform::to_utf8(path);
    }
    bool fails(std::string_view kind, const wide_string& path) { return fails(kind, path, path); }
    bool fails(std::string_view kind, const wide_string& path, const wide_string& place) {
        if (!failing_.contains(kind) || !place.starts_with(below_)) return false;
        ++count;
        if (count < first_ || count > last_) return false;
        failed.push_back(path);
        if (breaks_off) throw std::bad_alloc();
        return true;
    }

    kinds failing_;
    size_t first_, last_;
    wide_string below_;
};

} // namespace vs::project_resave
