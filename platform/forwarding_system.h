// A system that forwards every call to another one: the base of wrappers that fail, count or watch calls.
//
//     struct no_copies : forwarding_system {
//         platform::outcome copy_file(const wide_string&, const wide_string&, bool) override {
//             return platform::failure::disk_full;
//         }
//     };
//     no_copies faults;
//     platform::system_override active(faults);
#pragma once

#include "platform/system.h"

namespace vs::project_resave {

class forwarding_system : public platform::system {
public:
    // `inner`, by default the current system, must outlive this object.
    explicit forwarding_system(platform::system& inner = platform::current_system()) : inner_(inner) {}

    platform::entry_status status_of(const wide_string& path) override { return inner_.status_of(path); }
    platform::outcome copy_file(const wide_string& source, const wide_string& target, bool replace) override {
        return inner_.copy_file(source, target, replace);
    }
    platform::outcome delete_file(const wide_string& path) override { return inner_.delete_file(path); }
    platform::outcome create_folder(const wide_string& path) override { return inner_.create_folder(path); }
    platform::outcome remove_folder(const wide_string& path) override { return inner_.remove_folder(path); }
    platform::outcome list(const wide_string& path, std::vector<platform::folder_entry>& entries) override {
        return inner_.list(path, entries);
    }
    std::filesystem::file_time_type time_of_folder(const wide_string& path) override {
        return inner_.time_of_folder(path);
    }
    bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override {
        return inner_.true_name(folder, name, spelling);
    }
    platform::file_identity identity_of(const wide_string& path) override { return inner_.identity_of(path); }
    bool same_file(const wide_string& a, const wide_string& b) override { return inner_.same_file(a, b); }
    platform::outcome rename_over(const wide_string& from, const wide_string& to) override {
        return inner_.rename_over(from, to);
    }
    platform::outcome open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) override {
        return inner_.open(path, wanted, how, result);
    }
    void pause_1ms() override { inner_.pause_1ms(); }
    platform::outcome free_space(const wide_string& folder, uint64_t& bytes) override {
        return inner_.free_space(folder, bytes);
    }
    platform::outcome flush(const wide_string& path) override { return inner_.flush(path); }
    platform::outcome flush_volume(const wide_string& folder) override { return inner_.flush_volume(folder); }

protected:
    platform::system& inner() { return inner_; }

private:
    platform::system& inner_;
};

} // namespace vs::project_resave
