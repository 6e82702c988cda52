// A disk that is asked once: what it answered on a file or folder it answers again, until something is
// written through it. The commands ask for most files of a project several times before the run and after it,
// and on a share each question is a round trip.
//
//     remembered_disk disk;
//     const platform::system_override in_force(disk);
//     ... // load, look, compare: each name is asked for once
//     disk.remember(false); // a run looks anew each time: it may take hours, and others work meanwhile
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

// For one thread. What other programs do to a file between two writes does not show.
class remembered_disk final : public vs::project_resave::forwarding_system {
public:
    using forwarding_system::forwarding_system;

    // Whether answers are kept, as they are at first. Those that are known are forgotten.
    void remember(bool on) {
        remembers_ = on;
        forget();
    }

    // A name that the listing of its folder lacks is missing, without a question. The listing is read once
    // the first such name was asked for.
    platform::entry_status status_of(const wide_string& path) override;
    platform::file_identity identity_of(const wide_string& path) override;

    // These write. What only adds an entry leaves what is known of existing files.
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
    // What is known of a folder and of what is in it, by the text that was asked for: the spelling can
    // matter.
    struct known_folder {
        explicit known_folder(std::pmr::memory_resource* memory) : answers(memory), names(memory) {}
        by_text<answer> answers;        // by name
        std::pmr::vector<size_t> names; // hashes of the folded names, in order
        size_t listed_at = never;       // the number of additions when they were read
    };
    // In memory of their own, which is given back as a whole: holes left all over the heap would make each
    // later allocation of the run slower.
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
    void note_addition() { ++additions_; }

    bool remembers_ = true;
    size_t additions_ = 0;             // of entries, through this disk
    std::unique_ptr<knowledge> known_; // null as long as nothing is known
};

} // namespace vestra::command
