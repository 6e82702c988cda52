// A system that hands every call on to another one: the base of wrappers that fail, count or watch calls.
//
//     struct no_copies : forwarding_system {
//         bool copy_file(const wide_string&, const wide_string&, bool) override { return false; }
//     };
//     no_copies faults;
//     platform::system_override in_force(faults);
#pragma once

#include "platform/system.h"

namespace vs::project_resave {

class forwarding_system : public platform::system {
public:
    /// `inner`, by default the system in force, must outlive this object.
    explicit forwarding_system(platform::system& inner = platform::current_system()) : inner_(inner) {}

    platform::entry_kind kind_of(const wide_string& path) override { return inner_.kind_of(path); }
    uint64_t file_size(const wide_string& path) override { return inner_.file_size(path); }
    bool copy_file(const wide_string& source, const wide_string& target, bool replace) override {
        return inner_.copy_file(source, target, replace);
    }
    bool delete_file(const wide_string& path) override { return inner_.delete_file(path); }
    bool create_folder(const wide_string& path) override { return inner_.create_folder(path); }
    bool remove_folder(const wide_string& path) override { return inner_.remove_folder(path); }
    std::optional<std::vector<platform::folder_entry>> list(const wide_string& path) override {
        return inner_.list(path);
    }
    bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override {
        return inner_.true_name(folder, name, spelling);
    }
    bool same_file(const wide_string& a, const wide_string& b) override { return inner_.same_file(a, b); }
    bool rename_over(const wide_string& from, const wide_string& to) override {
        return inner_.rename_over(from, to);
    }
    platform::open_result open(const wide_string& path, platform::access wanted, platform::disposition how,
                               std::unique_ptr<platform::file>& result) override {
        return inner_.open(path, wanted, how, result);
    }
    void pause_1ms() override { inner_.pause_1ms(); }
    std::optional<uint64_t> free_space(const wide_string& folder) override {
        return inner_.free_space(folder);
    }

private:
    platform::system& inner_;
};

} // namespace vs::project_resave
