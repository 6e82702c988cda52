// The rows of an outline as a model that asks the element for each answer. It keeps which rows there are, as
// far as anybody has looked, and nothing of what stands in them.
#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "host/toolkit/element.h"
#include "host/toolkit/outline.h"

namespace vestra::qt {

class outline_model final : public QAbstractItemModel, private vs::project_resave::outline_events_impl {
public:
    static constexpr int image_role = Qt::UserRole; // the index of the row's picture

    // `changed` is called when the element makes its host ask again: `settle` is due then.
    outline_model(const vs::project_resave::element& live, std::function<void()> changed);
    ~outline_model() override;

    // Asks for the rows again. The same rows in another state keep their indexes; other rows are a reset.
    void settle();

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent) const override;
    bool hasChildren(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const vs::project_resave::interface_to<vs::project_resave::outline_impl>& outline() const {
        return outline_;
    }
    // Null for no index, and while rows have changed that nobody has asked for again.
    vs::project_resave::outline_row* row_at(const QModelIndex& index) const;
    // Calls `visit` with each row that has been looked at, parents before children.
    void each_known(const std::function<void(const QModelIndex& index)>& visit) const;
    // The width to begin with, in average characters.
    int width() const;
    // The user clicked the header; false if it does nothing.
    bool click_header();

private:
    // A row with those below it, of which null ones were not looked at.
    struct node {
        vs::project_resave::outline_row* row = nullptr; // null for the root
        node* above = nullptr;
        int place = 0;
        bool is_counted = false;
        std::vector<std::unique_ptr<node>> below = {};
    };

    void reset_rows() override;
    void reset_columns() override;
    void reset_images() override;

    node& node_at(const QModelIndex& index) const;
    void count(node& of) const;
    // True if the rows known below are those that the element has now.
    bool is_same(const node& known) const;
    void visit_below(const node& of, const std::function<void(const QModelIndex&)>& visit) const;
    QIcon icon(vs::project_resave::outline_row* row) const;

    const vs::project_resave::interface_to<vs::project_resave::outline_impl> outline_;
    const vs::project_resave::outline_column names_;
    const vs::project_resave::outline_checks checks_;
    const std::function<void()> changed_;
    const std::unique_ptr<node> root_;
    mutable std::map<int, QIcon> icons_; // by their index
    bool is_stale_ = false;
};

} // namespace vestra::qt
