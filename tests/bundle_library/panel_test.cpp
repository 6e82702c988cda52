// The main panel through the library's tables: what is loaded and when, what is refused, and how it closes.
#include "framework/bundle_entry.h"
#include "platform/forwarding_system.h"
#include "reference_host/model/counted.h"
#include "tests/bundle_library/panel_fixture.h"
#include "ui/project_resave_app.h"

namespace vs::project_resave {
namespace {

// A project that is open in the host for the lifetime of the object.
struct opened {
    explicit opened(wide_view file) {
        project.file = file;
        vestra::shell::settings().open_project = &project;
    }
    ~opened() { vestra::shell::settings().open_project = nullptr; }
    vestra::project project;
};

TEST_F(panel, load_current_reads_a_copy_and_never_changes_the_host_project) {
    copy_sample();
    const opened in_host(source);
    const tree_state files = state_of(native("c"));
    open();
    EXPECT_EQ(u"", text("field1")) << "nothing is loaded by itself";
    ASSERT_TRUE(check("prj/check7"));
    // Loads even if the path of the new project is the same, but never overwrites it.
    for (const wide_view same : {u"c:\\PRJ\\Area._VP", u"C:/prj/sub/../AREA._vp"}) {
        ASSERT_TRUE(enter("prj/field1", wide_string(same)));
        ASSERT_TRUE(press("button1"));
        EXPECT_EQ(source, text("field1"));
        EXPECT_EQ(4U, rows("scn2d/list1").size());
        run();
        EXPECT_EQ((events{{kind::warning, same_name}}), script.events);
    }
    EXPECT_EQ(0U, in_host.project.scenes_2d.count());
    EXPECT_EQ("new: prj/area_last_resave_open_log.txt\n", difference(files, state_of(native("c"))));
}

TEST_F(panel, a_closed_window_unloads_the_project_and_keeps_its_options) {
    const size_t before = vestra::living_objects();
    open_on_sample();
    ASSERT_TRUE(enter("prj/field1", output));
    ASSERT_TRUE(check("prj/check2", false));
    ASSERT_TRUE(check_row("scn2d/list1/2", false));
    ASSERT_LT(before + 1, vestra::living_objects());
    close();
    EXPECT_EQ(before, vestra::living_objects());
    open();
    EXPECT_EQ(u"", text("field1"));
    EXPECT_EQ(texts{}, rows("scn2d/list1"));
    EXPECT_EQ(output, text("prj/field1"));
    EXPECT_FALSE(is_checked("prj/check2"));
    ASSERT_TRUE(enter("field1", source));
    EXPECT_EQ(all_scenes, rows("scn2d/list1"));

    // A loaded project is closed when the library is unloaded, with or without a window.
    close();
    ASSERT_TRUE(vestra::toolkit::enter_text(*vestra::toolkit::find(view, u"file_input"), source));
    loader.unload_all();
    EXPECT_EQ(before, vestra::living_objects());
}

// The tool of the linked-in copy, whose code stays loaded and whose system a test can break.
struct linked_in_tool {
    using app = project_resave_app;
    linked_in_tool() { registry.add(app::id, pointer_to<service_factory_impl>(*factory), {}); }

    vestra::shell::service_registry registry;
    std::optional<service_factory<app>> factory{
        std::in_place, app::id, std::make_unique<ref_service_holder<app, custom_app_service_impl>>()};
};

TEST_F(panel, content_held_longer_than_the_tool_is_an_empty_working_panel) {
    copy_sample();
    const size_t before = vestra::living_objects();
    ref<docker_impl> content;
    {
        linked_in_tool tool;
        open_on(source);
        content.assign(cast_to<docker_impl>(window->look().live));
        tool.factory.reset();
        close();
    }
    EXPECT_EQ(before, vestra::living_objects());
    const element_view left = vestra::toolkit::look_at(cast_to<element_impl>(content.get()));
    EXPECT_TRUE(vestra::toolkit::enter_text(*vestra::toolkit::find(left, u"file_input"), source));
    content.reset();
    EXPECT_EQ(before, vestra::living_objects());
}

TEST_F(panel, a_failed_run_closes_the_project_and_reports_nothing_saved) {
    struct no_memory : forwarding_system {
        platform::entry_status status_of(const wide_string&) override { throw std::bad_alloc(); }
    };
    copy_sample();
    linked_in_tool tool;
    open_on(source);
    turn_to(2);
    ASSERT_TRUE(enter("scns_xml/field1", u"N:\\out"));
    {
        no_memory faults;
        const platform::system_override in_force(faults);
        run();
    }
    EXPECT_EQ(texts{u"Error! The project is not saved!"}, errors());
    EXPECT_EQ(u"", text("field1"));
    EXPECT_EQ(texts{}, rows("scn2d/list1"));
    EXPECT_TRUE(enter("field1", source)) << "the panel goes on";
    close();
}

// A conflict asks for another name in the middle of the run, while the user still has the window.
TEST_F(panel, while_a_run_waits_nothing_begins_and_closing_is_delayed) {
    project_builder built;
    built.scene_2d(u"Area").layer("rtr_lr2d", u"East", write(u"C:\\a\\relief.tif"));
    built.layer("rtr_lr2d", u"West", write(u"C:\\b\\relief.tif")).save(source);
    const opened in_host(u"C:\\prj\\other._vp");
    for (const bool closes : {false, true}) {
        open_on(source);
        ASSERT_TRUE(enter("prj/field1", output));
        ASSERT_TRUE(check("prj/check2", false));
        const ref<docker_impl> content(cast_to<docker_impl>(window->look().live));
        on_panel_dialog = [&](const element_view& dialog) {
            EXPECT_FALSE(press_below(2));
            EXPECT_FALSE(enter("field1", source));
            EXPECT_TRUE(press("button1")) << "it can be pressed, and does nothing";
            EXPECT_EQ(source, text("field1"));
            if (closes) call<&docker_impl::set_parent>(content.get(), identity_pointer());
            EXPECT_EQ(2U, rows("scn2d/list2").size()) << "the run still needs them";
            return vestra::toolkit::enter_text(*vestra::toolkit::find(dialog, u"file_input"),
                                               u"N:\\out\\rtr\\west.tif");
        };
        script.answers = {answer::yes}; // load the source again
        run();
        EXPECT_EQ((std::vector<std::string>{"rtr/relief.tif", "rtr/west.tif"}), files());
        EXPECT_EQ(closes ? u"" : source, text("field1")) << "a window that went keeps no project";
        EXPECT_EQ(closes ? 0U : 2U, rows("scn2d/list2").size());
        close();
        clear_output();
    }
}

} // namespace
} // namespace vs::project_resave
