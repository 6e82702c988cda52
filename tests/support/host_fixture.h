// The host with the bundle in it, for tests of whole runs: empty drives, a front end that answers from a
// script, dialogs that a function plays, and one project_context. At the end of each test nothing of the host
// is left: no window, no object.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "reference_host/model/project.h"
#include "reference_host/shell/bundle_loader.h"
#include "reference_host/toolkit/dialog_runners.h"
#include "tests/support/scripted_front_end.h"
#include "tests/support/test_drives.h"
#include "tests/support/tree_state.h"
#include "ui/host_questions.h"

namespace vs::project_resave {

class host_fixture : public testing::Test {
protected:
    using front = vestra::shell::scripted_front_end;
    using kind = front::kind;
    using events = std::vector<front::event>;
    using answer = vestra::shell::answer;
    using dialog_view = vestra::toolkit::element_view;

    host_fixture();
    ~host_fixture() override;

    // Puts the sample project with its data on C: and D:.
    void copy_sample();

    // Writes a file with the folders it needs, past the bundle's own file calls; answers its path.
    static wide_string write(const wide_string& path, std::string_view bytes = "data");
    // Its bytes; empty for a folder and for what is not there.
    static std::string read(const wide_string& path);

    void load() { ASSERT_TRUE(context->load_project(source, false, false)); }
    // Resaves what is loaded; what the front end was told before is forgotten.
    void resave();
    void load_and_resave() {
        load();
        resave();
    }
    // Files of the new folder, in order, with "/", but for the new project.
    std::vector<std::string> files() const;
    // A line for each scene with what is in it, for each sheet and for each table:
    //
    //     Area: Roads=shp\roads.shp+shp\roads.dbf Signs{Signs: Road=s.shp} |Page=p.fmt [a group]
    //     Owners=dbf\owners.dbf>dbf\joined.dbf
    //
    // `folder` is left out of all paths.
    static std::string outline_of(const vestra::project& project, wide_view folder);
    // That of the new project, and of a file of a 2D scene, without the new project's folder.
    std::string outline() const;
    std::string scene_outline(const wide_string& path) const;
    // What came of a run: a line of the files, each with a blank behind it, the outline, and the problems, a
    // line each behind "!".
    std::string outcome() const;
    // What C: and D: hold.
    tree_state sources() const;
    // What the front end was told and asked, without the captions of the progress.
    std::vector<front::event> told() const;
    std::vector<wide_string> errors() const { return script.texts(front::kind::error); }
    // How often a text occurs in another.
    static size_t times(const std::string& text, const std::string& in) {
        size_t count = 0;
        for (size_t at = 0; (at = in.find(text, at)) != std::string::npos; at += text.size()) ++count;
        return count;
    }
    // The native root of a drive: "c", "d" or "n".
    std::filesystem::path native(std::string_view drive) const;
    // Empties the folder of the output.
    void clear_output() const;
    // Reads a written project.
    static void read_back(const wide_string& path, vestra::project& into);

    const wide_string c = u"C:\\", n = u"N:\\";
    const wide_string source = u"C:\\prj\\area._vp"; // its folder stands, and that of the output
    wide_string output = u"N:\\out\\new._vp";
    resave_settings settings;
    front script;
    // Answers for a person before a dialog: what to close it with, 0 for cancel.
    std::function<int32_t(const dialog_view&)> on_dialog;
    std::vector<wide_string> dialogs; // captions of those shown

private:
    int32_t play(const dialog_view& shown);

    test_drives drives_;
    vestra::shell::front_end_override script_in_force_;
    vestra::shell::service_registry registry_;
    vestra::shell::bundle_loader bundles_;
    vestra::toolkit::scripted_dialog_runner runner_;
    std::optional<vestra::toolkit::dialog_connections> connections_;

protected:
    host_questions asked;
    resave_services services;
    std::optional<project_context> context;
    std::size_t changes = 0; // of the loaded project, as its observers are told

private:
    std::shared_ptr<void> observer_;
};

} // namespace vs::project_resave
