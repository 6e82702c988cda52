// The view of an outline: a tree with check marks, in which the highlighted rows are the selected ones.
#pragma once

#include <QTreeView>

#include "reference_host/qt/outline_model.h"

namespace vestra::qt {

class outline_tree final : public QTreeView {
public:
    // `sends` runs an event of the user. The model must outlive the view.
    outline_tree(outline_model& model, std::function<void(const std::function<void()>&)> sends,
                 QWidget* parent);

    // Shows which rows are expanded and highlighted, as the element answers.
    void take_flags();
    // The place of a row's mark; empty for a row that is not in sight.
    QRect mark_rect(const QModelIndex& index) const;

protected:
    // A click on a mark neither highlights the row nor goes to it.
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void take_below(const QModelIndex& parent, QItemSelection& highlighted);
    bool is_on_mark(const QPoint& point) const;
    void tell_highlighted(const QModelIndexList& rows, bool on);

    outline_model& rows_;
    const std::function<void(const std::function<void()>&)> sends_;
    QPersistentModelIndex pressed_; // the row whose mark the button went down on
    bool is_taking_ = false;        // what is selected and expanded now comes from the element
};

} // namespace vestra::qt
