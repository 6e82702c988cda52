// Starts the host for one command, loads a project and answers the questions of runs.
#include "apps/vestra_resave/session.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <unordered_set>

#include "apps/vestra_resave/archive/archive_place.h"
#include "apps/vestra_resave/continued_disk.h"
#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/words.h"
#include "framework/bundle_entry.h"
#include "framework/resources/strings.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/volumes.h"
#include "reference_host/files/references.h"
#include "reference_host/shell/front_end.h"
#include "ui/dialogs.h"

namespace vestra::command {

using namespace vs::project_resave;

bool command_questions::add_referenced() {
    return decided_.add_referenced ? *decided_.add_referenced
                                   : person_.yes_no(load_string(text::add_referenced_elements));
}

stop_answer command_questions::on_stop() {
    if (decided_.on_stop) return *decided_.on_stop;
    // The bundle's question does not say what each answer does.
    const std::string answers = say("yes: erase created files; no: keep them; cancel: continue");
    switch (person_.yes_no_cancel(load_string(text::erase_created_files) + u"\n" +
                                  platform::from_utf8(answers))) {
    case shell::answer::cancel:
        return stop_answer::go_on;
    case shell::answer::yes:
        return stop_answer::erase_created;
    default:
        return stop_answer::keep_created;
    }
}

unique_name_answer command_questions::new_name(const wide_string& source, const wide_string& proposed) {
    return show_unique_name_dialog(source, proposed);
}

wide_string command_questions::kept_place(const wide_string& source, const wide_string& wanted) {
    return earlier ? earlier->kept_place(source, wanted) : wanted;
}

void command_questions::place_found() {
    if (earlier) earlier->end_placing();
}

// "//a" is a common spelling of "/a" on systems without shares.
std::optional<refusal> refuse_share(const std::string& typed) {
    const std::string start = typed.substr(0, 2);
    const bool is_share = start == "\\\\" || start == "/\\" || start == "\\/";
    if (!is_share || !platform::native_path(platform::from_utf8(typed)).empty()) return std::nullopt;
    return refused({}, say("%1: network shares are not supported on this operating system; give the folder "
                           "where the share is mounted",
                           {typed}));
}

namespace {

// Lets the load poll for a stop, and shows the share of elements that have been opened. The host asks whether
// to stop whenever it opens a data set, so that call also counts the elements.
class load_progress {
public:
    load_progress(shell::front_end& screen, bool shows, std::function<bool()> is_stopped)
        : screen_(screen), shows_(shows), before_(shell::settings().project_read) {
        shell::settings().stops_reading = [this, is_stopped = std::move(is_stopped)] {
            if (total_ != 0) screen_.progress_shown(std::min(++opened_, total_), total_);
            return is_stopped();
        };
        if (!shows_) return;
        shell::settings().project_read = [this](project& read) {
            // First the search for lost files, which decides what the references are. The window opens here
            // and not earlier, because its total is unknown before the project is read.
            if (before_) before_(read);
            screen_.progress_opened(false);
            screen_.progress_caption(load_string(text::project_opens));
            files::visit_references(read, [this](const files::held_reference& held) {
                const bool is_element = held.kind == "layer" || held.kind == "table";
                if (is_element && path_in(held.text)) ++total_;
            });
        };
    }
    ~load_progress() {
        shell::settings().stops_reading = nullptr;
        if (!shows_) return;
        shell::settings().project_read = before_;
        screen_.progress_closed();
    }
    load_progress(const load_progress&) = delete;
    load_progress& operator=(const load_progress&) = delete;

private:
    shell::front_end& screen_;
    const bool shows_;
    const std::function<void(project&)> before_;
    uint32_t opened_ = 0, total_ = 0;
};

} // namespace

session::session(const common_options& options, const decided_answers& answers)
    : own_(std::make_unique<own_host>(options)), screen_(own_->host.front_end()),
      questions_(screen_, answers) {
    own_->host.start_own_bundle();
    own_->host.load_bundles();
    own_->host.connect();
    own_->host.check_services(true);
    // Only now have all bundles registered; a service that is missing here is missing for the whole session.
    collect_resave_services(services_);
    context_ = std::make_unique<project_context>(&services_, questions_);
}

session::guest_host::guest_host() {
    bundles.start(&vs_bundle_interface_to_custom_pointer);
    registry.start_clients();
}

session::session(shell::front_end& person, const decided_answers& answers)
    : guest_(std::make_unique<guest_host>()), screen_(person), questions_(person, answers) {
    collect_resave_services(services_);
    context_ = std::make_unique<project_context>(&services_, questions_);
}

session::~session() {
    // The tree refers to services of bundles, which are unloaded when the host ends.
    context_.reset();
    services_.clear();
}

std::optional<refusal> session::load(const std::string& project) {
    if (auto early = refuse_share(project)) return early;
    return load(platform::drive_path(project), false, false);
}

std::optional<refusal> session::load(const wide_string& path, bool show_wait, bool write_open_log) {
    if (auto early = refuse_packed_project(path)) return early;
    shell::settings().refused_reads.clear();
    context_->report.restart({}); // the reports of earlier runs have been read
    // In a separate scope, so that the progress is closed before problems are printed.
    const bool is_loaded = [&] {
        const bool shows_steps = own_ && show_wait && own_->terminal.shows();
        const load_progress shown(screen(), shows_steps, [this] { return interrupted(); });
        return context_->load_project(path, show_wait, write_open_log);
    }();
    load_problems_ = problems_of(*context_);
    if (!is_loaded) {
        refusal early{wrong_use, {{own_kind::not_loaded, {}, path, {}, read_error_of(path)}}};
        for (problem& each : reading_problems())
            if (!path_same(each.path, path)) early.problems.push_back(std::move(each));
        return early;
    }
    // A stopped load succeeds, without the data sets that were not opened any more.
    if (interrupted()) return refusal{stopped, {{own_kind::interrupted, {}, {}, {}}}};
    return std::nullopt;
}

std::vector<problem> session::problems() const {
    std::vector<problem> all = problems_of(*context_);
    std::unordered_set<wide_string> reported;
    for (const problem& each : all) reported.insert(key_of(each));
    std::vector<problem> earlier;
    std::ranges::remove_copy_if(load_problems_, std::back_inserter(earlier),
                                [&](const problem& each) { return reported.contains(key_of(each)); });
    all.insert(all.begin(), earlier.begin(), earlier.end());
    return all;
}

std::vector<problem> session::reading_problems() const {
    std::vector<problem> all = problems();
    std::erase_if(all, [](const problem& each) { return each.kind == name_of(fact_kind::type_not_resaved); });
    std::unordered_set<wide_string> seen{path_key(context_->placement.source_project_path)};
    const auto& refused = shell::settings().refused_reads.all();
    // Sorted, because the host keeps them in no order. A file that does not exist is reported as missing, not
    // as unreadable.
    for (const auto& [key, error] : std::map(refused.begin(), refused.end()))
        if (path_exists(error.file) && seen.insert(key).second)
            all.push_back({own_kind::unreadable, {}, error.file, {}, error.why()});
    return all;
}

} // namespace vestra::command
