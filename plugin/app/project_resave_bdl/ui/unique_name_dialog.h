// Asks for another path when a copied file would overwrite an existing one.
#pragma once

#include "framework/resources/text_rows.h"
#include "ui/toolkit/file_input.h"
#include "ui/toolkit/grid_layout.h"
#include "ui/toolkit/texts.h"

namespace vs::dialog {

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
