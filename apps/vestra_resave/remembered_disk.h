// A disk that is asked once: what it answered on a file or folder it answers again, until something is
// written through it. The commands ask for most files of a project several times before the run and after it,
// and on a share each question is a round trip.
//
//     remembered_disk disk;
//     const platform::system_override in_force(disk);
//     ... // load, look, compare: each name is asked for once
//     create_folders(path); // all that was known is forgotten
//     disk.remember(false); // a run looks anew each time: it may take hours, and others work meanwhile
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

// For one thread. What other programs do to a file between two writes does not show.
class remembered_disk final : public vs::project_resave::forwarding_system {
public:
    using forwarding_system::forwarding_system;

    // Whether answers are kept, as they are at first. Those that are known are forgotten.
    void remember(bool on) {
        remembers_ = on;
        forget();
    }

    platform::entry_status status_of(const wide_string& path) override;
    platform::file_identity identity_of(const wide_string& path) override;

    // These write, so that what is known no longer holds.
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
    // By the path as it was asked: the spelling can matter.
    template <class Answer>
    using by_path = std::pmr::unordered_map<std::pmr::u16string, Answer, text_hash, std::equal_to<>>;

    // In memory of their own, which is given back as a whole: holes left all over the heap would make each
    // later allocation of the run slower.
    struct answers {
        std::pmr::monotonic_buffer_resource memory;
        by_path<platform::entry_status> statuses{&memory};
        by_path<platform::file_identity> identities{&memory};
    };

    answers& known();
    void forget() { known_.reset(); }

    bool remembers_ = true;
    std::unique_ptr<answers> known_; // null as long as nothing is known
};

} // namespace vestra::command
