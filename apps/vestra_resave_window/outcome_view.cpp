#include "apps/vestra_resave_window/outcome_view.h"

#include <QAbstractTableModel>
#include <QCheckBox>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTableView>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <set>

#include "reference_host/qt/element_widgets.h"

namespace vestra::window {

using qt::said;

namespace {

enum column {
    element_column,
    source_column,
    target_column,
    size_column,
    state_column,
    reason_column,
    columns
};
constexpr int problem_role = Qt::UserRole, sort_role = Qt::UserRole + 1;

QString head_of(int column) {
    switch (column) {
    case element_column:
        return said("Element", "Элемент");
    case source_column:
        return said("Source", "Источник");
    case target_column:
        return said("New place", "Новое место");
    case size_column:
        return said("Size", "Размер");
    case state_column:
        return said("State", "Состояние");
    default:
        return said("Reason", "Причина");
    }
}

} // namespace

class outcome_model final : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void put(std::vector<outcome_row> rows) {
        beginResetModel();
        rows_ = std::move(rows);
        endResetModel();
    }
    void translate() { emit headerDataChanged(Qt::Horizontal, 0, columns - 1); }
    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }
    int columnCount(const QModelIndex&) const override { return columns; }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
        return head_of(section);
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const outcome_row& row = rows_.at(static_cast<std::size_t>(index.row()));
        const bool is_size = index.column() == size_column;
        if (role == problem_role) return row.is_problem;
        if (role == Qt::TextAlignmentRole && is_size) return int(Qt::AlignRight | Qt::AlignVCenter);
        if (role == sort_role && is_size) return row.bytes ? static_cast<qlonglong>(*row.bytes) : -1;
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != sort_role) return {};
        return text(row, index.column());
    }

private:
    static QString text(const outcome_row& row, int column) {
        switch (column) {
        case element_column:
            return row.element;
        case source_column:
            return row.source;
        case target_column:
            return row.target;
        case size_column:
            return row.bytes ? QString::fromStdString(command::size_text(*row.bytes)) : QString();
        case state_column:
            return row.state;
        default:
            return row.reason;
        }
    }

    std::vector<outcome_row> rows_;
};

namespace {

// Rows that have the words of the filter in any column and, if wanted, problems alone.
class shown_rows final : public QSortFilterProxyModel {
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;
    void set_words(const QString& words) {
        words_ = words.split(u' ', Qt::SkipEmptyParts);
        invalidateFilter();
    }
    void set_only_problems(bool on) {
        only_problems_ = on;
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        const auto at = [&](int column) { return sourceModel()->index(row, column, parent); };
        if (only_problems_ && !at(0).data(problem_role).toBool()) return false;
        return std::ranges::all_of(words_, [&](const QString& word) {
            for (int column = 0; column < columns; ++column)
                if (at(column).data().toString().contains(word, Qt::CaseInsensitive)) return true;
            return false;
        });
    }

private:
    QStringList words_;
    bool only_problems_ = false;
};

} // namespace

outcome_view::outcome_view(QWidget* parent)
    : QWidget(parent, Qt::Window), rows_(new outcome_model(this)), shown_(new shown_rows(this)),
      summary_(new QLabel(this)), filter_(new QLineEdit(this)), only_problems_(new QCheckBox(this)),
      copy_(new QPushButton(this)), open_(new QPushButton(this)), table_(new QTableView(this)) {
    auto* const tools = new QHBoxLayout;
    tools->addWidget(filter_, 1);
    tools->addWidget(only_problems_);
    tools->addWidget(copy_);
    tools->addWidget(open_);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(tools);
    column->addWidget(table_, 1);
    column->addWidget(summary_);
    summary_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    summary_->setWordWrap(true);
    filter_->setClearButtonEnabled(true);
    shown_->setSourceModel(rows_);
    shown_->setSortRole(sort_role);
    table_->setModel(shown_);
    table_->setSortingEnabled(true);
    table_->sortByColumn(-1, Qt::AscendingOrder); // as the run had them
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().lineSpacing() + 8);
    table_->setWordWrap(false);
    table_->setTextElideMode(Qt::ElideMiddle); // a path is told by its ends
    auto& filtered = static_cast<shown_rows&>(*shown_);
    connect(filter_, &QLineEdit::textChanged,
            [&filtered](const QString& words) { filtered.set_words(words); });
    connect(only_problems_, &QCheckBox::toggled, [&filtered](bool on) { filtered.set_only_problems(on); });
    connect(copy_, &QPushButton::clicked, [this] { QGuiApplication::clipboard()->setText(lines()); });
    connect(open_, &QPushButton::clicked, [this] { open_folder(); });
    resize(1160, 520);
    translate();
}

outcome_view::~outcome_view() = default;

void outcome_view::translate() {
    filter_->setPlaceholderText(said("Filter", "Фильтр"));
    filter_->setAccessibleName(filter_->placeholderText());
    only_problems_->setText(said("Problems only", "Только проблемы"));
    copy_->setText(said("Copy", "Копировать"));
    copy_->setToolTip(said("Copies the selected rows, or all that are shown",
                           "Копирует выделенные строки или все, что показаны"));
    open_->setText(said("Open folder", "Открыть папку"));
    table_->setAccessibleName(said("Results", "Результаты"));
    rows_->translate();
}

void outcome_view::show_outcome(run_outcome outcome) {
    setWindowTitle(outcome.title);
    summary_->setText(outcome.summary);
    rows_->put(std::move(outcome.rows));
    constexpr int widths[columns] = {190, 250, 250, 80, 250, 200};
    for (int column = 0; column < columns; ++column) table_->setColumnWidth(column, widths[column]);
}

QString outcome_view::summary() const { return summary_->text(); }

QString outcome_view::lines() const {
    std::set<int> rows;
    for (const QModelIndex& each : table_->selectionModel()->selectedRows()) rows.insert(each.row());
    if (rows.empty())
        for (int row = 0; row < shown_->rowCount(); ++row) rows.insert(row);
    QStringList line;
    for (int column = 0; column < columns; ++column) line << head_of(column);
    QString all = line.join(u'\t') + u'\n';
    for (const int row : rows) {
        for (int column = 0; column < columns; ++column)
            line[column] = shown_->index(row, column).data().toString();
        all += line.join(u'\t') + u'\n';
    }
    return all;
}

// Of the new place, or of the source where there is none.
void outcome_view::open_folder() {
    const QModelIndex current = table_->currentIndex();
    const int row = current.isValid() ? current.row() : 0;
    for (const int column : {target_column, source_column}) {
        const QString path = shown_->index(row, column).data().toString();
        if (path.isEmpty()) continue;
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
        return;
    }
}

} // namespace vestra::window
