// The result table: texts, sorting and filtering.
#include "apps/vestra_resave_window/outcome_model.h"

#include <QApplication>
#include <QStyle>
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

// Replaces the characters that separate columns and rows.
QString on_one_line(QString text) {
    for (const char16_t each : {u'\t', u'\n', u'\r'}) text.replace(each, u' ');
    return text;
}

// Escapes text for a tool tip, which would interpret tags.
QString tool_tip(const QString& text) {
    return text.isEmpty() ? text : "<p style='white-space:pre'>" + text.toHtmlEscaped() + "</p>";
}

} // namespace

void outcome_model::put(std::vector<outcome_row> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

void outcome_model::translate() { emit headerDataChanged(Qt::Horizontal, 0, columns - 1); }

bool outcome_model::fills(int asked) const {
    return std::ranges::any_of(rows_,
                               [asked](const outcome_row& row) { return !text(row, asked).isEmpty(); });
}

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
    // By the number: as texts 9 KB would come after 10 GB.
    if (role == sort_role && is_size) return row.bytes ? static_cast<qlonglong>(*row.bytes) : -1;
    const QString words = text(row, index.column());
    switch (role) {
    // With line breaks, which a file name can contain: folders are opened by this text.
    case path_role:
        return words;
    case sort_role:
    case Qt::DisplayRole:
        return on_one_line(words);
    case Qt::ToolTipRole:
        return tool_tip(words);
    case Qt::DecorationRole: {
        const bool is_marked = row.is_problem && index.column() == element_column;
        return is_marked ? QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning) : QVariant();
    }
    default:
        return {};
    }
}

shown_outcome::shown_outcome(QObject* parent) : QSortFilterProxyModel(parent) {
    // "a2" before "a10", as file managers sort.
    collator_.setNumericMode(true);
    collator_.setCaseSensitivity(Qt::CaseInsensitive);
}

bool shown_outcome::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    if (left.column() == outcome_model::size_column) return QSortFilterProxyModel::lessThan(left, right);
    return collator_.compare(left.data().toString(), right.data().toString()) < 0;
}

void shown_outcome::set_words(const QString& words) {
    words_ = words.split(u' ', Qt::SkipEmptyParts);
    invalidateFilter();
}

void shown_outcome::set_only_problems(bool on) {
    only_problems_ = on;
    invalidateFilter();
}

// Uses the rows directly: an index and a variant for each cell would make filtering a long table slow.
bool shown_outcome::filterAcceptsRow(int row, const QModelIndex&) const {
    const outcome_row& asked = static_cast<const outcome_model*>(sourceModel())->row(row);
    if (only_problems_ && !asked.is_problem) return false;
    return std::ranges::all_of(words_, [&](const QString& word) {
        for (int column = 0; column < outcome_model::columns; ++column)
            if (text(asked, column).contains(word, Qt::CaseInsensitive)) return true;
        return false;
    });
}

} // namespace vestra::window
