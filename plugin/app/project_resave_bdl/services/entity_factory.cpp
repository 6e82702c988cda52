#include "services/entity_factory.h"

#include "host/vsk_entity.h"
#include "host/vsk_lr.h"
#include "layers/resave_grid_layers.h"
#include "services/resave_graphics_layer.h"

namespace vs::project_resave {

namespace {

template <class Unit>
std::unique_ptr<Tvs_resave_unit> make_layer_unit(project_context& context, vs_entity* entity) {
    vs_lr* layer = vs_lr_safe_downcast(entity);
    return layer ? std::make_unique<Unit>(layer, context) : nullptr;
}

} // namespace

std::unique_ptr<Tvs_resave_unit> factory_grid_cutline_lr2d::make(project_context& context,
                                                                 vs_entity* entity) {
    return make_layer_unit<Tvs_resave_grid_cutline>(context, entity);
}

std::unique_ptr<Tvs_resave_unit> factory_graphics_layer::make(project_context& context, vs_entity* entity) {
    return make_layer_unit<resave_graphics_layer>(context, entity);
}

void entity_factory::insert(const std::string& meta_id, std::unique_ptr<factory_obj> factory) {
    const int32_t priority = factory->priority();
    by_meta_id[meta_id].emplace(priority, std::move(factory));
}

void entity_factory::build_table() {
    insert("grid_cutline_lr2d", std::make_unique<factory_grid_cutline_lr2d>());
    insert("graph_lr2d", std::make_unique<factory_graphics_layer>());
    initialised = true;
}

std::unique_ptr<Tvs_resave_unit> entity_factory::make(project_context& context, vs_entity* entity) {
    if (!initialised) build_table();
    const char* meta_id = vs_entity_get_meta_id(entity);
    const auto row = by_meta_id.find(meta_id ? meta_id : "");
    if (row == by_meta_id.end()) return nullptr;
    for (const auto& [priority, factory] : row->second)
        if (factory->accepts(entity)) return factory->make(context, entity);
    return nullptr;
}

} // namespace vs::project_resave
