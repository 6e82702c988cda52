// How other bundles' kinds of elements take part in a resave: which files such an element has, which elements
// it refers to, and how its new paths are written back. A claim of a service has precedence over the layer
// types that the resave itself supports.
//
// Who implements: a bundle, as a referent that is registered under "vestra/resave_project" or under no id,
// and that lives until its library is unloaded. Who calls: the resave, on the main thread, with elements of
// the private copy that it works on, never with those of the host's open project. A service must not call
// back into the resave.
//
// Order of calls: the services are collected when the resave's window or command starts. When the first
// element of a project is examined, once: meta_id_count, then meta_id and priority. At each load, for each
// element of a claimed kind: accepts, references, files, all_files. In a run: set_file and copy_files.
//
// Elements and lists are borrowed for the call. Indexes count from 0 and stay below the last count. Texts are
// passed during the call; not calling a visitor means the empty text. A count above one million is an error
// of the service and is treated as 0: for references and files the resave reports the element; for kinds the
// claim is ignored without a record.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class resave_entity_service_impl : public interface_of<resave_entity_service_impl> {
public:
    static constexpr const char* name = "vs_resave_entity_service_interface_1";
    // The result of an operation with a count that throws: too large, so that the resave reports what is
    // missing.
    static constexpr uint32_t count_after_exception = ~uint32_t{0};
    // Returns the number of kinds of elements that the service claims.
    virtual uint32_t meta_id_count() = 0;
    // Passes the meta identifier of a kind, as wide text; an empty one is ignored.
    virtual void meta_id(uint32_t index, string_visitor visitor) = 0;
    // Returns the priority among the claims of one meta identifier: the lowest is asked first. The resave's
    // own claims, for "grid_cutline_lr2d" and "graph_lr2d", have 0 and come first among those with 0.
    virtual int32_t priority() = 0;
    // True if the service accepts this element of a claimed kind; otherwise the next claim is asked, and
    // finally the layer types that the resave supports.
    virtual bool accepts(vs_entity* entity) = 0;
    // Returns the number of elements that this one needs. If they are not selected, the user is asked once in
    // a run whether to add them.
    virtual uint32_t reference_count(vs_entity* entity) = 0;
    // Sets `uuid`, which belongs to the caller and has no value, to that of a needed element. If it still has
    // no value, the row is skipped.
    virtual void reference_uuid(vs_entity* entity, uint32_t index, vs_uuid* uuid) = 0;
    // Returns the number of paths by which the element refers to its data.
    virtual uint32_t file_count(vs_entity* entity) = 0;
    // Passes one of the paths to `source`, in the form C:\a\b.txt, or the empty text if there is no path at
    // present. Passes to `folder` the name of the folder for files of this type, as default_folder of
    // services/resave_service.h.
    virtual void file_info(vs_entity* entity, uint32_t index, string_visitor source,
                           string_visitor folder) = 0;
    // Writes the new path into the element. Called after the copy. The path is empty if no new place was
    // found; if the copy failed, it is the place that the copy would have had. Not called for a lost file.
    virtual void set_file(vs_entity* entity, uint32_t index, const char16_t* new_path) = 0;
    // Copies the file with everything that belongs to it, and must not replace any file. `target` was free a
    // moment ago, and the resave has tried to create its folder. Not called if the source is lost or was
    // copied before. Returns true on success; then `targets` lists each file or folder that was created, and
    // `sources` its source at the same index. Returns false if the copy failed; then the resave removes what
    // `targets` lists, reports the failure and continues.
    virtual bool copy_files(vs_entity* entity, uint32_t index, const char16_t* source, const char16_t* target,
                            vs_wstrings* sources, vs_wstrings* targets) = 0;
    // Appends every file of the element to the list, for the size and the common folder; files that do not
    // exist are skipped. Returns false to leave this to the host's data sources, which are asked for each
    // path of file_info, up to the first one that does not open.
    virtual bool all_files(vs_entity* entity, vs_wstrings* files) = 0;
    using operations =
        operation_list<&resave_entity_service_impl::meta_id_count, &resave_entity_service_impl::meta_id,
                       &resave_entity_service_impl::priority, &resave_entity_service_impl::accepts,
                       &resave_entity_service_impl::reference_count,
                       &resave_entity_service_impl::reference_uuid, &resave_entity_service_impl::file_count,
                       &resave_entity_service_impl::file_info, &resave_entity_service_impl::set_file,
                       &resave_entity_service_impl::copy_files, &resave_entity_service_impl::all_files>;

protected:
    ~resave_entity_service_impl() = default;
};
using resave_entity_service = interface_to<resave_entity_service_impl>;

// Who implements: code that collects the services, as host/interfaces/service_visitor.h says. Who calls: the
// registry.
class resave_entity_service_visitor_impl : public interface_of<resave_entity_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_resave_entity_service_visitor_interface_1";
    // Receives one service, borrowed for the call: take a ref to keep it.
    virtual void visit(resave_entity_service service) = 0;
    using operations = operation_list<&resave_entity_service_visitor_impl::visit>;

protected:
    ~resave_entity_service_visitor_impl() = default;
};

} // namespace vs::project_resave
