// The page on which drive letters get their folders.
#pragma once

#include <QDialog>

#include "apps/vestra_resave_window/stored_settings.h"

class QTableWidget;

namespace vestra::window {

class drives_dialog final : public QDialog {
public:
    drives_dialog(const std::vector<stored_settings::drive>& drives, QWidget* parent);

    // As they stand in the table, without empty rows.
    std::vector<stored_settings::drive> drives() const;
    // Says what is wrong and stays if a row lacks its letter or its folder.
    void accept() override;

private:
    void add(const QString& letter, const QString& folder);
    void choose_folder();

    QTableWidget* const table_;
};

} // namespace vestra::window
