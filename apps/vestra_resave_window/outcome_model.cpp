#include "apps/vestra_resave_window/outcome_model.h"

#include <algorithm>

#include "apps/vestra_resave/resave_report.h"
#include "reference_host/qt/element_widgets.h"

namespace vestra::window {

using qt::said;

namespace {

QString head_of(int column) {
    switch (column) {
    case outcome_model::element_column:
        return said("Element", "Элемент");
    case outcome_model::source_column:
        return said("Source", "Источник");
    case outcome_model::target_column:
        return said("New place", "Новое место");
    case outcome_model::size_column:
        return said("Size", "Размер");
    case outcome_model::state_column:
        return said("State", "Состояние");
    default:
        return said("Reason", "Причина");
    }
}

QString text(const outcome_row& row, int column) {
    switch (column) {
    case outcome_model::element_column:
        return row.element;
    case outcome_model::source_column:
        return row.source;
    case outcome_model::target_column:
        return row.target;
    case outcome_model::size_column:
        return row.bytes ? QString::fromStdString(command::size_text(*row.bytes)) : QString();
    case outcome_model::state_column:
        return row.state;
    default:
        return row.reason;
    }
}

} // namespace

void outcome_model::put(std::vector<outcome_row> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

void outcome_model::translate() { emit headerDataChanged(Qt::Horizontal, 0, columns - 1); }

int outcome_model::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant outcome_model::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return head_of(section);
}

QVariant outcome_model::data(const QModelIndex& index, int role) const {
    const outcome_row& row = rows_.at(static_cast<std::size_t>(index.row()));
    const bool is_size = index.column() == size_column;
    if (role == problem_role) return row.is_problem;
    if (role == Qt::TextAlignmentRole && is_size) return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == sort_role && is_size) return row.bytes ? static_cast<qlonglong>(*row.bytes) : -1;
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != sort_role) return {};
    return text(row, index.column());
}

void shown_outcome::set_words(const QString& words) {
    words_ = words.split(u' ', Qt::SkipEmptyParts);
    invalidateFilter();
}

void shown_outcome::set_only_problems(bool on) {
    only_problems_ = on;
    invalidateFilter();
}

bool shown_outcome::filterAcceptsRow(int row, const QModelIndex& parent) const {
    const auto at = [&](int column) { return sourceModel()->index(row, column, parent); };
    if (only_problems_ && !at(0).data(outcome_model::problem_role).toBool()) return false;
    return std::ranges::all_of(words_, [&](const QString& word) {
        for (int column = 0; column < outcome_model::columns; ++column)
            if (at(column).data().toString().contains(word, Qt::CaseInsensitive)) return true;
        return false;
    });
}

} // namespace vestra::window
