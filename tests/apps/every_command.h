// Runs everything that a user can start on one project, and checks that no source file changes its name,
// bytes or time.
#pragma once

#include "tests/apps/command_run.h"

namespace vs::project_resave {

class every_command : public command_run {
protected:
    // The new project is written next to the old one, into `inside`, a folder among its data, and elsewhere.
    void run_all(const wide_string& inside) {
        before_ = all_drives();
        for (const wide_string& folder : {wide_string(u"C:\\prj\\"), inside, wide_string(u"N:\\out\\")}) {
            place_ = platform::to_utf8(folder);
            run_commands();
            run_panel();
            for (const structure folders :
                 {by_type, from_common_top, from_project_folder, project_tree_else_type, folder_per_scene})
                for (const size_t poll : {0U, 5U}) resave_here(folder, folders, poll);
        }
    }

    // Runs the program with `arguments`.
    void expect_source_kept_by(const std::string& arguments) {
        const int code = command(arguments);
        EXPECT_TRUE(code == 0 || code == 1 || (code == 3 && is_told("belongs to the source project")))
            << arguments << code << err;
        expect_source_kept(arguments);
    }

private:
    void run_commands() {
        const std::string project = "'C:\\prj\\area._vp' ", place = project + "'" + place_;
        const std::string folder = place.substr(0, place.size() - 1) + "'";
        for (const std::string& words :
             {"list --json " + project, "verify " + project, "check-case " + place + "case.txt'",
              "structure --layers --tables --columns --layouts --legends --legend-columns --paths " + place +
                  "area.txt'",
              "scenes --if-exists new-name " + folder, "scenes --if-exists rewrite " + folder,
              "resave --dry-run " + place + "new._vp'"})
            expect_source_kept_by(words);
        const std::string all =
            " --log --load-log --scene-files --layer-files --delete-lost --verify --json ";
        for (std::string words : {"resave ", "resave --structure from-common-top --lowercase --overwrite "})
            expect_source_kept_by(words.append(all).append(place).append("new._vp'"));
    }

    void run_panel() {
        std::string lines;
        for (char box = '3'; box <= '7'; ++box) lines += std::string("check prj/check") + box + '\n';
        lines += "set prj/field1 " + place_ + "panel._vp\nrun\nyes\n"; // it is loaded again
        lines += "tab struct\n";
        for (char box = '1'; box <= '7'; ++box) lines += std::string("check struct/check") + box + '\n';
        lines += "set struct/field1 " + place_ + "panel.txt\nrun\n";
        lines += "tab scns_xml\nset scns_xml/field1 " + place_ + "\ncheck scns_xml/radio2\nrun\nquit\n";
        session("panel 'C:\\prj\\area._vp'", lines);
        for (const char* made : {"panel._vp", "panel.txt"})
            EXPECT_NE("", read(platform::from_utf8(place_ + made))) << place_ << out;
        expect_source_kept("panel " + place_);
    }

    // Stops at this poll; 0 for never. A stop erases everything that the run made.
    void resave_here(const wide_string& folder, structure folders, size_t poll) {
        output = folder + u"here._vp";
        settings = {};
        settings.structure_variant = folders;
        settings.save_scene_files = settings.save_layer_files = settings.write_log = true;
        settings.delete_lost_sources = true;
        ASSERT_TRUE(context->load_project(source, false, poll == 0));
        script.stop_at_poll = poll;
        if (poll != 0) script.answers = {answer::yes, answer::no};
        resave();
        const std::string what = place_ + std::to_string(folders) + " stopped " + std::to_string(poll);
        EXPECT_EQ(poll == 0, context->report.saved) << what;
        EXPECT_EQ("", poll == 0 ? "" : difference(before_, all_drives())) << what;
        expect_source_kept(what);
    }

    // Removes the new files.
    void expect_source_kept(const std::string& what) {
        std::istringstream lines(difference(before_, all_drives()));
        for (std::string line; std::getline(lines, line);) {
            EXPECT_TRUE(line.starts_with("new: ")) << line << " by " << what;
            if (!line.starts_with("new: ")) continue;
            remove_tree(platform::from_utf8(line.substr(5)));
        }
    }

    tree_state before_;
    std::string place_;
};

} // namespace vs::project_resave
