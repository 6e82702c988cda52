// The dialog that maps drive letters to folders.
#pragma once

#include <QDialog>

#include "apps/vestra_resave_window/stored_settings.h"

class QTableWidget;

namespace vestra::window {

// Changes nothing itself: the caller maps and stores the drives after `exec` has returned that they were
// accepted. Two rows with the same letter are accepted; the caller decides what they mean.
class drives_dialog final : public QDialog {
public:
    // Shows these drives, each in a row, as a modal window above `parent`.
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
