// Files in memory under any path in place of the disk, for readers that are called millions of times.
#pragma once

#include <algorithm>
#include <cstring>
#include <map>
#include <string>

#include "platform/forwarding_system.h"
#include "platform/text.h"

namespace vestra {

namespace platform = vs::project_resave::platform;
using vs::project_resave::wide_string;
using vs::project_resave::wide_view;

class memory_files : public vs::project_resave::forwarding_system {
public:
    std::map<wide_string, std::string> content;

    platform::entry_status status_of(const wide_string& path) override {
        const auto found = content.find(path);
        if (found == content.end()) return {platform::entry_kind::none, 0, platform::failure::missing};
        return {platform::entry_kind::file, found->second.size()};
    }
    platform::outcome delete_file(const wide_string& path) override {
        return content.erase(path) != 0 ? platform::outcome() : platform::failure::missing;
    }
    platform::outcome rename_over(const wide_string& from, const wide_string& to) override {
        content[to] = std::move(content[from]);
        return delete_file(from);
    }
    platform::outcome open(const wide_string& path, platform::access, platform::disposition how,
                           std::unique_ptr<platform::file>& result) override {
        const bool create = how != platform::disposition::open_existing;
        if (!create && !content.contains(path)) return platform::failure::missing;
        if (create) content[path].clear();
        result = std::make_unique<open_file>(content[path]);
        return {};
    }

private:
    struct open_file : platform::file {
        explicit open_file(std::string& text) : bytes(text) {}
        platform::outcome read(void* buffer, size_t length, size_t& count) override {
            count = std::min(length, bytes.size() - place);
            std::memcpy(buffer, bytes.data() + place, count);
            place += count;
            return {};
        }
        platform::outcome write(const void* from, size_t length) override {
            bytes.append(static_cast<const char*>(from), length);
            return {};
        }
        platform::outcome seek_end() override { return {}; }
        uint64_t size() override { return bytes.size(); }
        platform::outcome close() override { return {}; }

        std::string& bytes;
        size_t place = 0;
    };
};

} // namespace vestra
