// A tree of rows with a column of names and, before it, a column of check marks. Who implements: the bundle.
// Who calls: the host.
//
// The host asks for rows as it needs them and may keep what it was answered until it is told to ask again.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"
#include "host/interfaces/masked_bitmap.h"

namespace vs::project_resave {

// A row, opaque to the host. It lives until the outline's rows are reset.
struct outline_row;

// Who implements: the host. It outlives the connection, or is a referent. What each names is to be asked for
// anew; the rows themselves go with `reset_rows`.
class outline_events_impl : public interface_of<outline_events_impl> {
public:
    static constexpr const char* name = "vs_outline_events_interface_1";
    virtual void reset_rows() = 0;
    virtual void reset_columns() = 0;
    virtual void reset_images() = 0;
    using operations = operation_list<&outline_events_impl::reset_rows, &outline_events_impl::reset_columns,
                                      &outline_events_impl::reset_images>;

protected:
    ~outline_events_impl() = default;
};
using outline_events = interface_to<outline_events_impl>;

// The column with the words. A column lives as long as its outline.
class outline_column_impl : public interface_of<outline_column_impl> {
public:
    static constexpr const char* name = "vs_outline_column_interface_1";
    // The same text in every session and language.
    virtual void id(string_visitor visitor) = 0;
    // Tells nothing while the outline has no rows to head.
    virtual void header(string_visitor visitor) = 0;
    virtual void text(outline_row* row, string_visitor visitor) = 0;
    // In average characters, to begin with.
    virtual uint32_t width() = 0;
    // A row that is not valid is drawn so.
    virtual bool invalid(outline_row* row) = 0;
    virtual bool highlighted(outline_row* row) = 0;
    using operations = operation_list<&outline_column_impl::id, &outline_column_impl::header,
                                      &outline_column_impl::text, &outline_column_impl::width,
                                      &outline_column_impl::invalid, &outline_column_impl::highlighted>;

protected:
    ~outline_column_impl() = default;
};
using outline_column = interface_to<outline_column_impl>;

// The column with the check marks.
class outline_checks_impl : public interface_of<outline_checks_impl> {
public:
    static constexpr const char* name = "vs_outline_checks_interface_1";
    // Some of what is below the row is checked and some is not.
    virtual bool mixed(outline_row* row) = 0;
    virtual bool checked(outline_row* row) = 0;
    // The user clicked the mark, which is to become `on`. May change other rows too.
    virtual void click(outline_row* row, bool on) = 0;
    using operations = operation_list<&outline_checks_impl::mixed, &outline_checks_impl::checked,
                                      &outline_checks_impl::click>;

protected:
    ~outline_checks_impl() = default;
};
using outline_checks = interface_to<outline_checks_impl>;

// What a column of check marks speaks beside outline_checks if it has pictures and a header to click.
class outline_bool_column_impl : public interface_of<outline_bool_column_impl> {
public:
    static constexpr const char* name = "vs_outline_bool_column_interface_1";
    virtual void image(masked_bitmap_visitor visitor) = 0;
    virtual void header_image(masked_bitmap_visitor visitor) = 0;
    virtual void click_header() = 0;
    using operations =
        operation_list<&outline_bool_column_impl::image, &outline_bool_column_impl::header_image,
                       &outline_bool_column_impl::click_header>;

protected:
    ~outline_bool_column_impl() = default;
};

class outline_impl : public interface_of<outline_impl> {
public:
    static constexpr const char* name = "vs_outline_interface_1";
    static constexpr const char16_t* element_kind = u"outline";
    // A null parent stands for the outline itself. Null for an index past the last.
    virtual uint32_t child_count(outline_row* parent) = 0;
    virtual outline_row* child(outline_row* parent, uint32_t index) = 0;
    virtual bool has_children(outline_row* parent) = 0;

    virtual bool expanded(outline_row* row) = 0;
    virtual void set_expanded(outline_row* row, bool on) = 0;
    virtual bool highlighted(outline_row* row) = 0;
    virtual void set_highlighted(outline_row* row, bool on) = 0;
    // The user added the row to those highlighted; with a second one, all from it to the row. The host sets
    // the flags of the rows that it shows by itself.
    virtual void highlight_added(outline_row* row, outline_row* second) = 0;
    // The user went to this row; null: to none.
    virtual void current_changed(outline_row* row) = 0;

    // Pictures for rows: their number, each of them, and which one a row has, -1 for none. The visitor is
    // told one picture in any case, an empty one where there is none.
    virtual uint32_t image_count() = 0;
    virtual void image(int32_t index, masked_bitmap_visitor visitor) = 0;
    virtual int32_t image_index(outline_row* row) = 0;

    virtual outline_column name_column() = 0;
    virtual outline_checks checks() = 0;
    // Connects the one receiver of the resets; null ends the connection.
    virtual void set_events(outline_events events) = 0;
    using operations =
        operation_list<&outline_impl::child_count, &outline_impl::child, &outline_impl::has_children,
                       &outline_impl::expanded, &outline_impl::set_expanded, &outline_impl::highlighted,
                       &outline_impl::set_highlighted, &outline_impl::highlight_added,
                       &outline_impl::current_changed, &outline_impl::image_count, &outline_impl::image,
                       &outline_impl::image_index, &outline_impl::name_column, &outline_impl::checks,
                       &outline_impl::set_events>;

protected:
    ~outline_impl() = default;
};

} // namespace vs::project_resave
