// A tree of rows with a column of names and, in front of it, a column of check marks.
//
// Who implements: the bundle, all but outline_events. Who calls: the host. The outline is an element too:
// host/toolkit/element.h says how long it lives and how it reports a change. Columns are valid as long as the
// outline. Main thread only.
//
// The host asks for rows as it needs them and can keep what it was given until outline_events makes it ask
// again. A row that is passed must be one that the outline returned since the last reset_rows, or null: then
// flags are false, texts are not passed and setters do nothing, unless an operation says otherwise.
#pragma once

#include <cstdint>

#include "framework/border/visitors.h"
#include "host/interfaces/masked_bitmap.h"

namespace vs::project_resave {

// A row, opaque to the host. Valid until reset_rows.
struct outline_row;

// Who implements: the host. Who calls: the outline. It must outlive the connection or be a referent: the
// outline keeps no ref that would hold it alive. Each operation makes the host ask again for what it names.
class outline_events_impl : public interface_of<outline_events_impl> {
public:
    static constexpr const char* name = "vs_outline_events_interface_1";
    // All rows the host was given are invalid from now on.
    virtual void reset_rows() = 0;
    // Names, headers and widths of the columns are to be asked for again.
    virtual void reset_columns() = 0;
    // The pictures of rows, and which row has which, are to be asked for again.
    virtual void reset_images() = 0;
    using operations = operation_list<&outline_events_impl::reset_rows, &outline_events_impl::reset_columns,
                                      &outline_events_impl::reset_images>;

protected:
    ~outline_events_impl() = default;
};
using outline_events = interface_to<outline_events_impl>;

// The column with the words.
class outline_column_impl : public interface_of<outline_column_impl> {
public:
    static constexpr const char* name = "vs_outline_column_interface_1";
    // Passes the name of the column, the same in every session and language.
    virtual void id(string_visitor visitor) = 0;
    // Passes the words above the column; does not call the visitor while the outline shows nothing.
    virtual void header(string_visitor visitor) = 0;
    // Passes what the user reads in the row.
    virtual void text(outline_row* row, string_visitor visitor) = 0;
    // Returns the width to begin with, in average characters.
    virtual uint32_t width() = 0;
    // True if the row is to be drawn as invalid.
    virtual bool invalid(outline_row* row) = 0;
    // True if the row is to be drawn as highlighted.
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
    // True if some of what is below the row is checked and some is not.
    virtual bool mixed(outline_row* row) = 0;
    // True if the row and all below it are checked.
    virtual bool checked(outline_row* row) = 0;
    // The user clicked the mark, which is to become `on`. On a highlighted row it acts on all highlighted
    // rows. Other rows and other outlines may change too. A null row shows an error message and changes
    // nothing.
    virtual void click(outline_row* row, bool on) = 0;
    using operations = operation_list<&outline_checks_impl::mixed, &outline_checks_impl::checked,
                                      &outline_checks_impl::click>;

protected:
    ~outline_checks_impl() = default;
};
using outline_checks = interface_to<outline_checks_impl>;

// What a column of check marks implements in addition if it has pictures and a header to click.
class outline_bool_column_impl : public interface_of<outline_bool_column_impl> {
public:
    static constexpr const char* name = "vs_outline_bool_column_interface_1";
    // Passes the picture of a mark, in one call; one of width 0 if there is none.
    virtual void image(masked_bitmap_visitor visitor) = 0;
    // Passes the picture of the header, in the same way.
    virtual void header_image(masked_bitmap_visitor visitor) = 0;
    // The user clicked the header: checks all rows, or unchecks them if any is checked.
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
    // Returns the number of rows directly below the parent; null stands for the parent of the topmost rows.
    virtual uint32_t child_count(outline_row* parent) = 0;
    // Returns one of these rows, counted from the top; null for an index past the last.
    virtual outline_row* child(outline_row* parent, uint32_t index) = 0;
    // True if there is a row below the parent.
    virtual bool has_children(outline_row* parent) = 0;

    // True if the rows below this one are to be shown.
    virtual bool expanded(outline_row* row) = 0;
    // The user opened or closed the row.
    virtual void set_expanded(outline_row* row, bool on) = 0;
    // True if the row is one of those that the user has highlighted to act on them together.
    virtual bool highlighted(outline_row* row) = 0;
    // The user highlighted the row, or took that away.
    virtual void set_highlighted(outline_row* row, bool on) = 0;
    // The user highlighted one more row; with a `second` one, all rows between the two. The host itself calls
    // set_highlighted for the rows it shows. Without `second` the outline also highlights all that is below
    // the row.
    virtual void highlight_added(outline_row* row, outline_row* second) = 0;
    // The user went to this row; null if no row is the current one any more.
    virtual void current_changed(outline_row* row) = 0;

    // Returns the number of pictures for rows.
    virtual uint32_t image_count() = 0;
    // Passes one of these pictures, in one call; one of width 0 for an index that has none.
    virtual void image(int32_t index, masked_bitmap_visitor visitor) = 0;
    // Returns the index of the row's picture; -1 if it has none.
    virtual int32_t image_index(outline_row* row) = 0;

    // Returns the column with the words, which never changes.
    virtual outline_column name_column() = 0;
    // Returns the column with the check marks, which never changes.
    virtual outline_checks checks() = 0;
    // Connects the one receiver of resets, in place of an earlier one; null ends the connection.
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
