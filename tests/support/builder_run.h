// Whole runs of a project that the test builds; some elements can be left out.
#pragma once

#include "framework/resources/strings.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {

using texts = std::vector<wide_string>;

class builder_run : public host_fixture {
protected:
    // Loads the builder's current project, resaves it and reads the result.
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

    // Returns how often the user was asked whether to add referenced elements.
    size_t questions() const {
        return static_cast<size_t>(std::ranges::count(script.texts(front::kind::yes_no),
                                                      load_string(text::add_referenced_elements)));
    }

    // Starts again with an empty project, no data and an empty new folder.
    void clear() {
        std::filesystem::remove_all(native("c") / "prj");
        std::filesystem::create_directories(native("c") / "prj");
        clear_run();
    }
    // As above, but keeps the data.
    void clear_run() {
        clear_output();
        builder.clear();
        unticked.clear();
        settings = {};
    }
    // Return a path in the folder of the project and in the new folder.
    static wide_string src(wide_view name) { return u"C:\\prj\\" + wide_string(name); }
    static wide_string out(wide_view name) { return u"N:\\out\\" + wide_string(name); }

    // Adds a 2D scene that is left out of the selection.
    project_builder& left_out(const wide_string& caption) {
        unticked.push_back(caption);
        return builder.scene_2d(caption);
    }

    project_builder builder;
    texts unticked;                        // captions
    std::unique_ptr<vestra::project> copy; // the new project
    texts problems;                        // "title: lines"
};

} // namespace vs::project_resave
