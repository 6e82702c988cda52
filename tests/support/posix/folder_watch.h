// Counts how often a folder's listing is opened, by whomever, from now on.
#pragma once

#include <sys/inotify.h>
#include <unistd.h>

#include <filesystem>

#include "platform/posix/descriptor.h"

namespace vs::project_resave {

class folder_watch {
public:
    explicit folder_watch(const std::filesystem::path& folder)
        : events_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        ::inotify_add_watch(events_.get(), folder.c_str(), IN_OPEN);
    }

    // Since the last call.
    int readings() const {
        int count = 0;
        alignas(inotify_event) char events[4096];
        for (ssize_t length; (length = ::read(events_.get(), events, sizeof(events))) > 0;)
            for (ssize_t at = 0; at < length;) {
                const auto* event = reinterpret_cast<const inotify_event*>(events + at);
                if ((event->mask & IN_ISDIR) != 0) ++count;
                at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            }
        return count;
    }

private:
    platform::descriptor events_;
};

} // namespace vs::project_resave
