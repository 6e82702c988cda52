// Connects the parts of the main panel: the source field loads, the run button starts the operation of the
// active tab, and the selection follows the loaded project.

#include "ui/settings_element.h"

#include <optional>

#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_prj.h"
#include "operations/project_context.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"

namespace vs::project_resave {

namespace {

// Pages of the tab layout, in their order.
enum page : uint32_t { resave_page, structure_page, scene_files_page };

} // namespace

settings_element::settings_element(const resave_services* services)
    : owned_context_(std::make_unique<project_context>(services, questions_)), context_(*owned_context_),
      host_project_path_(host_string(&vs_prj_get_filename, vs_prj_get_instance())),
      source_label_(load_string(text::select_source_project)),
      source_field_(file_input_mode::source_project, load_string(text::project_file_mask),
                    load_string(text::choose_source_project)),
      load_button_(load_string(text::load_current_project), {}, [this] { load_current(); }), header_(2, 3),
      prj_tab_(source_path_, new_path_), left_column_(2, 1), selection_(context_), main_layout_(1, 2) {
    questions_.run = &context_;
    source_field_.set_validator([this](const wide_string& text) { return load_from_field(text); });
    // A project that was never saved has no path to load.
    load_button_.set_enabled(!path_is_relative(host_project_path_));
    tabs_.add(u"project_resave_tab_save_prj", load_string(text::resave_tab), prj_tab_);
    tabs_.add(u"project_resave_tab_save_struct", load_string(text::structure_tab), struct_tab_);
    tabs_.add(u"project_resave_tab_save_scns_xml", load_string(text::scene_files_tab), scns_xml_tab_);
    lay_out();
    tabs_.set_on_page_changed([this] { on_active_tab_changed(); });
    prj_tab_.set_on_structure_variant_changed([this] { on_active_tab_changed(); });
    project_connection_ = context_.project_changed_event().connect([this] { on_project_changed(); });
    reset_to_defaults();
}

settings_element::~settings_element() = default;

recorded_run settings_element::planned() const {
    resave_settings settings;
    prj_tab_.get_settings(settings);
    recorded_run plan = planned_run(context_, settings);
    if (!context_.project_handle()) plan.source.clear();
    return plan;
}

void settings_element::leave_out(const std::unordered_set<wide_string>& uuids) {
    // A run reads the selection while it goes on.
    if (!running_) selection_.model.untick(uuids);
}

void settings_element::lay_out() {
    header_.place_over(0, 0, 3, source_label_);
    header_.place_over(1, 0, 2, source_field_);
    header_.place(1, 2, load_button_);
    left_column_.place(0, 0, header_);
    left_column_.place(1, 0, tabs_);
    left_column_.set_spare_row(1);
    main_layout_.place(0, 0, left_column_);
    main_layout_.place(0, 1, selection_);
}

void settings_element::reset_to_defaults() {
    prj_tab_.apply_settings({});
    struct_tab_.apply_settings({});
    scns_xml_tab_.select_radio(0);
}

void settings_element::work(int32_t failure, const std::function<void()>& operation) {
    // A message box of the running operation lets the user press other buttons.
    if (running_) return;
    running_ = true;
    bool is_whole = true;
    try {
        operation();
    } catch (...) { // out of memory
        record_caught("panel");
        is_whole = false;
    }
    running_ = false;
    // An operation that broke off may have left the project changed in part.
    if (!is_whole || close_after_work_) context_.close_project();
    close_after_work_ = false;
    if (!is_whole) show_error(failure);
}

bool settings_element::load_from_field(const wide_string& text) {
    bool is_taken = false;
    work(text::failed_to_load_project, [&] {
        if (!new_path_.empty() && platform::compare_no_case(new_path_, text) == 0) {
            warn_same_name();
            return;
        }
        is_taken = context_.load_project(text, true, prj_tab_.open_log_checked());
        if (is_taken) source_path_ = text;
    });
    return is_taken && context_.project_handle();
}

void settings_element::load_current() {
    work(text::failed_to_load_project, [this] {
        source_field_.set_text(host_project_path_);
        // Loaded again from its file: changes that are not saved in the host are not seen.
        if (context_.load_project(host_project_path_, true, prj_tab_.open_log_checked()))
            source_path_ = host_project_path_;
    });
}

void settings_element::on_project_changed() {
    vs_prj* const project = context_.project_handle();
    if (!project) {
        source_field_.set_text({});
        source_path_ = source_field_.text();
    }
    // Elements of the previous project must not be visible while the new one is read.
    selection_.set_project(nullptr);
    if (project) selection_.set_project(project);
}

void settings_element::on_active_tab_changed() {
    if (tabs_.active() == scene_files_page)
        enable_only({views::scenes_2d});
    else if (tabs_.active() == resave_page && prj_tab_.structure_variant() == folder_per_scene)
        enable_only({views::scenes_2d, views::scenes_3d, views::layers_2d, views::layers_3d});
    else
        selection_.model.set_view_enabled(views::everything, true);
    selection_.model.fire_changed(views::everything);
}

void settings_element::enable_only(std::initializer_list<uint32_t> views) {
    selection_.model.set_view_enabled(views::everything, false);
    for (const uint32_t view : views) selection_.model.set_view_enabled(view, true);
}

bool settings_element::run_active_tab() {
    // Kept as users know it: the window stays open after a run.
    work(text::project_not_saved, [this] { run_tab(tabs_.active()); });
    return false;
}

void settings_element::run_tab(uint32_t index) {
    if (index == resave_page) {
        resave();
    } else if (index == structure_page) {
        structure_settings settings;
        struct_tab_.get_settings(settings);
        // Kept as users know it: without a path the button does nothing and shows no message.
        if (*settings.output_path) context_.save_structure(settings);
    } else if (index == scene_files_page) {
        scene_file_settings settings;
        scns_xml_tab_.get_settings(settings);
        if (*settings.folder) context_.create_scene_files(settings);
    } else if (!path_register_tab_.get_path().empty()) {
        context_.check_path_case(path_register_tab_.get_path());
    }
}

void settings_element::resave() {
    resave_settings settings;
    prj_tab_.get_settings(settings);
    if (settings.output_path->empty()) return;
    // The field's validator knows only one spelling of the source, and not a project loaded later.
    if (context_.project_handle() && path_same(*settings.output_path, context_.placement.source_project_path))
        return warn_same_name();
    std::optional<platform::transfer_watch> watch;
    if (transfer_observer_)
        watch.emplace(
            [this](uint64_t bytes) { call<&transfer_observer_impl::on_moved>(transfer_observer_, bytes); });
    context_.resave_project(settings);
}

void settings_element::close_project() {
    if (running_)
        // The operation still uses the project.
        close_after_work_ = true;
    else
        context_.close_project();
}

void settings_element::leave_services() {
    close_project();
    context_.services = nullptr;
}

} // namespace vs::project_resave
