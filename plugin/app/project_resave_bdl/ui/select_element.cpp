// The selection panel: pages for each kind of element, and the size of what is selected.

#include "ui/select_element.h"

#include <charconv>

#include "framework/resources/strings.h"
#include "host/vsk_basic.h"
#include "operations/project_context.h"

namespace vs::project_resave::detail {

entities_pane::entities_pane(entities_model& model, uint32_t view)
    : tools(model, view), outline(model, view) {
    layout.place(0, 0, tools);
    layout.place(1, 0, outline);
    layout.set_spare_row(1);
}

} // namespace vs::project_resave::detail

namespace vs::project_resave {

using detail::scene_tab;
using detail::table_tab;

namespace {

// Returns the text that printf's "%.15lg" gives, independent of the locale.
wide_string number_text(double number) {
    char digits[32];
    const auto end =
        std::to_chars(std::begin(digits), std::end(digits), number, std::chars_format::general, 15);
    return {digits, end.ptr};
}

} // namespace

select_element::select_element(project_context& owner)
    : docker_base({}), model(owner), sizes_(owner.size_register()), common_tools_(model, views::everything),
      size_label_(load_string(text::selected_size), u" 0 ", load_string(text::kbyte)),
      group_(2, 1, load_string(text::selection_heading)) {
    top_row_.place(0, 0, common_tools_);
    top_row_.place(0, 1, size_label_);
    add_pages();
    group_.place(0, 0, top_row_);
    group_.place(1, 0, tabs_);
    group_.set_spare_row(1);
    outer_.place(0, 0, group_);
    // Last, since the label must exist. The register outlives this element, so the destructor ends the
    // connection.
    sizes_.set_on_changed([this] { update_size_label(); });
}

select_element::~select_element() { sizes_.set_on_changed({}); }

void select_element::add_pages() {
    struct page_row {
        const char16_t* id;
        text::row title;
        uint32_t view;
        uint32_t layers_view; // 0 for a page with one part
    };
    constexpr page_row rows[] = {
        {u"project_resave_select_tab_scn2d", text::scenes_2d_page, views::scenes_2d, views::layers_2d},
        {u"project_resave_select_tab_scn3d", text::scenes_3d_page, views::scenes_3d, views::layers_3d},
        {u"project_resave_select_tab_dbf", text::dbf_tables_page, views::dbf_tables, 0},
        {u"project_resave_select_tab_tos", text::tos_tables_page, views::tos_tables, 0},
        {u"project_resave_select_tab_layout", text::layouts_page, views::layouts, 0},
        {u"project_resave_select_tab_well", text::wells_page, views::wells, 0},
        {u"project_resave_select_tab_correlation", text::correlations_page, views::correlations, 0},
        {u"project_resave_select_tab_plugin", text::others_page, views::others, 0},
    };
    for (size_t index = 0; index < pages_.size(); ++index) {
        const page_row& row = rows[index];
        // Ids belong to programs and never change; titles follow the language.
        const wide_string title = load_string(row.title);
        if (row.layers_view)
            pages_[index] = std::make_unique<scene_tab>(model, row.view, row.layers_view, title);
        else
            pages_[index] = std::make_unique<table_tab>(model, row.view, title);
        tabs_.add(row.id, title, *pages_[index]);
    }
}

void select_element::set_project(vs_prj* project) {
    constexpr uint32_t model_tabs[] = {1, 3, 4, 5, 6, 7, 8, 9}; // the pages, as the model numbers them
    model.set_project(project);
    for (uint32_t index = 0; index < pages_.size(); ++index) {
        pages_[index]->refresh();
        tabs_.set_enabled(index, !project || !model.is_view_empty(model_tabs[index]));
    }
    update_size_label();
}

void select_element::update_size_label() {
    constexpr double step = 1024.0;
    double size = sizes_.total_kb();
    text::row unit = text::kbyte;
    for (const text::row larger : {text::mbyte, text::gbyte}) {
        if (size < step) break;
        size /= step;
        unit = larger;
    }
    size_label_.set_value(u' ' + number_text(vs_round_dbl(size, 2)) + u' ');
    size_label_.set_unit(load_string(unit));
}

} // namespace vs::project_resave
