// Whole runs of a project that a test builds, of which some elements may be left out.
#pragma once

#include "framework/resources/strings.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {

using texts = std::vector<wide_string>;

class builder_run : public host_fixture {
protected:
    // Loads the builder's project as it is by now, resaves it and reads what came of it.
    void run() {
        builder.save(source);
        load();
        for (const wide_string& caption : unticked)
            context->selection.set_selected(builder.id(caption), false);
        resave_and_read();
    }
    void resave_and_read() {
        resave();
        problems.clear();
        for (const auto& problem : context->report.problems())
            problems.push_back(problem.title + u": " + problem.text);
        copy = std::make_unique<vestra::project>();
        read_back(output, *copy);
    }

    // How often the user was asked whether to add what is referred to.
    size_t questions() const {
        return static_cast<size_t>(std::ranges::count(script.texts(front::kind::yes_no),
                                                      load_string(text::add_referenced_elements)));
    }

    project_builder builder;
    texts unticked;                        // captions
    std::unique_ptr<vestra::project> copy; // the new project
    texts problems;                        // "title: lines"
};

} // namespace vs::project_resave
