// The view of an outline: a tree with check marks; highlighted rows are the selected ones.
#pragma once

#include <QTreeView>

#include "reference_host/qt/outline_model.h"

namespace vestra::qt {

// Expanded and highlighted rows are state of the element: the user's changes are sent to it, and `take_flags`
// shows what it made of them.
class outline_tree final : public QTreeView {
public:
    // `sends` runs an event of the user. The model must outlive the view.
    outline_tree(outline_model& model, std::function<void(const std::function<void()>&)> sends,
                 QWidget* parent);

    // Applies the expanded and highlighted state of the rows as reported by the element.
    void take_flags();
    // Returns the rectangle of a row's mark; empty if the row is not visible.
    QRect mark_rect(const QModelIndex& index) const;

protected:
    // A click on a mark neither highlights the row nor makes it current.
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    // Applies the state of the rows below `parent`, at any depth, and collects the highlighted ones.
    void take_below(const QModelIndex& parent, QItemSelection& highlighted);
    // True if the point is on the mark of a row.
    bool is_on_mark(const QPoint& point) const;
    // Sends the new state of these rows, and which rows the user has added.
    void tell_highlighted(const QModelIndexList& rows, bool on);

    outline_model& rows_;
    const std::function<void(const std::function<void()>&)> sends_;
    // Persistent, since the rows can change between press and release.
    QPersistentModelIndex pressed_; // the row on whose mark the button was pressed
    bool is_taking_ = false;        // true while the element's state is being applied
};

} // namespace vestra::qt
