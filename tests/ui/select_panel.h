// The selection panel over a loaded project, driven as a host drives it: through what its elements answer.
#pragma once

#include <algorithm>

#include "reference_host/api/handles.h"
#include "reference_host/toolkit/element_view.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"
#include "ui/select_element.h"

namespace vs::project_resave {

class select_panel : public host_fixture {
protected:
    using element_view = vestra::toolkit::element_view;
    using row_view = vestra::toolkit::row_view;
    using path = std::vector<size_t>; // of a row: its place below its parent, from the top down

    select_panel() {
        refill_ = context->project_changed_event().connect([this] { fill(); });
    }

    // Loads the builder's project as it is now.
    void open() {
        builder.save(source);
        load();
    }
    vestra::project& project() { return *vestra::api::to_model(context->project_handle()); }
    // Fills the panel again, after a change to the loaded project that no file could hold.
    void fill() {
        script.events.clear();
        panel.set_project(nullptr);
        if (vs_prj* handle = context->project_handle()) panel.set_project(handle);
    }

    element_view page(size_t index) {
        return vestra::toolkit::find(vestra::toolkit::look_at(panel), u"tab_layout")->children.at(index);
    }
    // The outline or the tool bar of a view.
    element_view part(uint32_t view, wide_view kind) {
        using vestra::toolkit::find;
        if (view == views::everything) return *find(vestra::toolkit::look_at(panel), kind);
        const bool has_halves = view <= views::scenes_3d;
        const element_view content = page(has_halves ? (view - 1) / 2 : view - 3).children.at(0);
        return *find(has_halves ? content.children.at(view % 2) : content, kind);
    }
    element_view outline(uint32_t view) { return part(view, u"outline"); }
    static const row_view& row(const element_view& outline, const path& place) {
        const std::vector<row_view>* rows = &outline.rows;
        for (size_t depth = 0; depth + 1 < place.size(); ++depth) rows = &rows->at(place[depth]).rows;
        return rows->at(place.back());
    }
    // All rows of a view, a line each.
    std::string rows(uint32_t view) {
        std::string out;
        describe_rows(out, outline(view).rows, "");
        return out;
    }
    // Only the marks, from top to bottom: "x" on, "." off, "-" mixed.
    std::string marks(uint32_t view) {
        std::string out;
        append_marks(outline(view).rows, out);
        return out;
    }

    void check(uint32_t view, const path& place, bool on) {
        const element_view shown = outline(view);
        EXPECT_TRUE(vestra::toolkit::check_row(shown, row(shown, place), on));
    }
    void highlight(uint32_t view, const path& place, bool on = true) {
        const element_view shown = outline(view);
        EXPECT_TRUE(vestra::toolkit::highlight_row(shown, row(shown, place), on));
    }
    // By the word in the tool's id; false if the view has no such tool, or it is not enabled.
    bool press(uint32_t view, const wide_string& word) {
        const element_view bar = part(view, u"toolbar");
        const auto tool =
            std::ranges::find(bar.children, u"vs_resave_project_" + word + u"_tool", &element_view::id);
        return tool != bar.children.end() && vestra::toolkit::click_tool(*tool);
    }
    bool is_selected(const wide_string& caption) {
        return context->selection.is_selected(builder.id(caption));
    }

    project_builder builder;
    select_element panel{*context};

private:
    static void append_marks(const std::vector<row_view>& rows, std::string& out) {
        for (const row_view& each : rows) {
            out += " .x-"[static_cast<size_t>(each.check)];
            append_marks(each.rows, out);
        }
    }

    std::shared_ptr<void> refill_;
};

} // namespace vs::project_resave
