// A temporary folder for a test, removed with its content at the end. Names are given in Windows form
// relative to the folder, and looked up in the same way as by the bundle.
#pragma once

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "platform/volumes.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Returns the bytes of a file; empty if there is none.
inline std::string bytes_of(const std::filesystem::path& file) {
    std::ifstream opened(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << opened.rdbuf();
    return std::move(bytes).str();
}

// Returns the bytes of a file of the source tree.
inline std::string committed(const std::string& name) { return bytes_of(VS_SOURCE_DIR "/" + name); }

class temporary_folder {
public:
    temporary_folder() {
        static std::atomic<unsigned> count{0};
        const std::string name =
            "resave-test-" + std::to_string(std::random_device()()) + "-" + std::to_string(++count);
        native_ = std::filesystem::temp_directory_path() / name;
        std::filesystem::create_directories(native_);
    }
    ~temporary_folder() {
        std::error_code ignored;
        std::filesystem::remove_all(native_, ignored);
    }
    temporary_folder& operator=(temporary_folder&&) = delete;

    const std::filesystem::path& native() const { return native_; }

    // Returns the drive path of the folder, or of a name in it.
    wide_string path() const { return platform::drive_path(native_.string()); }
    wide_string path(wide_view name) const { return path() + u"\\" + wide_string(name); }

    // Writes a file and its folders, bypassing the bundle's file calls. Returns its drive path.
    wide_string write(wide_view name, std::string_view bytes = {}) const {
        std::u16string below(name);
        std::ranges::replace(below, u'\\', u'/');
        const std::filesystem::path file = native_ / below;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return path(name);
    }

    // Returns the bytes of a file; empty if there is none.
    std::string read(wide_view name) const { return bytes_of(platform::native_path(path(name))); }

private:
    std::filesystem::path native_;
};

// Removes a file, or a folder with its content, including read-only files.
inline void remove_tree(const wide_string& path) {
    namespace fs = std::filesystem;
    const fs::path root = platform::native_path(path);
    if (fs::is_directory(root))
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root))
            if (!entry.is_symlink()) fs::permissions(entry, fs::perms::owner_write, fs::perm_options::add);
    fs::remove_all(root);
}

} // namespace vs::project_resave
