// The result window: table, filter, summary and buttons.
#include "apps/vestra_resave_window/outcome_view.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QStandardPaths>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QUrl>
#include <QVBoxLayout>
#include <set>

#include "apps/vestra_resave_window/outcome_model.h"
#include "reference_host/qt/element_widgets.h"

namespace vestra::window {

using qt::said;

namespace {

// Returns the nearest existing parent folder of a path.
QString folder_above(const QString& path) {
    QString folder = QFileInfo(path).absolutePath();
    while (!QFileInfo::exists(folder) && !QDir(folder).isRoot()) folder = QFileInfo(folder).absolutePath();
    return folder;
}

// Paths are elided in the middle, because both ends are informative.
class path_delegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->textElideMode = Qt::ElideMiddle;
    }
};

} // namespace

outcome_view::outcome_view(QWidget* parent)
    : QWidget(parent, Qt::Window), rows_(new outcome_model(this)), shown_(new shown_outcome(this)),
      summary_(new QLabel(this)), count_(new QLabel(this)), filter_(new QLineEdit(this)),
      only_problems_(new QCheckBox(this)), copy_(new QPushButton(this)), open_(new QPushButton(this)),
      table_(new QTableView(this)) {
    auto* const tools = new QHBoxLayout;
    tools->addWidget(filter_, 1);
    tools->addWidget(only_problems_);
    tools->addWidget(copy_);
    tools->addWidget(open_);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(tools);
    column->addWidget(table_, 1);
    auto* const foot = new QHBoxLayout;
    foot->addWidget(summary_, 1);
    foot->addWidget(count_);
    column->addLayout(foot);
    // A caption with tags must be shown as it is.
    summary_->setTextFormat(Qt::PlainText);
    summary_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    summary_->setWordWrap(true);
    filter_->setClearButtonEnabled(true);
    shown_->setSourceModel(rows_);
    shown_->setSortRole(outcome_model::sort_role);
    table_->setModel(shown_);
    table_->setSortingEnabled(true);
    // A third click restores the order of the run.
    table_->horizontalHeader()->setSortIndicatorClearable(true);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().lineSpacing() + 8);
    table_->setWordWrap(false);
    table_->setTextElideMode(Qt::ElideRight);
    for (const int each : {outcome_model::source_column, outcome_model::target_column})
        table_->setItemDelegateForColumn(each, new path_delegate(table_));
    connect(filter_, &QLineEdit::textChanged, [this](const QString& words) {
        shown_->set_words(words);
        show_count();
    });
    connect(only_problems_, &QCheckBox::toggled, [this](bool on) {
        shown_->set_only_problems(on);
        show_count();
    });
    connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, open_,
            [this](const QModelIndex& current) { open_->setEnabled(current.isValid()); });
    connect(copy_, &QPushButton::clicked, [this] { QGuiApplication::clipboard()->setText(lines()); });
    // Only while the table has the keyboard: in the filter the same keys copy its text.
    auto* const copy = new QShortcut(QKeySequence::Copy, table_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, copy_, &QPushButton::click);
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
    copy_->setToolTip(said("Copy the selected rows, or all visible rows",
                           "Копирует выделенные строки или все, что показаны"));
    open_->setText(said("Open folder", "Открыть папку"));
    table_->setAccessibleName(said("Results", "Результаты"));
    rows_->translate();
}

void outcome_view::forget() {
    hide();
    show_outcome({});
}

void outcome_view::show_outcome(run_outcome outcome) {
    setWindowTitle(outcome.title);
    summary_->setText(outcome.summary);
    rows_->put(std::move(outcome.rows));
    filter_->clear(); // the filter was for other rows
    only_problems_->setChecked(false);
    table_->sortByColumn(-1, Qt::AscendingOrder);
    open_->setEnabled(false);
    show_count();
    constexpr int widths[outcome_model::columns] = {190, 230, 230, 75, 200, 150};
    int spare = 0; // width of empty columns
    for (int column = 0; column < outcome_model::columns; ++column) {
        const bool is_filled = rows_->fills(column);
        table_->setColumnHidden(column, !is_filled);
        table_->setColumnWidth(column, widths[column]);
        if (!is_filled) spare += widths[column];
    }
    // The paths of the sources get the width of hidden columns.
    table_->setColumnWidth(outcome_model::source_column, widths[outcome_model::source_column] + spare);
}

void outcome_view::show_count() {
    const int shown = shown_->rowCount(), all = rows_->rowCount({});
    count_->setText(shown == all ? QString()
                                 : said("%1 of %2 shown", "показано %1 из %2").arg(shown).arg(all));
}

QString outcome_view::summary() const { return summary_->text(); }

QString outcome_view::lines() const {
    // Sorted, since a selection is in the order in which it was made.
    std::set<int> rows;
    for (const QModelIndex& each : table_->selectionModel()->selectedRows()) rows.insert(each.row());
    if (rows.empty())
        for (int row = 0; row < shown_->rowCount(); ++row) rows.insert(row);
    QStringList line;
    for (int column = 0; column < outcome_model::columns; ++column)
        line << rows_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    QString all = line.join(u'\t') + u'\n';
    for (const int row : rows) {
        for (int column = 0; column < outcome_model::columns; ++column)
            line[column] = shown_->index(row, column).data().toString();
        all += line.join(u'\t') + u'\n';
    }
    return all;
}

// Opens the folder of the new file, or of the source if there is none yet.
void outcome_view::open_folder() {
    const int row = table_->currentIndex().row();
    const auto path_in = [&](int column) {
        return shown_->index(row, column).data(outcome_model::path_role).toString();
    };
    const QString source = path_in(outcome_model::source_column),
                  target = path_in(outcome_model::target_column);
    const bool shows_source = target.isEmpty() || (!QFileInfo::exists(target) && QFileInfo::exists(source));
    const QString folder = folder_above(shows_source ? source : target);
    const bool has_opener =
        !QStandardPaths::findExecutable("xdg-open").isEmpty() || QGuiApplication::platformName() == "windows";
    if (has_opener && QDesktopServices::openUrl(QUrl::fromLocalFile(folder))) return;
    QMessageBox::information(
        this, windowTitle(),
        said("No program is set up to show a folder:", "Нет программы, которая показала бы папку:") + "\n\n" +
            folder);
}

} // namespace vestra::window
