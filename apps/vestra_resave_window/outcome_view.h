// The window for the result of a run: a table that can be sorted, filtered and copied, and a summary line.
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

    // Replaces the rows, clears the filter and the sorting, and hides empty columns. Does not show the
    // window.
    void show_outcome(run_outcome outcome);
    // Clears and hides the window.
    void forget();
    // Updates its texts after the language has changed.
    void translate();

    // Returns the selected rows, or all visible ones, as lines with tabs between columns, after a heading
    // line. Hidden columns are included. A tab or line break in a text becomes a space.
    QString lines() const;
    QTableView& table() { return *table_; }
    QLineEdit& filter() { return *filter_; }
    QCheckBox& only_problems() { return *only_problems_; }
    QString summary() const;
    // False until the first result and after `forget`.
    bool has_outcome() const { return !summary().isEmpty(); }

private:
    void open_folder();
    void show_count();

    outcome_model* const rows_;
    shown_outcome* const shown_;
    QLabel* const summary_;
    QLabel* const count_; // number of visible rows
    QLineEdit* const filter_;
    QCheckBox* const only_problems_;
    QPushButton* const copy_;
    QPushButton* const open_;
    QTableView* const table_;
};

} // namespace vestra::window
