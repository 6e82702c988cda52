// The rows of an outline as an item model that reads the element for every value. It stores only which rows
// exist, as far as they were requested, and no content.
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

// Rows are requested as the view needs them, so a long list opens at once. After the element has reset its
// rows, and until `settle`, its old rows are invalid: the model then answers from what it knows.
class outline_model final : public QAbstractItemModel, private vs::project_resave::outline_events_impl {
public:
    static constexpr int image_role = Qt::UserRole; // the index of the row's picture

    // `changed` is called when the element asks its host to update; call `settle` then.
    outline_model(const vs::project_resave::element& live, std::function<void()> changed);
    ~outline_model() override;

    // Reads the rows again. If they are the same rows, their indexes stay valid; otherwise the model is
    // reset.
    void settle();

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent) const override;
    bool hasChildren(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override;
    // Sends a click on the row's mark; only for the role of the mark.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const vs::project_resave::interface_to<vs::project_resave::outline_impl>& outline() const {
        return outline_;
    }
    // Returns null for an invalid index, and if the rows have changed since they were read.
    vs::project_resave::outline_row* row_at(const QModelIndex& index) const;
    // Calls `visit` for each row that was requested so far, parents before children.
    void each_known(const std::function<void(const QModelIndex& index)>& visit) const;
    // Returns the initial width in average characters.
    int width() const;
    // The user clicked the header; returns false if the header does nothing.
    bool click_header();

private:
    // A row with the rows below it; null pointers are rows that were not requested yet.
    struct node {
        vs::project_resave::outline_row* row = nullptr; // null for the root
        node* above = nullptr;
        int place = 0;
        bool is_counted = false;
        std::vector<std::unique_ptr<node>> below = {};
    };

    // The element's requests: note what is stale and leave the rest to `settle`.
    void reset_rows() override;
    void reset_columns() override;
    void reset_images() override;

    // Returns the root for an invalid index.
    node& node_at(const QModelIndex& index) const;
    // Requests the number of rows below a node, once.
    void count(node& of) const;
    // Returns true if the known rows below `known` are still those of the element.
    bool is_same(const node& known) const;
    void report_changes(const QModelIndex& parent);
    // Calls `visit` for the known rows below a node, parents first.
    void visit_below(const node& of, const std::function<void(const QModelIndex&)>& visit) const;
    // Returns the picture of a row, decoded once for each index; null if the row has none.
    QIcon icon(vs::project_resave::outline_row* row) const;

    const vs::project_resave::interface_to<vs::project_resave::outline_impl> outline_;
    const vs::project_resave::outline_column names_;
    const vs::project_resave::outline_checks checks_;
    const std::function<void()> changed_;
    // Nodes stay where they are until the model is reset, since indexes point to them.
    const std::unique_ptr<node> root_;
    mutable std::map<int, QIcon> icons_; // by index
    bool is_stale_ = false;
};

} // namespace vestra::qt
