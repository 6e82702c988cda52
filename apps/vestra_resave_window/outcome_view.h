// The window over what came of a run: a table that can be sorted, filtered and copied, and a line of summary.
#pragma once

#include <QWidget>

#include "apps/vestra_resave_window/run_outcome.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace vestra::window {

class outcome_model;
class shown_outcome;

class outcome_view final : public QWidget {
public:
    explicit outcome_view(QWidget* parent = nullptr);
    ~outcome_view() override;

    void show_outcome(run_outcome outcome);
    // Is empty again, and not shown.
    void forget();
    // Says its own words anew, after the language has changed.
    void translate();

    // The selected rows, or all that are shown, as lines with tabs between the columns; the head comes first.
    QString lines() const;
    QTableView& table() { return *table_; }
    QLineEdit& filter() { return *filter_; }
    QCheckBox& only_problems() { return *only_problems_; }
    QString summary() const;
    bool has_outcome() const { return !summary().isEmpty(); }

private:
    void open_folder();
    void show_count();

    outcome_model* const rows_;
    shown_outcome* const shown_;
    QLabel* const summary_;
    QLabel* const count_; // of the rows that are shown
    QLineEdit* const filter_;
    QCheckBox* const only_problems_;
    QPushButton* const copy_;
    QPushButton* const open_;
    QTableView* const table_;
};

} // namespace vestra::window
