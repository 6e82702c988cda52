// A disk that caches the status and identity of files until a write through it can have changed them. The
// commands ask for most files of a project several times before and after the run, and on a share each
// request is a round trip.
//
//     remembered_disk disk;
//     const platform::system_override in_force(disk);
//     ... // load, look, compare: each name is requested once
//     disk.remember_until_write(); // a run takes hours and others work meanwhile, so nothing is cached then
#pragma once

#include <functional>
#include <memory>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/forwarding_system.h"

namespace vestra::command {

using vs::project_resave::wide_string;
namespace platform = vs::project_resave::platform;

// For use in one thread. Changes by other programs between two writes are not noticed.
class remembered_disk final : public vs::project_resave::forwarding_system {
    struct knowledge;

public:
    using forwarding_system::forwarding_system;

    // Switches the cache on or off and discards its content. Initially it is on. Call it with true
    // also after other code may have changed the disk below this one.
    void remember(bool on) {
        remembers_ = on;
        ends_at_write_ = false;
        forget();
    }
    // Switches the cache off as soon as something is written. What is asked before is answered from the
    // cache.
    void remember_until_write() { ends_at_write_ = true; }

    // Keeps what is known of existing files while the caller only creates new files. The writes of this scope
    // discard nothing that was known before it; answers given during the scope are discarded at its end.
    class kept_answers {
    public:
        explicit kept_answers(remembered_disk& disk);
        ~kept_answers();
        kept_answers(const kept_answers&) = delete;
        kept_answers& operator=(const kept_answers&) = delete;

    private:
        remembered_disk& disk_;
        std::unique_ptr<knowledge> known_;
    };

    // A name that is missing in the listing of its folder is reported as missing without a request. The
    // listing is read after the first request for a name that does not exist.
    platform::entry_status status_of(const wide_string& path) override;
    platform::file_identity identity_of(const wide_string& path) override;
    std::filesystem::file_time_type time_of_folder(const wide_string& path) override;

    // These write. Operations that only add an entry keep what is known of existing files; all others discard
    // everything.
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
    template <class Value>
    using by_text = std::pmr::unordered_map<std::pmr::u16string, Value, text_hash, std::equal_to<>>;

    struct answer {
        platform::entry_status status;
        platform::file_identity identity;
        bool has_status = false, has_identity = false;
        size_t additions = 0; // when it was given
    };
    // What is known of a folder and its entries, by the path as given, because the spelling can matter.
    struct known_folder {
        explicit known_folder(std::pmr::memory_resource* memory) : answers(memory), names(memory) {}
        by_text<answer> answers;        // by name
        std::pmr::vector<size_t> names; // hashes of the folded names, in order
        size_t listed_at = never;       // number of additions when they were read
        std::filesystem::file_time_type time;
        size_t timed_at = never; // number of additions when `time` was asked
    };
    // Allocated from a pool that is freed as a whole: fragments all over the heap would make every later
    // allocation of the run slower.
    struct knowledge {
        std::pmr::monotonic_buffer_resource memory;
        by_text<known_folder> folders{&memory};
    };

    static constexpr size_t never = SIZE_MAX;

    known_folder& folder_of(std::u16string_view path);
    answer& answer_for(known_folder& folder, std::u16string_view name);
    bool is_absent(const known_folder& folder, std::u16string_view name) const;
    void learn_names(known_folder& folder, std::u16string_view path);
    void forget() { known_.reset(); }
    void note_addition();
    void note_change();

    bool remembers_ = true;
    bool ends_at_write_ = false;
    size_t additions_ = 0;             // additions of entries through this disk
    std::unique_ptr<knowledge> known_; // null while nothing is known
};

} // namespace vestra::command
