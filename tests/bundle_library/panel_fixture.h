// The bundle's window as a host opens it: the library is loaded by its name, the tool is found in the
// registry, and the test uses only its tables. The project_context of the base class belongs to the linked-in
// copy, which a test can compare with the library.
#pragma once

#include "platform/library.h"
#include "reference_host/toolkit/app_window.h"
#include "reference_host/toolkit/element_description.h"
#include "tests/support/builder_run.h"

namespace vs::project_resave {

class panel : public host_fixture {
protected:
    using element_view = vestra::toolkit::element_view;
    using row_view = vestra::toolkit::row_view;
    using mark = vestra::toolkit::mark;

    panel()
        : runner([this](const element_view& shown) { return on_panel_dialog ? on_panel_dialog(shown) : 0; }) {
        const auto error = loader.load(platform::installed_library(u"vsk_project_resave_bdl"));
        EXPECT_FALSE(error) << platform::to_utf8(error->reason);
        registry.start_clients();
        connections.emplace(runner);
    }
    ~panel() override {
        window.reset();
        connections.reset();
        loader.unload_all();
    }

    void open() {
        window.emplace(u"vestra/app/project_resave_app");
        ASSERT_TRUE(window->is_open());
    }
    void close() { window.reset(); }
    // Opens the window with a project, through the source field.
    void open_on(const wide_string& path) {
        open();
        ASSERT_TRUE(enter("field1", path));
    }
    void open_on_sample() {
        copy_sample();
        open_on(source);
    }

    // Returns the element with this name in its current state; valid until the next look.
    const element_view& at(const std::string& name) {
        view = window->look();
        const auto found = vestra::toolkit::all_named(view, name);
        EXPECT_EQ(1U, found.size()) << name;
        static const element_view nothing;
        return found.empty() ? nothing : *found[0];
    }
    wide_string text(const std::string& name) { return at(name).text; }
    bool is_checked(const std::string& name) { return at(name).check == mark::on; }

    bool enter(const std::string& name, const wide_string& entered) {
        return vestra::toolkit::enter_text(at(name), entered);
    }
    bool check(const std::string& name, bool on = true) { return vestra::toolkit::set_check(at(name), on); }
    bool press(const std::string& button) { return vestra::toolkit::click(at(button)); }
    // Switches to the page of the structure (1) or of scene files (2).
    void turn_to(uint32_t page) {
        view = window->look();
        ASSERT_TRUE(vestra::toolkit::choose(*vestra::toolkit::find(view, u"tab_layout"), page));
    }
    // Presses a button below the window. Returns true if the window is to close.
    bool press_below(int32_t code) {
        view = window->look();
        return vestra::toolkit::press(*vestra::toolkit::find(view, u"button_box"), code);
    }
    // Starts the operation; discards what the front end recorded before.
    void run() {
        script.events.clear();
        EXPECT_FALSE(press_below(2)) << "the window stays";
    }

    // Returns the rows of an outline, without those below other rows.
    texts rows(const std::string& outline) {
        texts all;
        for (const row_view& each : at(outline).rows) all.push_back(each.text);
        return all;
    }
    // Checks a row by its numbers and captions: "scn2d/list1/2".
    bool check_row(const std::string& path, bool on) {
        view = window->look();
        const element_view* outline = nullptr;
        const row_view* row = vestra::toolkit::find_row(view, path, outline);
        return row && vestra::toolkit::check_row(*outline, *row, on);
    }

    const texts all_scenes{u"Overview", u"Geology", u"Section 1", u"Empty scene"}; // of the sample
    const wide_string same_name = u"You can't resave a project with the same name.";

    // Answers a dialog of the library with the code that closes it; 0 for cancel.
    std::function<int32_t(const element_view&)> on_panel_dialog;
    vestra::shell::service_registry registry; // the current one, in place of the base class's
    vestra::shell::bundle_loader loader{registry};
    vestra::toolkit::scripted_dialog_runner runner;
    std::optional<vestra::toolkit::dialog_connections> connections;
    std::optional<vestra::toolkit::app_window> window;
    element_view view;
};

} // namespace vs::project_resave
