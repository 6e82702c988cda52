// What a run asks, answered by the options of the command or by a person at the terminal. The command prints
// the outcome itself, from the facts of the run, so nothing is shown here.
#pragma once

#include <optional>

#include "operations/run/run_questions.h"
#include "reference_host/shell/front_end.h"

namespace vestra::command {

// Answers given beforehand; nothing means that the person is asked.
struct decided_answers {
    std::optional<bool> add_referenced = std::nullopt;
    std::optional<vs::project_resave::stop_answer> on_stop = std::nullopt;
};

class command_questions final : public vs::project_resave::run_questions {
public:
    // `person` must outlive this object.
    command_questions(shell::front_end& person, const decided_answers& decided)
        : person_(person), decided_(decided) {}

    bool add_referenced() override;
    vs::project_resave::stop_answer on_stop() override;
    vs::project_resave::unique_name_answer new_name(const std::u16string& source,
                                                    const std::u16string& proposed) override;
    // The process ends with the run.
    bool reopen_source() override { return false; }
    void show_report(const vs::project_resave::run_report&) override {}
    void show_message(int32_t) override {}
    void show_error(int32_t) override {}

private:
    shell::front_end& person_;
    decided_answers decided_;
};

} // namespace vestra::command
