// The tree view of an outline: selection, expansion and clicks on check marks.
#include "reference_host/qt/outline_tree.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QStyle>
#include <algorithm>
#include <utility>
#include <vector>

#include "reference_host/qt/element_kinds.h"

namespace vestra::qt {

using namespace vs::project_resave;
using toolkit::element_view;
using toolkit::mark;
using toolkit::row_view;

namespace {

// Returns the ranges sorted and with neighbours joined, so that the result is equal for the same rows in any
// order of selection.
std::vector<std::pair<QModelIndex, QModelIndex>> ranges_of(const QItemSelection& rows) {
    std::vector<std::pair<QModelIndex, QModelIndex>> ranges;
    for (const QItemSelectionRange& each : rows) {
        const QModelIndex first = each.topLeft(), last = each.bottomRight();
        ranges.emplace_back(first.siblingAtColumn(0), last.siblingAtColumn(0));
    }
    std::ranges::sort(ranges);
    std::vector<std::pair<QModelIndex, QModelIndex>> joined;
    for (const auto& [first, last] : ranges)
        if (!joined.empty() && joined.back().second.parent() == first.parent() &&
            joined.back().second.row() + 1 == first.row())
            joined.back().second = last;
        else
            joined.emplace_back(first, last);
    return joined;
}

} // namespace

outline_tree::outline_tree(outline_model& model, std::function<void(const std::function<void()>&)> sends,
                           QWidget* parent)
    : QTreeView(parent), rows_(model), sends_(std::move(sends)) {
    is_taking_ = true; // there is no one to notify yet
    setModel(&model);
    is_taking_ = false;
    setUniformRowHeights(true); // otherwise every row of a long list is measured
    setSelectionMode(ExtendedSelection);
    setAllColumnsShowFocus(true);
    header()->setSectionsClickable(true);
    const auto keep = [this](const QModelIndex& index, bool on) {
        if (is_taking_) return;
        sends_([&] { call<&outline_impl::set_expanded>(rows_.outline(), rows_.row_at(index), on); });
    };
    // Both signals also come when the state is applied by `take_flags`; `keep` then does nothing.
    connect(this, &QTreeView::expanded, [keep](const QModelIndex& index) { keep(index, true); });
    connect(this, &QTreeView::collapsed, [keep](const QModelIndex& index) { keep(index, false); });
    connect(header(), &QHeaderView::sectionClicked, [this] { sends_([this] { rows_.click_header(); }); });
}

void outline_tree::take_flags() {
    is_taking_ = true;
    QItemSelection highlighted;
    take_below({}, highlighted);
    // Selecting the same rows again would redraw all of them.
    if (ranges_of(highlighted) != ranges_of(selectionModel()->selection()))
        selectionModel()->select(highlighted, QItemSelectionModel::ClearAndSelect);
    is_taking_ = false;
}

// Joins neighbouring rows into one range, because one range per row would make the selection slow.
void outline_tree::take_below(const QModelIndex& parent, QItemSelection& highlighted) {
    const int count = rows_.rowCount(parent);
    QModelIndex first, last;
    const auto add_range = [&] {
        if (first.isValid()) highlighted.select(first, last);
        first = last = QModelIndex();
    };
    for (int place = 0; place < count; ++place) {
        const QModelIndex index = rows_.index(place, 0, parent);
        outline_row* const row = rows_.row_at(index);
        if (call<&outline_impl::highlighted>(rows_.outline(), row)) {
            if (!first.isValid()) first = index;
            last = index;
        } else {
            add_range();
        }
        // Rows below a collapsed one are visited too, since they can be highlighted.
        if (!rows_.hasChildren(index)) continue;
        const bool on = call<&outline_impl::expanded>(rows_.outline(), row);
        if (isExpanded(index) != on) setExpanded(index, on);
        take_below(index, highlighted);
    }
    add_range();
}

QRect outline_tree::mark_rect(const QModelIndex& index) const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.index = index;
    option.rect = visualRect(index);
    // The style computes a place for the mark only if the item says that it has one.
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    if (option.rect.isEmpty()) return {};
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this);
}

bool outline_tree::is_on_mark(const QPoint& point) const { return mark_rect(indexAt(point)).contains(point); }

void outline_tree::mousePressEvent(QMouseEvent* event) {
    pressed_ = QModelIndex();
    if (event->button() != Qt::LeftButton || !is_on_mark(event->pos()))
        return QTreeView::mousePressEvent(event);
    // Qt's own handling would also select the row and make it the current one.
    pressed_ = indexAt(event->pos());
    event->accept();
}

void outline_tree::mouseReleaseEvent(QMouseEvent* event) {
    const QModelIndex pressed = std::exchange(pressed_, QPersistentModelIndex());
    if (!pressed.isValid()) return QTreeView::mouseReleaseEvent(event);
    // Moving away before the release cancels the click, as for a button.
    if (indexAt(event->pos()) != pressed || !is_on_mark(event->pos())) return;
    // A mixed mark counts as unchecked, so a click checks everything below it.
    const bool was_on = pressed.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    sends_([&] { rows_.setData(pressed, was_on ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole); });
}

// A fast second click on a mark counts as a click.
void outline_tree::mouseDoubleClickEvent(QMouseEvent* event) {
    if (is_on_mark(event->pos()))
        mousePressEvent(event);
    else
        QTreeView::mouseDoubleClickEvent(event);
}

void outline_tree::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    if (is_taking_ || !current.isValid()) return;
    sends_([&] { call<&outline_impl::current_changed>(rows_.outline(), rows_.row_at(current)); });
}

void outline_tree::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    if (is_taking_) return;
    sends_([&] {
        // Rows that are no longer highlighted come first, so that the element is notified of the added ones
        // last.
        tell_highlighted(deselected.indexes(), false);
        tell_highlighted(selected.indexes(), true);
    });
}

void outline_tree::tell_highlighted(const QModelIndexList& rows, bool on) {
    for (const QModelIndex& each : rows)
        if (outline_row* const row = rows_.row_at(each))
            call<&outline_impl::set_highlighted>(rows_.outline(), row, on);
    if (!on || rows.isEmpty()) return;
    // With a second row, the element expects this view to have set all rows between the two.
    outline_row* const last = rows.size() > 1 ? rows_.row_at(rows.back()) : nullptr;
    call<&outline_impl::highlight_added>(rows_.outline(), rows_.row_at(rows.front()), last);
}

namespace {

class outline_widget final : public widget_for<outline_impl, outline_tree> {
public:
    outline_widget(element_widgets& all, const element& live, QWidget* parent)
        : outline_widget(all, live, parent,
                         std::make_unique<outline_model>(live, [this] { all_.note_change(*this); })) {}

private:
    outline_widget(element_widgets& all, const element& live, QWidget* parent,
                   std::unique_ptr<outline_model> rows)
        : widget_for(all, live,
                     new outline_tree(
                         *rows, [this](const auto& event) { tell(event); }, parent)),
          rows_(std::move(rows)) {
        // At least a few rows, even in a small window.
        own_->setMinimumHeight(4 * own_->fontMetrics().lineSpacing());
        own_->setColumnWidth(0, own_->fontMetrics().averageCharWidth() * rows_->width());
    }

    // The view is in the middle of its own update, so changes caused by the event are shown right after it.
    void tell(const std::function<void()>& event) {
        event();
        all_.note_change(*this);
    }
    void show() override {
        rows_->settle();
        own_->take_flags();
        own_->setAccessibleName(rows_->headerData(0, Qt::Horizontal, Qt::DisplayRole).toString());
    }
    void read(element_view& view) const override {
        view.caption = entered(own_->model()->headerData(0, Qt::Horizontal, Qt::DisplayRole).toString());
        view.rows = rows_below({});
    }
    std::vector<row_view> rows_below(const QModelIndex& parent) const {
        // Read through the view's model, so this shows what the user sees. A row without children counts as
        // expanded.
        const QAbstractItemModel& shown_rows = *own_->model();
        std::vector<row_view> rows(static_cast<size_t>(shown_rows.rowCount(parent)));
        for (size_t place = 0; place < rows.size(); ++place) {
            const QModelIndex index = shown_rows.index(static_cast<int>(place), 0, parent);
            const QVariant state = index.data(Qt::CheckStateRole);
            rows[place] = {entered(index.data().toString()),
                           !state.isValid()                        ? mark::none
                           : state.toInt() == Qt::PartiallyChecked ? mark::mixed
                           : state.toInt() == Qt::Checked          ? mark::on
                                                                   : mark::off,
                           !index.data(Qt::ForegroundRole).isValid(),
                           own_->selectionModel()->isSelected(index),
                           !shown_rows.hasChildren(index) || own_->isExpanded(index),
                           index.data(outline_model::image_role).toInt(),
                           rows_->row_at(index),
                           rows_below(index)};
        }
        return rows;
    }

    const std::unique_ptr<outline_model> rows_; // outlives the view, which its parent destroys
};

} // namespace

const std::vector<kind_of_widget>& outline_kinds() {
    static const std::vector<kind_of_widget> kinds{
        {outline_impl::element_kind, &make_widget<outline_widget>}};
    return kinds;
}

} // namespace vestra::qt
