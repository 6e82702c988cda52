// The two dialogs of the tool.
#pragma once

#include "framework/resources/text_rows.h"
#include "operations/run/run_questions.h"
#include "ui/modal_dialog.h"
#include "ui/toolkit/buttons.h"
#include "ui/toolkit/fields.h"
#include "ui/toolkit/layouts.h"
#include "ui/toolkit/texts.h"

namespace vs::project_resave::detail {

// Shows a report that is too long for a message box.
class extended_message_dialog {
public:
    struct id {
        static constexpr const char16_t* name = u"vs_project_resave_extended_message_dialog_dialog";
    };
    static constexpr int32_t title = text::warning_title;

    explicit extended_message_dialog(const wide_string& message);

    toolkit::label heading;
    toolkit::button_box buttons; // one OK, which closes
    toolkit::multiline_output text;
    toolkit::grid_layout content;
};

} // namespace vs::project_resave::detail

namespace vs::dialog {

// Asks for another path when a copied file would overwrite an existing one.

namespace toolkit = project_resave::toolkit;

class unique_name_dialog final : public toolkit::groupbox {
public:
    struct id {
        static constexpr const char16_t* name = u"vs_project_resave_unique_name_dialog";
    };
    static constexpr int32_t title = project_resave::text::name_conflict;

    // The proposal is put in without a test, for it exists.
    unique_name_dialog(const project_resave::wide_string& source_path,
                       const project_resave::wide_string& proposed_path);

    // The path to take after acceptance: empty if the text in the field exists, as the untouched proposal
    // does.
    project_resave::wide_string free_path() const;

private:
    // The path the user entered; one that exists is refused with a message, and empties the field.
    bool take(const project_resave::wide_string& entered);

    toolkit::label explanation_;
    toolkit::output source_;
    toolkit::label request_;
    toolkit::file_input path_;
};

} // namespace vs::dialog

namespace vs::project_resave {

// The next two are the dialogs as the rest of the bundle calls them. Each blocks until the user has closed
// it. Where the host has no runner for it, nothing is shown, and it counts as cancelled.

// Asks for a new path for a copy of `source`; `proposed` exists. An accepted path is as typed, not
// normalised, and did not exist when the dialog closed; it is empty if the user gave none.
unique_name_answer show_unique_name_dialog(const wide_string& source, const wide_string& proposed);

// Shows the text, whole, in a field that scrolls.
void show_extended_message_dialog(const wide_string& text);

// The factories of the bundle's modal dialogs have an empty id. Their statics are defined in
// project_resave_app.cpp with those of the other services, for their order counts.

// The dialog without content of its own, which every bundle offers.
struct plain_dialog_id {
    static constexpr const char16_t* name = u"";
};

using plain_dialog_factory = modal_dialog_service_factory<plain_dialog_id>;
using unique_name_dialog_factory = modal_dialog_service_factory<dialog::unique_name_dialog::id>;
using extended_message_dialog_factory = modal_dialog_service_factory<detail::extended_message_dialog::id>;

} // namespace vs::project_resave
