// The item model of an outline, which reads rows from the element on demand.
#include "reference_host/qt/outline_model.h"

#include <QBrush>
#include <utility>

#include "reference_host/qt/element_widgets.h"
#include "reference_host/qt/pictures.h"
#include "reference_host/toolkit/told.h"

namespace vestra::qt {

using namespace vs::project_resave;
using toolkit::told;

outline_model::outline_model(const element& live, std::function<void()> changed)
    : outline_(cast_to<outline_impl>(live)), names_(call<&outline_impl::name_column>(outline_)),
      checks_(call<&outline_impl::checks>(outline_)), changed_(std::move(changed)),
      root_(std::make_unique<node>()) {
    call<&outline_impl::set_events>(outline_, pointer_to<outline_events_impl>(*this));
}

outline_model::~outline_model() { call<&outline_impl::set_events>(outline_, outline_events()); }

void outline_model::reset_rows() {
    // Nothing is read here: the element may be in the middle of a change, and resets often come in groups.
    is_stale_ = true;
    changed_();
}

void outline_model::reset_columns() { changed_(); }

void outline_model::reset_images() {
    icons_.clear();
    changed_();
}

void outline_model::settle() {
    if (std::exchange(is_stale_, false) && !is_same(*root_)) {
        // Only if other rows exist now. A reset closes all branches of the tree.
        beginResetModel();
        *root_ = node();
        endResetModel();
    } else {
        report_changes({}); // the rows are the same, but any text or mark may have changed
    }
    emit headerDataChanged(Qt::Horizontal, 0, 0);
}

// For each known branch, because a view does not repaint rows below the last one that a report names.
void outline_model::report_changes(const QModelIndex& parent) {
    const node& known = node_at(parent);
    if (!known.is_counted || known.below.empty()) return;
    const int rows = static_cast<int>(known.below.size());
    emit dataChanged(index(0, 0, parent), index(rows - 1, 0, parent));
    for (int row = 0; row < rows; ++row)
        if (known.below[static_cast<size_t>(row)]) report_changes(index(row, 0, parent));
}

bool outline_model::is_same(const node& known) const {
    if (!known.is_counted) return true;
    if (call<&outline_impl::child_count>(outline_, known.row) != known.below.size()) return false;
    for (uint32_t place = 0; place < known.below.size(); ++place) {
        const node* const child = known.below[place].get();
        // Never requested, so nobody refers to it.
        if (!child) continue;
        if (call<&outline_impl::child>(outline_, known.row, place) != child->row || !is_same(*child))
            return false;
    }
    return true;
}

outline_model::node& outline_model::node_at(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<node*>(index.internalPointer()) : *root_;
}

void outline_model::count(node& of) const {
    if (std::exchange(of.is_counted, true)) return;
    if (call<&outline_impl::has_children>(outline_, of.row))
        of.below.resize(call<&outline_impl::child_count>(outline_, of.row));
}

QModelIndex outline_model::index(int row, int column, const QModelIndex& parent) const {
    node& above = node_at(parent);
    // Between a reset of the element and `settle` its rows are invalid; what is known is still answered.
    if (!is_stale_) count(above);
    if (row < 0 || column != 0 || static_cast<size_t>(row) >= above.below.size()) return {};
    std::unique_ptr<node>& place = above.below[static_cast<size_t>(row)];
    if (!place) {
        if (is_stale_) return {};
        place = std::make_unique<node>();
        place->row = call<&outline_impl::child>(outline_, above.row, static_cast<uint32_t>(row));
        place->above = &above;
        place->place = row;
    }
    return createIndex(row, 0, place.get());
}

QModelIndex outline_model::parent(const QModelIndex& child) const {
    node* const above = child.isValid() ? node_at(child).above : nullptr;
    return above && above != root_.get() ? createIndex(above->place, 0, above) : QModelIndex();
}

int outline_model::rowCount(const QModelIndex& parent) const {
    node& counted = node_at(parent);
    if (!is_stale_) count(counted);
    return static_cast<int>(counted.below.size());
}

bool outline_model::hasChildren(const QModelIndex& parent) const {
    const node& asked = node_at(parent);
    // The view asks this for every row to draw its arrow, so the rows below are not counted for it.
    if (asked.is_counted || is_stale_) return !asked.below.empty();
    return call<&outline_impl::has_children>(outline_, asked.row);
}

outline_row* outline_model::row_at(const QModelIndex& index) const {
    return index.isValid() && !is_stale_ ? node_at(index).row : nullptr;
}

QVariant outline_model::data(const QModelIndex& index, int role) const {
    outline_row* const row = row_at(index);
    if (!row) return {};
    switch (role) {
    case Qt::DisplayRole:
        return shown(told<&outline_column_impl::text>(names_, row));
    case Qt::CheckStateRole:
        if (!checks_) return {};
        if (call<&outline_checks_impl::mixed>(checks_, row)) return Qt::PartiallyChecked;
        return call<&outline_checks_impl::checked>(checks_, row) ? Qt::Checked : Qt::Unchecked;
    case Qt::DecorationRole:
        return icon(row);
    case Qt::ForegroundRole:
        return call<&outline_column_impl::invalid>(names_, row) ? QBrush(Qt::red) : QVariant();
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return call<&outline_column_impl::invalid>(names_, row)
                   ? said("its file cannot be used", "файл недоступен")
                   : QVariant();
    case image_role:
        return call<&outline_impl::image_index>(outline_, row);
    default:
        return {};
    }
}

QIcon outline_model::icon(outline_row* row) const {
    const int32_t number = call<&outline_impl::image_index>(outline_, row);
    if (number < 0) return {};
    const auto [place, is_new] = icons_.try_emplace(number);
    if (is_new)
        // Decoded once: many rows share a picture.
        place->second = icon_told(
            [&](masked_bitmap_visitor visitor) { call<&outline_impl::image>(outline_, number, visitor); });
    return place->second;
}

bool outline_model::setData(const QModelIndex& index, const QVariant& value, int role) {
    outline_row* const row = row_at(index);
    if (!row || role != Qt::CheckStateRole) return false;
    // The element decides what changes; it notifies this host afterwards.
    call<&outline_checks_impl::click>(checks_, row, value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags outline_model::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | (checks_ ? Qt::ItemIsUserCheckable : Qt::NoItemFlags);
}

QVariant outline_model::headerData(int, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return shown(told<&outline_column_impl::header>(names_));
}

int outline_model::width() const { return static_cast<int>(call<&outline_column_impl::width>(names_)); }

bool outline_model::click_header() {
    const auto marks = cast_to<outline_bool_column_impl>(checks_);
    if (marks) call<&outline_bool_column_impl::click_header>(marks);
    return static_cast<bool>(marks);
}

void outline_model::each_known(const std::function<void(const QModelIndex&)>& visit) const {
    if (!is_stale_) visit_below(*root_, visit);
}

void outline_model::visit_below(const node& of, const std::function<void(const QModelIndex&)>& visit) const {
    for (const std::unique_ptr<node>& each : of.below) {
        if (!each) continue;
        visit(createIndex(each->place, 0, each.get()));
        visit_below(*each, visit);
    }
}

} // namespace vestra::qt
