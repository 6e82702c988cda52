#include "tests/window/mouse_window.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "reference_host/qt/outline_tree.h"

namespace vestra::qt {

using toolkit::element_view;
using toolkit::mark;
using toolkit::row_view;

namespace {

// An element on a hidden page cannot be clicked.
void click_at(QWidget& widget, const QPoint& point, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QTest::mouseClick(&widget, Qt::LeftButton, keys, point);
}

void press_button(QAbstractButton& button) {
    if (button.isVisible())
        click_at(button, {8, button.height() / 2});
    else
        button.click();
}

QModelIndex index_of(const outline_model& rows, const row_view& wanted) {
    QModelIndex found;
    rows.each_known([&](const QModelIndex& index) {
        if (rows.row_at(index) == wanted.reference) found = index;
    });
    return found;
}

} // namespace

bool mouse_window::enter_text(const element_view& field, const wide_string& text) {
    auto& line = *widget<QLineEdit>(field);
    if (line.isVisible()) line.setFocus();
    line.selectAll();
    line.del();
    QTest::keyClicks(&line, shown(text));
    QTest::keyClick(&line, Qt::Key_Return);
    return entered(line.text()) == text;
}

bool mouse_window::press(const element_view& box, std::int32_t code) {
    QWidget& own = *widget<QWidget>(box);
    bool closes = false;
    const auto before = std::exchange(shown_.widgets().on_close, [&](std::int32_t) { closes = true; });
    for (std::size_t index = 0; index < box.buttons.size(); ++index)
        if (box.buttons[index].code == code)
            press_button(*own.findChildren<QAbstractButton*>().at(static_cast<qsizetype>(index)));
    shown_.widgets().on_close = before;
    return closes;
}

bool mouse_window::click(const element_view& button) {
    press_button(*widget<QAbstractButton>(button));
    return true;
}

bool mouse_window::set_check(const element_view& box, bool on) {
    auto& button = *widget<QAbstractButton>(box);
    if (box.kind == u"radiobutton" && !on) return false;
    if (button.isChecked() != on) press_button(button);
    return true;
}

bool mouse_window::choose(const element_view& list, std::uint32_t index) {
    const int wanted = static_cast<int>(index);
    if (auto* const tabs = widget<QTabWidget>(list)) {
        if (tabs->isVisible())
            click_at(*tabs->tabBar(), tabs->tabBar()->tabRect(wanted).center());
        else
            tabs->setCurrentIndex(wanted);
        return tabs->currentIndex() == wanted;
    }
    auto& choices = *widget<QComboBox>(list);
    while (choices.currentIndex() != wanted)
        QTest::keyClick(&choices, choices.currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
    return true;
}

bool mouse_window::check_row(const element_view& outline, const row_view& row, bool on) {
    auto& tree = *widget<outline_tree>(outline);
    auto& rows = static_cast<outline_model&>(*tree.model());
    const QModelIndex index = index_of(rows, row);
    const Qt::CheckState wanted = on ? Qt::Checked : Qt::Unchecked;
    tree.scrollTo(index);
    // A click toggles a mark, so a mark that already has the value is set without a click.
    const bool turns = (row.check == mark::on) != on;
    if (tree.isVisible() && turns)
        click_at(*tree.viewport(), tree.mark_rect(index).center());
    else
        rows.setData(index, wanted, Qt::CheckStateRole);
    return index.isValid();
}

bool mouse_window::highlight_row(const element_view& outline, const row_view& row, bool on) {
    auto& tree = *widget<outline_tree>(outline);
    const QModelIndex index = index_of(static_cast<outline_model&>(*tree.model()), row);
    tree.scrollTo(index);
    if (tree.isVisible() && on && !row.highlighted) {
        click_at(*tree.viewport(), tree.visualRect(index).center(), Qt::ControlModifier);
    } else {
        const auto how = on ? QItemSelectionModel::Select : QItemSelectionModel::Deselect;
        if (on) tree.selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        tree.selectionModel()->select(index, how);
    }
    return index.isValid();
}

} // namespace vestra::qt
