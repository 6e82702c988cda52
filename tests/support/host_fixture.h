// The host with the bundle for tests of whole runs: empty drives, a front end that answers from a script,
// dialogs answered by a function, and one project_context. Each test ends by checking that no object and no
// window of the host is left.
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

    // Copies the sample project with its data to C: and D:.
    void copy_sample();

    // Writes a file and its folders, bypassing the bundle's file calls. Returns its path.
    static wide_string write(const wide_string& path, std::string_view bytes = "data");
    // Returns the bytes of a file; empty for a folder and for a missing file.
    static std::string read(const wide_string& path);

    void load() { ASSERT_TRUE(context->load_project(source, false, false)); }
    // Resaves the loaded project; discards what the front end recorded before.
    void resave();
    void load_and_resave() {
        load();
        resave();
    }
    // Returns the sorted files of the new folder with "/", without the new project.
    std::vector<std::string> files() const;
    // A line for each scene with what is in it, for each sheet and for each table:
    //
    //     Area: Roads=shp\roads.shp+shp\roads.dbf Signs{Signs: Road=s.shp} |Page=p.fmt [a group]
    //     Owners=dbf\owners.dbf>dbf\joined.dbf
    //
    // `folder` is left out of all paths.
    static std::string outline_of(const vestra::project& project, wide_view folder);
    // Returns the outline of the new project, or of a 2D scene file, without the new project's folder.
    std::string outline() const;
    std::string scene_outline(const wide_string& path) const;
    // Returns the result of a run: a line of the files, each followed by a space, the outline, and a line
    // after "!" for each problem.
    std::string outcome() const;
    // Returns the content of C: and D:.
    tree_state sources() const;
    // Returns what the front end showed and asked, without the captions of the progress.
    std::vector<front::event> told() const;
    std::vector<wide_string> errors() const { return script.texts(front::kind::error); }
    // Returns how often a text occurs in another.
    static size_t times(const std::string& text, const std::string& in) {
        size_t count = 0;
        for (size_t at = 0; (at = in.find(text, at)) != std::string::npos; at += text.size()) ++count;
        return count;
    }
    // Returns the native root of a drive: "c", "d" or "n".
    std::filesystem::path native(std::string_view drive) const;
    // Empties the output folder.
    void clear_output() const;
    // Reads a written project.
    static void read_back(const wide_string& path, vestra::project& into);

    const wide_string c = u"C:\\", n = u"N:\\";
    const wide_string source = u"C:\\prj\\area._vp"; // its folder and the output folder exist
    wide_string output = u"N:\\out\\new._vp";
    resave_settings settings;
    front script;
    // Answers a dialog with the code that closes it; 0 for cancel.
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
    std::size_t changes = 0; // change notifications of the loaded project

private:
    std::shared_ptr<void> observer_;
};

} // namespace vs::project_resave
