// A project whose data lies in its own folder, resaved and read again.
#pragma once

#include "tests/support/builder_run.h"

namespace vs::project_resave {

class layer_run : public builder_run {
protected:
    // An empty project without any data, and nothing in the new folder.
    void clear() {
        std::filesystem::remove_all(native("c") / "prj");
        std::filesystem::create_directories(native("c") / "prj");
        clear_run();
    }
    // The same, but for the data.
    void clear_run() {
        clear_output();
        builder.clear();
        unticked.clear();
        settings = {};
    }
    static wide_string src(wide_view name) { return u"C:\\prj\\" + wide_string(name); }
    static wide_string out(wide_view name) { return u"N:\\out\\" + wide_string(name); }

    // A 2D scene that is left out of the selection.
    project_builder& left_out(const wide_string& caption) {
        unticked.push_back(caption);
        return builder.scene_2d(caption);
    }
};

} // namespace vs::project_resave
