// The table of drive letters and folders.
#include "apps/vestra_resave_window/drives_dialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "reference_host/qt/element_widgets.h"

namespace vestra::window {

using qt::said;

drives_dialog::drives_dialog(const std::vector<stored_settings::drive>& drives, QWidget* parent)
    : QDialog(parent), table_(new QTableWidget(0, 2, this)) {
    setWindowTitle(said("Drive letters", "Буквы дисков"));
    auto* const words = new QLabel(said("Projects refer to their files by paths such as C:\\data\\roads.shp. "
                                        "Map a drive letter to a folder of this computer here.",
                                        "Проекты называют свои файлы как C:\\data\\roads.shp. "
                                        "Здесь папка этого компьютера становится диском."),
                                   this);
    words->setWordWrap(true);
    table_->setHorizontalHeaderLabels({said("Letter", "Буква"), said("Folder", "Папка")});
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->verticalHeader()->hide();
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    // The Tab key leaves the table, so that the buttons can be reached by keyboard.
    table_->setTabKeyNavigation(false);
    table_->setAccessibleName(windowTitle());
    for (const auto& [letter, folder] : drives) add(letter, folder);

    auto* const tools = new QHBoxLayout;
    auto* const more = new QPushButton(said("Add", "Добавить"), this);
    auto* const folder = new QPushButton(said("Folder…", "Папка…"), this);
    auto* const less = new QPushButton(said("Remove", "Убрать"), this);
    for (QPushButton* each : {more, folder, less}) {
        // Enter accepts the dialog instead of pressing one of these.
        each->setAutoDefault(false);
        tools->addWidget(each);
    }
    tools->addStretch();
    connect(more, &QPushButton::clicked, this, [this] {
        add({}, {});
        table_->setCurrentCell(table_->rowCount() - 1, 0);
    });
    connect(folder, &QPushButton::clicked, this, [this] { choose_folder(); });
    connect(less, &QPushButton::clicked, this, [this] { table_->removeRow(table_->currentRow()); });

    auto* const box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    box->button(QDialogButtonBox::Cancel)->setText(said("Cancel", "Отмена"));
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(words);
    column->addWidget(table_, 1);
    column->addLayout(tools);
    column->addWidget(box);
    resize(560, 320);
}

void drives_dialog::add(const QString& letter, const QString& folder) {
    const int row = table_->rowCount();
    table_->insertRow(row);
    table_->setItem(row, 0, new QTableWidgetItem(letter));
    table_->setItem(row, 1, new QTableWidgetItem(folder));
}

void drives_dialog::choose_folder() {
    const int row = table_->currentRow();
    if (row < 0) return;
    const QString chosen =
        QFileDialog::getExistingDirectory(this, windowTitle(), table_->item(row, 1)->text());
    if (!chosen.isEmpty()) table_->item(row, 1)->setText(chosen);
}

void drives_dialog::accept() {
    for (const auto& [letter, folder] : drives()) {
        const bool is_letter =
            letter.size() == 1 && letter >= QStringLiteral("A") && letter <= QStringLiteral("Z");
        if (is_letter && !folder.isEmpty()) continue;
        QMessageBox::warning(
            this, windowTitle(),
            said("A row needs one letter and a folder: ", "В строке нужны одна буква и папка: ") + letter +
                u'=' + folder);
        return;
    }
    QDialog::accept();
}

std::vector<stored_settings::drive> drives_dialog::drives() const {
    std::vector<stored_settings::drive> all;
    for (int row = 0; row < table_->rowCount(); ++row) {
        // "c:" is what users type.
        const QString letter = table_->item(row, 0)->text().remove(u':').trimmed().toUpper();
        const QString folder = table_->item(row, 1)->text().trimmed();
        if (!letter.isEmpty() || !folder.isEmpty()) all.emplace_back(letter, folder);
    }
    return all;
}

} // namespace vestra::window
