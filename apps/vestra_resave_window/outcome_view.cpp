#include "apps/vestra_resave_window/outcome_view.h"

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
#include <set>

#include "apps/vestra_resave_window/outcome_model.h"
#include "reference_host/qt/element_widgets.h"

namespace vestra::window {

using qt::said;

outcome_view::outcome_view(QWidget* parent)
    : QWidget(parent, Qt::Window), rows_(new outcome_model(this)), shown_(new shown_outcome(this)),
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
    shown_->setSortRole(outcome_model::sort_role);
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
    connect(filter_, &QLineEdit::textChanged, [this](const QString& words) { shown_->set_words(words); });
    connect(only_problems_, &QCheckBox::toggled, [this](bool on) { shown_->set_only_problems(on); });
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
    constexpr int widths[outcome_model::columns] = {180, 240, 240, 70, 230, 190};
    for (int column = 0; column < outcome_model::columns; ++column)
        table_->setColumnWidth(column, widths[column]);
}

QString outcome_view::summary() const { return summary_->text(); }

QString outcome_view::lines() const {
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

// Of the new place, or of the source where there is none.
void outcome_view::open_folder() {
    const QModelIndex current = table_->currentIndex();
    const int row = current.isValid() ? current.row() : 0;
    for (const int column : {outcome_model::target_column, outcome_model::source_column}) {
        const QString path = shown_->index(row, column).data().toString();
        if (path.isEmpty()) continue;
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
        return;
    }
}

} // namespace vestra::window
