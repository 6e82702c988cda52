// A session is one run of a command on a project: a running host with the bundle, and the answers to the
// questions of the run. Main thread only.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "apps/vestra_resave/problems.h"
#include "operations/run/run_questions.h"
#include "reference_host/shell/front_end.h"
#include "services/entity_factory.h"

namespace vestra::command {

class continued_disk;

// Answers given by options; no value means that the user is asked.
struct decided_answers {
    std::optional<bool> add_referenced = std::nullopt;
    std::optional<vs::project_resave::stop_answer> on_stop = std::nullopt;
};

// Answers the questions of a run by the options of the command or by asking the user. Nothing is shown here,
// because the command prints the outcome from the facts of the run.
class command_questions final : public vs::project_resave::run_questions {
public:
    // `person` must outlive this object.
    command_questions(shell::front_end& person, const decided_answers& decided)
        : person_(person), decided_(decided) {}

    bool add_referenced() override;
    vs::project_resave::stop_answer on_stop() override;
    vs::project_resave::unique_name_answer new_name(const std::u16string& source,
                                                    const std::u16string& proposed) override;
    wide_string kept_place(const wide_string& source, const wide_string& wanted) override;
    void place_found() override;
    // The process ends after the run.
    bool reopen_source() override { return false; }
    void show_report(const vs::project_resave::run_report&) override {}
    void show_message(int32_t) override {}
    void show_error(int32_t, const wide_string&) override {}

    // Keeps the paths of copies of an earlier run; can be null. Must outlive the run.
    continued_disk* earlier = nullptr;

private:
    shell::front_end& person_;
    decided_answers decided_;
};

} // namespace vestra::command

namespace vs::project_resave {
class project_context;
}

namespace vestra::command {

// Returns an error if the path typed is on a share and the operating system has no shares. Without this check
// such a path would count as one that does not exist.
std::optional<refusal> refuse_share(const std::string& typed);

// A running host with the bundle, and the bundle's context. The constructor starts the host, the destructor
// stops it and releases the project. Only one session can exist at a time, except a guest inside another
// host.
class session {
public:
    // Also loads the bundles given by the options; throws bundle_not_loaded if that fails. Drives and
    // language must have been set by `apply`.
    session(const common_options& options, const decided_answers& answers);
    // For use inside another running host, whose front end must outlive this object. Has its own registry,
    // because services know one project at a time. Only the linked-in bundle is used.
    session(shell::front_end& person, const decided_answers& answers);
    ~session();

    // Loads a project by its native or drive path, in place of the one loaded before. Returns an error if the
    // project could not be loaded or the program is to end. The second form shows progress and writes a load
    // log, if that is wanted.
    std::optional<refusal> load(const std::string& project);
    std::optional<refusal> load(const wide_string& path, bool show_wait, bool write_open_log);
    // Returns the problems of the load followed by those of the last run; of a problem that both report, only
    // that of the run.
    std::vector<problem> problems() const;
    // As above without layer types that nothing resaves, which only concern a resave, and with the scene
    // files of maps that could not be read.
    std::vector<problem> reading_problems() const;

    // The context, in which runs are started and which has their results.
    vs::project_resave::project_context& context() { return *context_; }
    // See command_questions.
    void keep_places(continued_disk* earlier) { questions_.earlier = earlier; }
    shell::front_end& screen() { return screen_; }
    // True if Ctrl-C was pressed since the last run ended, or if the user of the other host requested a stop.
    bool interrupted() { return own_ ? own_->terminal.interrupted() : screen_.stop_requested(); }

private:
    struct own_host {
        explicit own_host(const common_options& options) : host(terminal, options) {}
        vs::project_resave::platform::process_terminal terminal;
        terminal_host host;
    };

    struct guest_host {
        guest_host();
        ~guest_host() { bundles.unload_all(); }
        shell::service_registry registry;
        shell::bundle_loader bundles{registry};
    };

    // Exactly one of the two exists.
    const std::unique_ptr<own_host> own_;
    const std::unique_ptr<guest_host> guest_;
    shell::front_end& screen_;
    command_questions questions_;
    vs::project_resave::resave_services services_;
    std::unique_ptr<vs::project_resave::project_context> context_;
    // Of the last load; the report of a run need not repeat them.
    std::vector<problem> load_problems_;
};

} // namespace vestra::command
