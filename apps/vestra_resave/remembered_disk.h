// A disk that caches the status and identity of each file until something is written through it. The commands
// ask for most files of a project several times before and after the run, and on a share each request is a
// round trip.
//
//     remembered_disk disk;
//     const platform::system_override in_force(disk);
//     ... // load, look, compare: each name is requested once
//     create_folders(path); // discards the cache
//     disk.remember(false); // a run takes hours and others work meanwhile, so nothing is cached
#pragma once

#include <functional>
#include <memory>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/forwarding_system.h"

namespace vestra::command {

using vs::project_resave::wide_string;
namespace platform = vs::project_resave::platform;

// For use in one thread. Changes by other programs between two writes are not noticed.
class remembered_disk final : public vs::project_resave::forwarding_system {
public:
    using forwarding_system::forwarding_system;

    // Switches the cache on or off and discards its content. Initially it is on.
    void remember(bool on) {
        remembers_ = on;
        forget();
    }

    platform::entry_status status_of(const wide_string& path) override;
    platform::file_identity identity_of(const wide_string& path) override;

    // These write, so they discard the cache.
    platform::outcome copy_file(const wide_string& source, const wide_string& target, bool replace) override;
    platform::outcome delete_file(const wide_string& path) override;
    platform::outcome create_folder(const wide_string& path) override;
    platform::outcome remove_folder(const wide_string& path) override;
    platform::outcome rename_over(const wide_string& from, const wide_string& to) override;
    platform::outcome open(const wide_string& path, platform::access wanted, platform::disposition how,
                           std::unique_ptr<platform::file>& result) override;

private:
    struct text_hash {
        using is_transparent = void;
        size_t operator()(std::u16string_view text) const { return std::hash<std::u16string_view>()(text); }
    };
    // By the path as given, because the spelling can matter.
    template <class Answer>
    using by_path = std::pmr::unordered_map<std::pmr::u16string, Answer, text_hash, std::equal_to<>>;

    // Allocated from a pool that is freed as a whole: fragments all over the heap would make every later
    // allocation of the run slower.
    struct answers {
        std::pmr::monotonic_buffer_resource memory;
        by_path<platform::entry_status> statuses{&memory};
        by_path<platform::file_identity> identities{&memory};
    };

    answers& known();
    void forget() { known_.reset(); }

    bool remembers_ = true;
    std::unique_ptr<answers> known_; // null while the cache is empty
};

} // namespace vestra::command
