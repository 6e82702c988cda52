// How other bundles' data takes part in a resave: a flat list of items, each of which can have files.
//
// Who implements: a bundle, as a referent that is registered under "vestra/resave_project" or under no id,
// and that lives until its library is unloaded. Who calls: the resave and the check of a project, on the main
// thread, while a project is loaded. The class has a default for each operation, so override only what
// differs. A service must not call back into the resave.
//
// Order of calls: set_project after each load; then item_count, which begins each walk over the items, and
// the operations for each item. Selection: shows_in_selection, has_own_heading, tree_caption, item_uuid,
// item_caption. Common folder and size: item_files. Save, from the last item to the first: item_uuid,
// item_source, default_folder, item_files, set_item_source, remove_item. Between the end of a project and the
// next set_project only `caption` is called.
//
// Indexes count from 0 and stay below the last item_count. Texts and lists are passed during the call; not
// calling a visitor means the empty text. Paths have the form C:\data\a.txt. With a folder for each scene no
// service is saved: set_item_source and remove_item are not called then.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class resave_service_impl : public interface_of<resave_service_impl> {
public:
    static constexpr const char* name = "vs_resave_service_interface_5";
    // The result of item_count that throws: too large, so that the resave reports what is missing.
    static constexpr uint32_t count_after_exception = ~uint32_t{0};
    // Connects the service to the private copy that the resave works on, which is not the host's open
    // project. Valid until the next call, but the project can be destroyed before that. Null means no
    // project.
    virtual void set_project(vs_prj*) {}
    // Passes the name of the service for logs and the report. With a log of the load it is also called before
    // set_project, when the earlier project was already destroyed: it must not read the project.
    virtual void caption(string_visitor) {}
    // Passes the caption of the progress window for the time that the service is saved.
    virtual void progress_caption(string_visitor) {}
    // True if the user can select the items. Otherwise they take part without being shown.
    virtual bool shows_in_selection() { return false; }
    // True if the selection shows the items below the heading of tree_caption; false for no heading.
    virtual bool has_own_heading() { return false; }
    // Passes that heading.
    virtual void tree_caption(string_visitor) {}
    // Returns the item's identity, which belongs to the service and must be valid until the next call. An
    // item whose uuid is null or has no value is always selected and not shown in the selection.
    virtual vs_uuid* item_uuid(uint32_t) { return nullptr; }
    // Passes the item's text for the selection and the report.
    virtual void item_caption(uint32_t, string_visitor) {}
    // Appends all files of the item to the list, including its source; a folder stands for its whole content.
    // The resave copies them, each to the same place relative to the new path of the source. No folder is
    // made there for a file: such a file is reported as not copied, like a missing one, so list its folder
    // instead. A file that was already copied for another element is skipped. If that is the source, no file
    // of the item is copied; so items with the same source are copied once, with the files of the last of
    // them.
    //
    // Kept as users know it: if the name of the source is taken, its new path has a number, but the file
    // itself keeps its name, is not copied, and is reported. To avoid that, use a default_folder that no
    // other element has, and different names for main files within a project.
    virtual void item_files(uint32_t, vs_wstrings*) {}
    // Passes the name of the folder for the service's files, for structures with a folder for each type. It
    // can have several levels; empty means the folder of the new project. In a name that leads elsewhere "_"
    // replaces dots and colons.
    virtual void default_folder(string_visitor) {}
    // Passes the path of the item's main file; the empty text if it has no file, in which case nothing is
    // copied.
    virtual void item_source(uint32_t, string_visitor) {}
    // Writes the new path into the private copy. Called after the copy, even if that failed or another item
    // has the same source; the path is empty if no new place was found. Not called if the source is lost.
    virtual void set_item_source(uint32_t, const char16_t*) {}
    // Returns the number of items. More than one million is an error of the service: then it has no items,
    // and a resave reports that.
    virtual uint32_t item_count() { return 0; }
    // Removes the item from the private copy, because it is not selected, or because its source is lost and
    // the user wants such items removed. Later items move down by one.
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

// Who implements: code that collects the services, as host/interfaces/service_visitor.h says. Who calls: the
// registry.
class resave_service_visitor_impl : public interface_of<resave_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_resave_service_visitor_interface_5";
    // Receives one service, borrowed for the call: take a ref to keep it.
    virtual void visit(resave_service service) = 0;
    using operations = operation_list<&resave_service_visitor_impl::visit>;

protected:
    ~resave_service_visitor_impl() = default;
};

} // namespace vs::project_resave
