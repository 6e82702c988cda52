// A tree of rows with a column of names and, in front of it, a column of check marks.
//
// Who implements: the bundle, all but outline_events. Who calls: the host. The outline is an element too:
// host/toolkit/element.h says how long it lives and how it reports a change. Columns are valid as long as the
// outline. Main thread only.
//
// The host asks for rows when it needs them and may cache the answers until outline_events makes it ask
// again. A row passed as an argument must be one that the outline returned since the last reset_rows, or
// null. For null, flags are false, texts are not passed and setters do nothing, unless an operation says
// otherwise.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"
#include "host/interfaces/masked_bitmap.h"

namespace vs::project_resave {

// A row, opaque to the host. Valid until reset_rows.
struct outline_row;

// Who implements: the host. Who calls: the outline. It must outlive the connection or be a referent: the
// outline keeps no ref, which would keep it alive. Each operation makes the host ask again for what it names.
class outline_events_impl : public interface_of<outline_events_impl> {
public:
    static constexpr const char* name = "vs_outline_events_interface_1";
    // All rows that the host has are invalid from now on.
    virtual void reset_rows() = 0;
    // The host must ask again for the columns' names, headers and widths.
    virtual void reset_columns() = 0;
    // The host must ask again for the pictures and for the picture of each row.
    virtual void reset_images() = 0;
    using operations = operation_list<&outline_events_impl::reset_rows, &outline_events_impl::reset_columns,
                                      &outline_events_impl::reset_images>;

protected:
    ~outline_events_impl() = default;
};
using outline_events = interface_to<outline_events_impl>;

// The column with the names.
class outline_column_impl : public interface_of<outline_column_impl> {
public:
    static constexpr const char* name = "vs_outline_column_interface_1";
    // Passes the name of the column, the same in every session and language.
    virtual void id(string_visitor visitor) = 0;
    // Passes the caption above the column; does not call the visitor while the outline is empty.
    virtual void header(string_visitor visitor) = 0;
    // Passes the text that the row shows.
    virtual void text(outline_row* row, string_visitor visitor) = 0;
    // Returns the initial width in average characters.
    virtual uint32_t width() = 0;
    // True if the row must be drawn as invalid.
    virtual bool invalid(outline_row* row) = 0;
    // True if the row must be drawn as highlighted.
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
    // True if some rows below this one are checked and some are not.
    virtual bool mixed(outline_row* row) = 0;
    // True if the row and all rows below it are checked.
    virtual bool checked(outline_row* row) = 0;
    // The user clicked the mark to set it to `on`. On a highlighted row the click applies to all highlighted
    // rows. Other rows and other outlines may change too. For a null row it shows an error message and
    // changes nothing.
    virtual void click(outline_row* row, bool on) = 0;
    using operations = operation_list<&outline_checks_impl::mixed, &outline_checks_impl::checked,
                                      &outline_checks_impl::click>;

protected:
    ~outline_checks_impl() = default;
};
using outline_checks = interface_to<outline_checks_impl>;

// Implemented in addition by a column of check marks that has pictures and a header to click.
class outline_bool_column_impl : public interface_of<outline_bool_column_impl> {
public:
    static constexpr const char* name = "vs_outline_bool_column_interface_1";
    // Passes the picture of a mark, in one call; a picture of width 0 if there is none.
    virtual void image(masked_bitmap_visitor visitor) = 0;
    // Passes the picture of the header, in the same way.
    virtual void header_image(masked_bitmap_visitor visitor) = 0;
    // The user clicked the header: checks all rows, or unchecks them all if any row is checked.
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
    // Returns the number of rows directly below the parent; null is the parent of the topmost rows.
    virtual uint32_t child_count(outline_row* parent) = 0;
    // Returns one of these rows, counted from the top; null for an index past the last.
    virtual outline_row* child(outline_row* parent, uint32_t index) = 0;
    // True if there is a row below the parent.
    virtual bool has_children(outline_row* parent) = 0;

    // True if the rows below this one are shown.
    virtual bool expanded(outline_row* row) = 0;
    // The user expanded or collapsed the row.
    virtual void set_expanded(outline_row* row, bool on) = 0;
    // True if the row is one of those that the user has highlighted in order to act on all of them.
    virtual bool highlighted(outline_row* row) = 0;
    // The user highlighted the row or removed the highlight.
    virtual void set_highlighted(outline_row* row, bool on) = 0;
    // The user highlighted one more row or, with a `second` one, all rows between the two. The host itself
    // calls set_highlighted for the rows that it shows. Without `second`, the outline also highlights all
    // rows below the row.
    virtual void highlight_added(outline_row* row, outline_row* second) = 0;
    // The user moved to this row; null if there is no current row any more.
    virtual void current_changed(outline_row* row) = 0;

    // Returns the number of pictures that rows use.
    virtual uint32_t image_count() = 0;
    // Passes one of these pictures, in one call; a picture of width 0 for an index without one.
    virtual void image(int32_t index, masked_bitmap_visitor visitor) = 0;
    // Returns the index of the row's picture; -1 if it has none.
    virtual int32_t image_index(outline_row* row) = 0;

    // Returns the column with the names, which never changes.
    virtual outline_column name_column() = 0;
    // Returns the column with the check marks, which never changes.
    virtual outline_checks checks() = 0;
    // Connects the only receiver of resets, replacing an earlier one; null ends the connection.
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
