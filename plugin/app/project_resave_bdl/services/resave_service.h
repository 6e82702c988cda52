// How another bundle's data takes part in a resave: a flat list of items, each of which may have files.
//
// Who implements: a bundle, as a referent that is registered under "vestra/resave_project" and ends with its
// library. Who calls: the resave, while a project is loaded, and between the release of a project and the
// next set_project for nothing but the caption. Indexes run from 0; texts and lists are told during the call.
// A service must not call back into the run.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class resave_service_impl : public interface_of<resave_service_impl> {
public:
    static constexpr const char* name = "vs_resave_service_interface_5";
    // Binds to the private copy that the resave works on, not to the host's open project; null unbinds.
    virtual void set_project(vs_prj*) {}
    // Name of the service in the log and in the report. It may be asked before set_project too, when the
    // project before has ended: it must not read the project then.
    virtual void caption(string_visitor) {}
    // Caption of the progress window while the service is saved.
    virtual void progress_caption(string_visitor) {}
    // Whether the items can be ticked, and whether they hang under a heading of their own.
    virtual bool shows_in_selection() { return false; }
    virtual bool has_own_heading() { return false; }
    virtual void tree_caption(string_visitor) {}
    // The item's identity, not owned; null: the item is always selected.
    virtual vs_uuid* item_uuid(uint32_t) { return nullptr; }
    virtual void item_caption(uint32_t, string_visitor) {}
    // Adds all files of the item, its source among them; a folder stands for all that is in it. They keep
    // their place relative to the source, under their own names. Items with one source are copied once, with
    // the files of the last of them.
    virtual void item_files(uint32_t, vs_wstrings*) {}
    // Name of the folder for the service's files.
    virtual void default_folder(string_visitor) {}
    // The item's main file; tells nothing if it has none.
    virtual void item_source(uint32_t, string_visitor) {}
    // Writes the new path into the private copy.
    virtual void set_item_source(uint32_t, const char16_t*) {}
    // More than a million is taken for a fault of the service: it has no items then, and a resave reports it.
    virtual uint32_t item_count() { return 0; }
    // Takes the item out of the private copy; those behind it move down.
    virtual void remove_item(uint32_t) {}
    using operations =
        operation_list<&resave_service_impl::set_project, &resave_service_impl::caption,
                       &resave_service_impl::progress_caption, &resave_service_impl::shows_in_selection,
                       &resave_service_impl::has_own_heading, &resave_service_impl::tree_caption,
                       &resave_service_impl::item_uuid, &resave_service_impl::item_caption,
                       &resave_service_impl::item_files, &resave_service_impl::default_folder,
                       &resave_service_impl::item_source, &resave_service_impl::set_item_source,
                       &resave_service_impl::item_count, &resave_service_impl::remove_item>;

protected:
    ~resave_service_impl() = default;
};
using resave_service = interface_to<resave_service_impl>;

// Who implements: whoever collects the services. Told each one, borrowed for the call.
class resave_service_visitor_impl : public interface_of<resave_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_resave_service_visitor_interface_5";
    virtual void visit(resave_service service) = 0;
    using operations = operation_list<&resave_service_visitor_impl::visit>;

protected:
    ~resave_service_visitor_impl() = default;
};

} // namespace vs::project_resave
