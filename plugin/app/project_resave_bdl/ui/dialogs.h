// The two dialogs of the tool. Main thread only.
#pragma once

#include "framework/resources/text_rows.h"
#include "operations/run/run_questions.h"
#include "ui/modal_dialog.h"
#include "ui/toolkit/buttons.h"
#include "ui/toolkit/fields.h"
#include "ui/toolkit/layouts.h"
#include "ui/toolkit/texts.h"

namespace vs::project_resave::detail {

// Shows a report that is too long for a message box. The host finds the dialog by the name in `id`; `title`
// is the row of its title.
class extended_message_dialog {
public:
    struct id {
        static constexpr const char16_t* name = u"vs_project_resave_extended_message_dialog_dialog";
    };
    static constexpr int32_t title = text::warning_title;

    // `message` is shown in a field that scrolls; its lines end with line feeds.
    explicit extended_message_dialog(const wide_string& message);

    // Public, since the function that shows the dialog puts its parts into a docker.
    toolkit::label heading;
    toolkit::button_box buttons; // only OK, which closes the dialog
    toolkit::multiline_output text;
    toolkit::grid_layout content;
};

} // namespace vs::project_resave::detail

namespace vs::dialog {

// Asks for another path if a copied file would overwrite an existing one.

namespace toolkit = project_resave::toolkit;

// The explanation, the source, and a field with the proposed path. The host adds its own OK and cancel
// buttons.
class unique_name_dialog final : public toolkit::groupbox {
public:
    struct id {
        static constexpr const char16_t* name = u"vs_project_resave_unique_name_dialog";
    };
    static constexpr int32_t title = project_resave::text::name_conflict;

    // The proposal is set without a check, since it exists.
    unique_name_dialog(const project_resave::wide_string& source_path,
                       const project_resave::wide_string& proposed_path);

    // Returns the accepted path; empty if the text in the field exists, as the unchanged proposal does.
    project_resave::wide_string free_path() const;

private:
    // Called with the path that the user entered. Refuses an existing path with a message and empties the
    // field.
    bool take(const project_resave::wide_string& entered);

    toolkit::label explanation_;
    toolkit::output source_;
    toolkit::label request_;
    toolkit::file_input path_;
};

} // namespace vs::dialog

namespace vs::project_resave {

// How the rest of the bundle shows these dialogs. Each call blocks until the user has closed the dialog. If
// the host has no runner for it, nothing is shown and it counts as cancelled.

// Asks for a new path for a copy of `source`, since `proposed` exists. An accepted path is as typed, not
// normalised, and did not exist when the dialog was closed; it is empty if the user entered none.
unique_name_answer show_unique_name_dialog(const wide_string& source, const wide_string& proposed);

// Shows the whole text in a field that scrolls. Nothing is shown, and nobody learns of it, if the host has no
// runner.
void show_extended_message_dialog(const wide_string& text);

// The factories of the bundle's modal dialogs have an empty id. Their static objects are defined in
// project_resave_app.cpp together with the other services, since their order matters.

// The dialog without its own content, which every bundle offers.
struct plain_dialog_id {
    static constexpr const char16_t* name = u"";
};

using plain_dialog_factory = modal_dialog_service_factory<plain_dialog_id>;
using unique_name_dialog_factory = modal_dialog_service_factory<dialog::unique_name_dialog::id>;
using extended_message_dialog_factory = modal_dialog_service_factory<detail::extended_message_dialog::id>;

} // namespace vs::project_resave
