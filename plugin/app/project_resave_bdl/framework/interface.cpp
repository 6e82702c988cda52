#include "framework/interface.h"

namespace vs::project_resave {

namespace {

using query_entry = void (*)(const void* table, void* instance, const char* name, const void** found_table,
                             void** found_instance);
using identity_entry = void (*)(interface_pointer* out, const void* table, void* instance);

void query(const void*, void* instance, const char* name, const void** table, void** found) {
    *table = nullptr;
    *found = nullptr;
    try {
        static_cast<interface_impl*>(instance)->query(name, table, found);
    } catch (...) {
        *table = nullptr;
        *found = nullptr;
    }
}

const query_entry identity_table[] = {&query};

} // namespace

identity_pointer identity_of(interface_impl& provider) { return {{identity_table, &provider}}; }

void interface_impl::identity(interface_pointer& out) { out = identity_of(*this); }

identity_pointer identity_of(const interface_pointer& object) {
    identity_pointer identity;
    if (object) (*static_cast<const identity_entry*>(object.table))(&identity, object.table, object.instance);
    return identity;
}

interface_pointer query_name(const identity_pointer& object, const char* name) {
    interface_pointer found;
    if (object)
        (*static_cast<const query_entry*>(object.table))(object.table, object.instance, name, &found.table,
                                                         &found.instance);
    return found;
}

} // namespace vs::project_resave
