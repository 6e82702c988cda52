#include "apps/vestra_resave/output_file.h"

#include "apps/vestra_resave/figures.h"
#include "apps/vestra_resave/project_files.h"
#include "framework/resources/strings.h"
#include "platform/path_text.h"
#include "platform/system.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

constexpr int32_t question_erase = 359;

} // namespace

bool is_same_file(const wide_string& one, const wide_string& other) {
    return path_same(one, other) || platform::current_system().same_file(one, other);
}

int create_text_file(const wide_string& path, project_context& context) {
    const std::string shown = one_line(path);
    if (is_same_file(path, context.placement.source_project_path)) {
        complain(shown + ": the project itself cannot be written over");
        return wrong_use;
    }
    platform::system& files = platform::current_system();
    std::string reason;
    std::unique_ptr<platform::file> created;
    if (files.kind_of(path) == platform::entry_kind::folder)
        reason = "it is a folder";
    else if (would_replace_project_file({path}, context))
        return wrong_use;
    else if (files.kind_of(path_head(path)) != platform::entry_kind::folder)
        reason = "there is no folder " + one_line(path_head(path));
    else if (!files.open(path, platform::access::read_write, platform::disposition::create_always, created))
        reason = "it cannot be opened for writing";
    else
        return done;
    complain(shown + ": " + reason);
    return not_saved;
}

shell::terminal_options stopped_without_question() {
    shell::terminal_options front;
    front.decided = [](wide_view question) -> std::optional<shell::answer> {
        if (question == load_string(question_erase)) return shell::answer::yes;
        return std::nullopt;
    };
    return front;
}

} // namespace vestra::command
