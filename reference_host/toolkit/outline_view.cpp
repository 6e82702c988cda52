// Reads the rows of outlines and the tools of tool bars, and sends them the events of a user.
#include "reference_host/toolkit/outline_view.h"

#include "host/toolkit/tool.h"
#include "host/toolkit/toolbar.h"
#include "reference_host/shell/terminal_front_end.h"
#include "reference_host/toolkit/element_description.h"
#include "reference_host/toolkit/told.h"

namespace vestra::toolkit {

using namespace vs::project_resave;

namespace {

// The interface tables of one outline.
struct outline_tables {
    interface_to<outline_impl> outline;
    outline_column names;
    outline_checks checks;
};

mark mark_of(const outline_checks& checks, outline_row* row) {
    if (!checks) return mark::none;
    // Asked first: a mixed row is not checked either.
    if (call<&outline_checks_impl::mixed>(checks, row)) return mark::mixed;
    return call<&outline_checks_impl::checked>(checks, row) ? mark::on : mark::off;
}

std::vector<row_view> rows_below(const outline_tables& asked, outline_row* parent) {
    // Collapsed rows are read, too: a script names them by their numbers.
    if (!call<&outline_impl::has_children>(asked.outline, parent)) return {};
    std::vector<row_view> rows(call<&outline_impl::child_count>(asked.outline, parent));
    for (std::uint32_t index = 0; index < rows.size(); ++index) {
        outline_row* const row = call<&outline_impl::child>(asked.outline, parent, index);
        rows[index] = {told<&outline_column_impl::text>(asked.names, row),
                       mark_of(asked.checks, row),
                       !call<&outline_column_impl::invalid>(asked.names, row),
                       call<&outline_impl::highlighted>(asked.outline, row),
                       call<&outline_impl::expanded>(asked.outline, row),
                       call<&outline_impl::image_index>(asked.outline, row),
                       row,
                       rows_below(asked, row)};
    }
    return rows;
}

bool is_enabled(const element_view& view) { return call<&element_impl::enabled>(view.live); }

} // namespace

void add_outline(element_view& view) {
    const auto outline = cast_to<outline_impl>(view.live);
    if (!outline) return;
    const outline_tables asked{outline, call<&outline_impl::name_column>(outline),
                               call<&outline_impl::checks>(outline)};
    view.caption = told<&outline_column_impl::header>(asked.names);
    view.rows = rows_below(asked, nullptr);
}

void add_toolbar(element_view& view) {
    const auto bar = cast_to<toolbar_impl>(view.live);
    const std::uint32_t count = call<&toolbar_impl::tool_count>(bar);
    for (std::uint32_t index = 0; index < count; ++index)
        view.children.push_back(look_at(call<&toolbar_impl::tool>(bar, index)));
}

void add_tool(element_view& view) {
    const auto tool = cast_to<tool_impl>(view.live);
    if (!tool) return;
    view.id = told<&tool_impl::id>(tool);
    view.caption = told<&tool_impl::caption>(tool);
    view.text = told<&tool_impl::hint>(tool);
}

void describe_rows(std::string& out, const std::vector<row_view>& rows, const std::string& indent,
                   const std::string& path) {
    constexpr const char* marks[] = {"", " [ ]", " [x]", " [-]"};
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const row_view& row = rows[index];
        const std::string row_path = (path.empty() ? path : path + '/') + std::to_string(index + 1);
        out +=
            indent + row_path + marks[static_cast<std::size_t>(row.check)] + ' ' + shell::one_line(row.text);
        if (!row.valid) out += " (" + host_word("invalid") + ')';
        if (row.highlighted) out += " (" + host_word("highlighted") + ')';
        if (!row.expanded) out += " (" + host_word("collapsed") + ')';
        out += '\n';
        describe_rows(out, row.rows, indent + "  ", row_path);
    }
}

bool check_row(const element_view& outline, const row_view& row, bool on) {
    const auto live = cast_to<outline_impl>(outline.live);
    if (!live || !is_enabled(outline)) return false;
    call<&outline_checks_impl::click>(call<&outline_impl::checks>(live), row.reference, on);
    return true;
}

bool highlight_row(const element_view& outline, const row_view& row, bool on) {
    const auto live = cast_to<outline_impl>(outline.live);
    if (!live || !is_enabled(outline)) return false;
    // The calls of a window on a screen, in their order.
    call<&outline_impl::set_highlighted>(live, row.reference, on);
    if (!on) return true;
    call<&outline_impl::highlight_added>(live, row.reference, nullptr);
    call<&outline_impl::current_changed>(live, row.reference);
    return true;
}

bool click_tool(const element_view& tool) {
    const auto live = cast_to<tool_impl>(tool.live);
    if (!live || !is_enabled(tool)) return false;
    call<&tool_impl::click>(live);
    return true;
}

} // namespace vestra::toolkit
