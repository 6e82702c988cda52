// Conversion between the handles of the C functions and the objects of the model. A handle is the address of
// its object.
#pragma once

#include <type_traits>

#include "host/types.h"
#include "reference_host/model/project.h"

namespace vestra::api {

// Objects without a class in the model; see objects.h.
struct string_adapter;
struct wide_string_list;
struct picture;
struct field_list;
struct open_tos_file;
class progress_window;
class wait_window;
struct xml_session;

// Maps each handle type to its class; the functions are declared only for their types. The vs_entity handle
// of an object is a different handle type, but the same address, because entity classes use single
// inheritance.
project* model_of(vs_prj*);
entity* model_of(vs_entity*);
entity_list* model_of(vs_entities*);
scene_collection* model_of(vs_scns_2d*);
scene_collection* model_of(vs_scns_3d*);
// Also for vs_scn_2d and vs_scn_3d, which derive from vs_scn; the scene itself knows its kind.
scene* model_of(vs_scn*);
layer* model_of(vs_lr*);
layer_group* model_of(vs_lr_group*);
// All data of layers are tables in this host, so vs_data and vs_table_data are the same.
table_data* model_of(vs_data*);
table_data* model_of(vs_table_data*);
attr_data* model_of(vs_attr_data*);
attr_data_list* model_of(vs_attrs_data*);
field_list* model_of(vs_attr_files*);
tos_data* model_of(vs_tos_data*);
tos_data_list* model_of(vs_toss_data*);
open_tos_file* model_of(vs_tos4_file*);
style_manager* model_of(vs_stl_mngr*);
style_manager_list* model_of(vs_stl_mngr_list*);
map_legend* model_of(vs_mapleg*);
map_legend_list* model_of(vs_maplegs*);
uuid* model_of(vs_uuid*);
string_adapter* model_of(vs_string_adp*);
wide_string_list* model_of(vs_wstrings*);
any* model_of(vs_any*);
tuple* model_of(vs_tuple*);
picture* model_of(vs_dib*);
progress_window* model_of(vs_progress*);
wait_window* model_of(vs_wait*);
xml_session* model_of(vs_xml_save_prj*);
xml_session* model_of(vs_xml_save_2d*);
xml_session* model_of(vs_xml_save_3d*);

// The class of the model behind a handle type, which can be const.
template <class Handle>
using model_type =
    std::remove_pointer_t<decltype(model_of(static_cast<std::remove_const_t<Handle>*>(nullptr)))>;

// Returns the object behind a handle. Null stays null; the type is not checked.
template <class Handle>
model_type<Handle>* to_model(Handle* handle) {
    return reinterpret_cast<model_type<Handle>*>(handle);
}
template <class Handle>
const model_type<Handle>* to_model(const Handle* handle) {
    return reinterpret_cast<const model_type<Handle>*>(handle);
}
// Returns the handle of an object, valid as long as the object; null for null.
template <class Handle>
Handle* to_handle(model_type<Handle>* object) {
    return reinterpret_cast<Handle*>(object);
}

} // namespace vestra::api
