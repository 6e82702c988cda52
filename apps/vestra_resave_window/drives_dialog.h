// The dialog that maps drive letters to folders.
#pragma once

#include <QDialog>

#include "apps/vestra_resave_window/stored_settings.h"

class QTableWidget;

namespace vestra::window {

class drives_dialog final : public QDialog {
public:
    drives_dialog(const std::vector<stored_settings::drive>& drives, QWidget* parent);

    // Returns the rows of the table without empty ones.
    std::vector<stored_settings::drive> drives() const;
    // Shows an error and stays open if a row has no letter or no folder.
    void accept() override;

private:
    void add(const QString& letter, const QString& folder);
    void choose_folder();

    QTableWidget* const table_;
};

} // namespace vestra::window
