#include "apps/vestra_resave/structure_command.h"

#include "apps/vestra_resave/figures.h"
#include "apps/vestra_resave/output_file.h"
#include "framework/resources/strings.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

constexpr int32_t project_ended = 629;

// The run tells nobody of a full disk: the last line that it writes is missing then.
bool is_complete(const wide_string& path) {
    const std::string last = platform::to_utf8(load_string(project_ended)) + "\r\n";
    std::unique_ptr<platform::file> file;
    const auto result = platform::current_system().open(path, platform::access::read,
                                                        platform::disposition::open_existing, file);
    if (!result) return false;
    std::string text(file->size(), '\0');
    return file->read_whole(text.data(), text.size()) && text.ends_with(last);
}

} // namespace

int write_structure(const structure_wish& wish, const common_options& options) {
    session host(options, stopped_without_question());
    if (!host.load(wish.project)) return wrong_use;
    project_context& context = host.context();
    const wide_string path = platform::drive_path(wish.text_file);
    if (const int end = create_text_file(path, context)) return end;
    structure_settings settings = wish.settings;
    settings.output_path = path.c_str();
    context.save_structure(settings);
    if (context.progress.stopped) return stopped;
    if (is_complete(path)) return done;
    complain(one_line(path) + ": the text could not be written to its end");
    return not_saved;
}

} // namespace vestra::command
