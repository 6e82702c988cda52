// How another bundle's kinds of elements take part in a resave: which files such an element has, what it
// refers to, and how its new paths are written back. What a service claims here wins over the bundle's own
// knowledge of layers.
//
// Who implements: a bundle, as a referent that is registered under "vestra/resave_project" and ends with its
// library. Who calls: the resave, on the user-interface thread, with elements of the private copy it works
// on, never with those of the host's open project. Elements and lists are borrowed for the call; indexes run
// from 0; texts are told during the call. A service must not call back into the run. A count of more than a
// million is taken for a fault of the service: there are none then. Of references and files a resave reports
// the element; of kinds the claim is dropped without a record.
#pragma once

#include "framework/border/visitors.h"

namespace vs::project_resave {

class resave_entity_service_impl : public interface_of<resave_entity_service_impl> {
public:
    static constexpr const char* name = "vs_resave_entity_service_interface_1";
    // The kinds of elements that the service knows, by meta identifier. Asked once, when the first element is
    // looked at. The identifier is told as wide text; an empty one is passed over.
    virtual uint32_t meta_id_count() = 0;
    virtual void meta_id(uint32_t index, string_visitor visitor) = 0;
    // Of all that claim one meta identifier the lowest is asked first; the bundle's own claims have 0, and
    // come first among those of 0.
    virtual int32_t priority() = 0;
    // A finer look at the element; false passes it on to the next claim. The first that accepts has it.
    virtual bool accepts(vs_entity* entity) = 0;
    // Elements that this one needs: a selected element may bring them into the selection. `uuid` is the
    // caller's and has no value yet; left without one, the row is passed over.
    virtual uint32_t reference_count(vs_entity* entity) = 0;
    virtual void reference_uuid(vs_entity* entity, uint32_t index, vs_uuid* uuid) = 0;
    // The files by which the element refers to its data. `source` is told the path, in the form C:\a\b.txt,
    // or nothing if the row has none at present; `folder` the name of the folder for files of this type.
    virtual uint32_t file_count(vs_entity* entity) = 0;
    virtual void file_info(vs_entity* entity, uint32_t index, string_visitor source,
                           string_visitor folder) = 0;
    // Writes the new path into the element. It is empty where no new place was found, and where the copy
    // failed it is the place that the file would have had. Not called for a file that is lost.
    virtual void set_file(vs_entity* entity, uint32_t index, const char16_t* new_path) = 0;
    // Copies the file with all that belongs to it, and replaces nothing; the folder of `target` exists. On
    // true `targets` names each file or folder that was made, and `sources` at the same place what it was
    // made from. On false the copy failed, and what `targets` names is removed again.
    virtual bool copy_files(vs_entity* entity, uint32_t index, const char16_t* source, const char16_t* target,
                            vs_wstrings* sources, vs_wstrings* targets) = 0;
    // Adds every file of the element, for the size and the common folder; those that do not exist are passed
    // over. False leaves the question to the host's data sources.
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

// Who implements: whoever collects the services. Told each one, borrowed for the call.
class resave_entity_service_visitor_impl : public interface_of<resave_entity_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_resave_entity_service_visitor_interface_1";
    virtual void visit(resave_entity_service service) = 0;
    using operations = operation_list<&resave_entity_service_visitor_impl::visit>;

protected:
    ~resave_entity_service_visitor_impl() = default;
};

} // namespace vs::project_resave
