// A copy of the published tables of host/toolkit/; see framework/border/pinned.h. If this source does not
// compile, restore the interface: hosts and bundles that are in use have been built with these lists.
#include "framework/border/pinned.h"
#include "host/toolkit/button.h"
#include "host/toolkit/button_box.h"
#include "host/toolkit/checkbox.h"
#include "host/toolkit/custom_app_service.h"
#include "host/toolkit/docker.h"
#include "host/toolkit/dropdownex.h"
#include "host/toolkit/element.h"
#include "host/toolkit/file_input.h"
#include "host/toolkit/grid_layout.h"
#include "host/toolkit/grid_span_layout.h"
#include "host/toolkit/groupbox.h"
#include "host/toolkit/groupbox_span.h"
#include "host/toolkit/label.h"
#include "host/toolkit/label_ex.h"
#include "host/toolkit/modal_dialog.h"
#include "host/toolkit/multiline_output.h"
#include "host/toolkit/outline.h"
#include "host/toolkit/output.h"
#include "host/toolkit/radiobutton.h"
#include "host/toolkit/run_record.h"
#include "host/toolkit/split_layout.h"
#include "host/toolkit/stack_layout.h"
#include "host/toolkit/tab_layout.h"
#include "host/toolkit/tool.h"
#include "host/toolkit/toolbar.h"

namespace vs::project_resave::pinned {

// One slot per line.
// clang-format off

template struct table<button_impl, "vs_button_interface_1",
    slot<void(to<string_visitor_impl>), &button_impl::caption>,
    slot<void(to<string_visitor_impl>), &button_impl::hint>,
    slot<void(), &button_impl::click>>;

template struct table<button_box_impl, "vs_button_box_interface_1",
    slot<uint32_t(), &button_box_impl::entry_count>,
    slot<void(uint32_t, to<string_visitor_impl>), &button_box_impl::entry_text>,
    slot<int32_t(uint32_t), &button_box_impl::entry_code>,
    slot<bool(int32_t), &button_box_impl::click>>;

template struct table<checkbox_impl, "vs_checkbox_interface_1",
    slot<void(to<string_visitor_impl>), &checkbox_impl::caption>,
    slot<checkbox_state(), &checkbox_impl::state>,
    slot<void(checkbox_state), &checkbox_impl::state_entered>>;

template struct table<main_element_visitor_impl, "vs_main_element_visitor_interface_1",
    slot<void(const char16_t*, to<docker_impl>), &main_element_visitor_impl::visit>>;

template struct table<custom_app_service_impl, "vs_custom_app_service_interface_79",
    slot<void(to<main_element_visitor_impl>), &custom_app_service_impl::hand_over_main_element>,
    slot<to<element_impl>(), &custom_app_service_impl::button_box>>;

template struct table<custom_app_service_visitor_impl, "vs_custom_app_service_visitor_interface_79",
    slot<void(to<custom_app_service_impl>), &custom_app_service_visitor_impl::visit>>;

template struct table<docker_impl, "vs_docker_interface_1",
    slot<void(to<string_visitor_impl>), &docker_impl::title>,
    slot<void(to<string_visitor_impl>), &docker_impl::description>,
    slot<to<element_impl>(), &docker_impl::main_element>,
    slot<to<element_impl>(), &docker_impl::buttons>,
    slot<void(to<interface_impl>), &docker_impl::set_parent>>;

template struct table<dropdownex_impl, "vs_dropdownex_interface_1",
    slot<void(to<string_visitor_impl>), &dropdownex_impl::label>,
    slot<uint32_t(), &dropdownex_impl::row_count>,
    slot<void(uint32_t, to<string_visitor_impl>), &dropdownex_impl::row_text>,
    slot<uint32_t(), &dropdownex_impl::current_row>,
    slot<void(uint32_t), &dropdownex_impl::row_chosen>>;

template struct table<element_observer_impl, "vs_element_observer_interface_1",
    slot<void(to<element_impl>), &element_observer_impl::on_changed>>;

template struct table<element_impl, "vs_element_interface_1",
    slot<void(to<string_visitor_impl>), &element_impl::kind>,
    slot<bool(), &element_impl::enabled>,
    slot<bool(), &element_impl::visible>,
    slot<void(to<element_observer_impl>), &element_impl::set_observer>>;

template struct table<file_input_impl, "vs_file_input_interface_1",
    slot<file_input_mode(), &file_input_impl::mode>,
    slot<void(to<string_visitor_impl>), &file_input_impl::filter>,
    slot<void(to<string_visitor_impl>), &file_input_impl::button_caption>,
    slot<void(to<string_visitor_impl>), &file_input_impl::text>,
    slot<bool(const char16_t*), &file_input_impl::text_entered>>;

template struct table<grid_layout_impl, "vs_grid_layout_interface_1",
    slot<uint32_t(), &grid_layout_impl::rows>,
    slot<uint32_t(), &grid_layout_impl::columns>,
    slot<to<element_impl>(uint32_t, uint32_t), &grid_layout_impl::child>,
    slot<uint32_t(), &grid_layout_impl::spare_row>>;

template struct table<grid_span_layout_impl, "vs_grid_span_layout_interface_1",
    slot<uint32_t(uint32_t, uint32_t), &grid_span_layout_impl::column_span>>;

template struct table<groupbox_impl, "vs_groupbox_interface_1",
    slot<void(to<string_visitor_impl>), &groupbox_impl::caption>>;

// Without slots: its name alone tells a host that cells of the frame can span columns.
template struct table<groupbox_span_impl, "vs_groupbox_span_interface_1">;

template struct table<label_impl, "vs_label_interface_1",
    slot<void(to<string_visitor_impl>), &label_impl::text>>;

template struct table<label_ex_impl, "vs_label_ex_interface_1",
    slot<void(to<string_visitor_impl>), &label_ex_impl::caption>,
    slot<void(to<string_visitor_impl>), &label_ex_impl::value>,
    slot<void(to<string_visitor_impl>), &label_ex_impl::unit>>;

template struct table<dialog_runner_impl, "vs_dialog_runner_interface_1",
    slot<int32_t(to<docker_impl>), &dialog_runner_impl::run>>;

template struct table<modal_dialog_impl, "vs_modal_dialog_interface_1",
    slot<void(to<string_visitor_impl>), &modal_dialog_impl::identity_text>,
    slot<void(to<dialog_runner_impl>), &modal_dialog_impl::set_runner>>;

template struct table<modal_dialog_service_impl, "vs_modal_dialog_service_interface_102",
    slot<to<modal_dialog_impl>(), &modal_dialog_service_impl::dialog>>;

template struct table<modal_dialog_service_visitor_impl, "vs_modal_dialog_service_visitor_interface_102",
    slot<void(to<modal_dialog_service_impl>), &modal_dialog_service_visitor_impl::visit>>;

template struct table<multiline_output_impl, "vs_multiline_output_interface_1",
    slot<void(to<string_visitor_impl>), &multiline_output_impl::text>,
    slot<uint32_t(), &multiline_output_impl::width>,
    slot<uint32_t(), &multiline_output_impl::height>>;

template struct table<outline_events_impl, "vs_outline_events_interface_1",
    slot<void(), &outline_events_impl::reset_rows>,
    slot<void(), &outline_events_impl::reset_columns>,
    slot<void(), &outline_events_impl::reset_images>>;

template struct table<outline_column_impl, "vs_outline_column_interface_1",
    slot<void(to<string_visitor_impl>), &outline_column_impl::id>,
    slot<void(to<string_visitor_impl>), &outline_column_impl::header>,
    slot<void(outline_row*, to<string_visitor_impl>), &outline_column_impl::text>,
    slot<uint32_t(), &outline_column_impl::width>,
    slot<bool(outline_row*), &outline_column_impl::invalid>,
    slot<bool(outline_row*), &outline_column_impl::highlighted>>;

template struct table<outline_checks_impl, "vs_outline_checks_interface_1",
    slot<bool(outline_row*), &outline_checks_impl::mixed>,
    slot<bool(outline_row*), &outline_checks_impl::checked>,
    slot<void(outline_row*, bool), &outline_checks_impl::click>>;

template struct table<outline_bool_column_impl, "vs_outline_bool_column_interface_1",
    slot<void(to<masked_bitmap_visitor_impl>), &outline_bool_column_impl::image>,
    slot<void(to<masked_bitmap_visitor_impl>), &outline_bool_column_impl::header_image>,
    slot<void(), &outline_bool_column_impl::click_header>>;

template struct table<outline_impl, "vs_outline_interface_1",
    slot<uint32_t(outline_row*), &outline_impl::child_count>,
    slot<outline_row*(outline_row*, uint32_t), &outline_impl::child>,
    slot<bool(outline_row*), &outline_impl::has_children>,
    slot<bool(outline_row*), &outline_impl::expanded>,
    slot<void(outline_row*, bool), &outline_impl::set_expanded>,
    slot<bool(outline_row*), &outline_impl::highlighted>,
    slot<void(outline_row*, bool), &outline_impl::set_highlighted>,
    slot<void(outline_row*, outline_row*), &outline_impl::highlight_added>,
    slot<void(outline_row*), &outline_impl::current_changed>,
    slot<uint32_t(), &outline_impl::image_count>,
    slot<void(int32_t, to<masked_bitmap_visitor_impl>), &outline_impl::image>,
    slot<int32_t(outline_row*), &outline_impl::image_index>,
    slot<to<outline_column_impl>(), &outline_impl::name_column>,
    slot<to<outline_checks_impl>(), &outline_impl::checks>,
    slot<void(to<outline_events_impl>), &outline_impl::set_events>>;

template struct table<output_impl, "vs_output_interface_1",
    slot<void(to<string_visitor_impl>), &output_impl::text>>;

template struct table<radiobutton_impl, "vs_radiobutton_interface_1",
    slot<void(to<string_visitor_impl>), &radiobutton_impl::caption>,
    slot<bool(), &radiobutton_impl::checked>,
    slot<void(), &radiobutton_impl::pressed>>;

template struct table<run_record_impl, "vs_run_record_interface_1",
    slot<uint32_t(), &run_record_impl::run_count>,
    slot<recorded_end(), &run_record_impl::last_end>,
    slot<void(to<run_record_visitor_impl>), &run_record_impl::pass_settings>,
    slot<void(to<run_record_visitor_impl>), &run_record_impl::pass_last_run>,
    slot<void(to<transfer_observer_impl>), &run_record_impl::set_transfer_observer>,
    slot<void(const char16_t* const*, uint32_t), &run_record_impl::leave_out>>;

// New kinds of facts need no new slot: visit_fact passes their number.
template struct table<run_record_visitor_impl, "vs_run_record_visitor_interface_1",
    slot<void(const char16_t*, const char16_t*, double), &run_record_visitor_impl::visit_paths>,
    slot<void(const char*, uint32_t), &run_record_visitor_impl::visit_choice>,
    slot<void(const char16_t*), &run_record_visitor_impl::visit_left_out>,
    slot<void(const char16_t*, const char16_t*), &run_record_visitor_impl::visit_placed>,
    slot<void(const char16_t*, const char16_t*), &run_record_visitor_impl::visit_made>,
    slot<void(uint32_t, const char16_t*, const char16_t*, const char16_t*),
        &run_record_visitor_impl::visit_fact>,
    slot<void(const char16_t*, const char16_t*, const char16_t*, const char16_t*),
        &run_record_visitor_impl::visit_element>>;

template struct table<split_layout_impl, "vs_split_layout_interface_1",
    slot<to<element_impl>(), &split_layout_impl::top>,
    slot<to<element_impl>(), &split_layout_impl::bottom>>;

template struct table<stack_layout_impl, "vs_stack_layout_interface_1",
    slot<uint32_t(), &stack_layout_impl::child_count>,
    slot<to<element_impl>(uint32_t), &stack_layout_impl::child>>;

template struct table<tab_layout_impl, "vs_tab_layout_interface_1",
    slot<uint32_t(), &tab_layout_impl::page_count>,
    slot<void(uint32_t, to<string_visitor_impl>), &tab_layout_impl::page_id>,
    slot<void(uint32_t, to<string_visitor_impl>), &tab_layout_impl::page_title>,
    slot<to<docker_impl>(uint32_t), &tab_layout_impl::page>,
    slot<bool(uint32_t), &tab_layout_impl::page_enabled>,
    slot<uint32_t(), &tab_layout_impl::active_page>,
    slot<void(uint32_t), &tab_layout_impl::page_chosen>>;

template struct table<tool_impl, "vs_tool_interface_1",
    slot<void(to<string_visitor_impl>), &tool_impl::id>,
    slot<void(to<string_visitor_impl>), &tool_impl::caption>,
    slot<void(to<string_visitor_impl>), &tool_impl::hint>,
    slot<void(to<masked_bitmap_visitor_impl>), &tool_impl::image>,
    slot<void(), &tool_impl::click>>;

template struct table<toolbar_impl, "vs_toolbar_interface_1",
    slot<uint32_t(), &toolbar_impl::tool_count>,
    slot<to<element_impl>(uint32_t), &toolbar_impl::tool>>;

template struct table<transfer_observer_impl, "vs_transfer_observer_interface_1",
    slot<void(uint64_t), &transfer_observer_impl::on_moved>>;

// clang-format on

// Enumerators that cross the tables as plain numbers.
static_assert(number<recorded_end::none, uint32_t{0}>);
static_assert(number<recorded_end::saved, uint32_t{1}>);
static_assert(number<recorded_end::not_saved, uint32_t{2}>);
static_assert(number<recorded_end::stopped, uint32_t{3}>);
// Not the numbers of vs_three_state.
static_assert(number<checkbox_state::unchecked, uint32_t{0}>);
static_assert(number<checkbox_state::checked, uint32_t{2}>);
static_assert(number<file_input_mode::source_project, uint32_t{0}>);
static_assert(number<file_input_mode::text_file, uint32_t{1}>);
static_assert(number<file_input_mode::new_file, uint32_t{2}>);
static_assert(number<file_input_mode::folder, uint32_t{3}>);

} // namespace vs::project_resave::pinned
