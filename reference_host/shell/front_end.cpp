// The host settings, the stack of front ends and the default one, which shows nothing.
#include "reference_host/shell/front_end.h"

#include <utility>

#include "platform/path_text.h"

namespace vestra::shell {

using vs::project_resave::path_key;

void file_refusals::add(files::file_error refusal) {
    // Bundles may spell the path in another way when they ask for the reason.
    wide_string key = path_key(refusal.file);
    by_key_.insert_or_assign(std::move(key), std::move(refusal));
}

const files::file_error* file_refusals::find(const wide_string& path) const {
    const auto found = by_key_.find(path_key(path));
    return found == by_key_.end() ? nullptr : &found->second;
}

host_settings& settings() {
    static host_settings record;
    return record;
}

namespace {

class silent_front_end final : public front_end {
public:
    void error(wide_view) override {}
    void warning(wide_view) override {}
    void message(wide_view) override {}
    bool yes_no(wide_view) override { return false; }
    answer yes_no_cancel(wide_view) override { return answer::no; }
    void progress_opened(bool) override {}
    void progress_shown(std::uint32_t, std::uint32_t) override {}
    void progress_caption(wide_view) override {}
    void progress_indeterminate(bool) override {}
    void progress_closed() override {}
    bool stop_requested() override { return false; }
    void stop_reset() override {}
    void wait_opened(wide_view) override {}
    void wait_closed() override {}
};

front_end*& in_force() {
    // Created on first use, because static objects of other sources may need it.
    static silent_front_end silent;
    static front_end* current = &silent;
    return current;
}

} // namespace

front_end& current_front_end() { return *in_force(); }

front_end_override::front_end_override(front_end& replacement)
    : previous_(std::exchange(in_force(), &replacement)) {}

front_end_override::~front_end_override() { in_force() = previous_; }

} // namespace vestra::shell
