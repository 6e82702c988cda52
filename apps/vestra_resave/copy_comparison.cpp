// Compares copies with their sources byte by byte.
#include <cstring>
#include <vector>

#include "apps/vestra_resave/verification.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "reference_host/files/files.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;

namespace {

constexpr size_t piece = 256 * 1024;

platform::outcome open_to_read(const wide_string& path, std::unique_ptr<platform::file>& file) {
    return platform::current_system().open(path, platform::access::read, platform::disposition::open_existing,
                                           file);
}

// Why a copy differs from its source; no kind if it does not, and after a stop.
struct difference {
    const char* kind = nullptr;
    platform::outcome reason;
};

class comparison {
public:
    comparison(const std::function<bool()>& is_stopped, verification& found)
        : is_stopped_(is_stopped), found_(found) {}

    void add(const wide_string& source, const wide_string& target) {
        if (is_at_end()) return;
        if (platform::current_system().kind_of(source) == entry_kind::folder)
            return add_folder(source, target);
        const difference found = compare(source, target);
        // The content decides what a scene file is, since a map can show one with any name. It is read last,
        // because it matters only for files that differ.
        if (found.kind && !found_.stopped && !is_scene_file(target))
            found_.differing.push_back({found.kind, {}, source, target, found.reason.text()});
    }

private:
    bool is_at_end() { return found_.stopped = found_.stopped || is_stopped_(); }

    void add_folder(const wide_string& source, const wide_string& target) {
        const wide_string from = path_with_separator(source);
        std::vector<platform::unread_folder> unread;
        const auto place_of = [&](const wide_string& path) {
            return path_join(target, path_relative(from, path));
        };
        // Only files of the source are compared: the copy may have more, such as companions of others.
        for (const auto& entry : platform::list_tree(platform::current_system(), from, &unread))
            if (!entry.is_folder) add(entry.path, place_of(entry.path));
        for (const auto& folder : unread)
            found_.differing.push_back(
                {own_kind::source_unreadable, {}, folder.path, place_of(folder.path), folder.reason.text()});
    }

    difference compare(const wide_string& source, const wide_string& target) {
        if (platform::current_system().kind_of(target) != entry_kind::file)
            return {own_kind::copy_missing, {}};
        std::unique_ptr<platform::file> one, other;
        platform::outcome result = open_to_read(source, one);
        if (!result) return {own_kind::source_unreadable, result};
        result = open_to_read(target, other);
        if (!result) return {own_kind::copy_unreadable, result};
        uint64_t rest = one->size();
        // Files of different sizes are not read.
        if (rest != other->size()) return {own_kind::copy_size_differs, {}};
        for (; rest != 0 && !is_at_end(); rest -= std::min<uint64_t>(rest, piece)) {
            const auto length = static_cast<size_t>(std::min<uint64_t>(rest, piece));
            result = one->read_whole(first_.data(), length);
            if (!result) return {own_kind::source_unreadable, result};
            platform::note_transfer(length);
            result = other->read_whole(second_.data(), length);
            if (!result) return {own_kind::copy_unreadable, result};
            if (std::memcmp(first_.data(), second_.data(), length) != 0)
                return {own_kind::copy_content_differs, {}};
        }
        return {};
    }

    static bool is_scene_file(const wide_string& path) {
        scene content(dimension::flat);
        return !files::read_scene(path, content);
    }

    const std::function<bool()>& is_stopped_;
    verification& found_;
    std::vector<char> first_ = std::vector<char>(piece), second_ = std::vector<char>(piece);
};

} // namespace

void compare(std::span<const placed_file> copies, const std::function<bool()>& is_stopped,
             verification& found) {
    comparison all(is_stopped, found);
    for (const placed_file& copy : copies) all.add(copy.old_path, copy.new_path);
}

} // namespace vestra::command
