// The rows of a result as a table model, and a filter for it. User-interface thread only.
#pragma once

#include <QAbstractTableModel>
#include <QCollator>
#include <QSortFilterProxyModel>
#include <QStringList>
#include <vector>

#include "apps/vestra_resave_window/run_outcome.h"

namespace vestra::window {

// The table model of a result.
class outcome_model final : public QAbstractTableModel {
public:
    // The columns in their order. All are present in every result; the view hides those that are empty.
    enum column { element_column, source_column, target_column, size_column, state_column, reason_column };
    static constexpr int columns = reason_column + 1;
    static constexpr int problem_role = Qt::UserRole; // true if the row is a problem
    static constexpr int sort_role = Qt::UserRole + 1;
    // The full text of a column: what is displayed has no line breaks.
    static constexpr int path_role = Qt::UserRole + 2;

    using QAbstractTableModel::QAbstractTableModel;

    // Replaces all rows.
    void put(std::vector<outcome_row> rows);
    // Updates the column headings after the language has changed.
    void translate();

    // Returns a row by its index in this model, which sorting and filtering do not change.
    const outcome_row& row(int index) const { return rows_.at(static_cast<std::size_t>(index)); }
    // True if any row has a text in the column.
    bool fills(int asked) const;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex&) const override { return columns; }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<outcome_row> rows_;
};

// Shows rows that contain each word in some column and, if requested, only problems. Texts are sorted by the
// rules of the language, numbers by value. The source model must be an outcome_model.
class shown_outcome final : public QSortFilterProxyModel {
public:
    explicit shown_outcome(QObject* parent);

    void set_words(const QString& words);
    void set_only_problems(bool on);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    QStringList words_;
    QCollator collator_;
    bool only_problems_ = false;
};

} // namespace vestra::window
