// Collects the services by which bundles take part in a resave, and chooses who makes the unit of an element.

#include "services/entity_factory.h"

#include <algorithm>

#include "framework/border/encoding.h"
#include "host/interfaces/service_visitor.h"
#include "host/vsk_basic.h"
#include "host/vsk_entity.h"
#include "host/vsk_lr.h"
#include "layers/resave_raster_layers.h"
#include "services/maplegs_plugin_service.h"
#include "services/resave_entity_plugin.h"
#include "services/service_answers.h"

namespace vs::project_resave {

namespace {

// Services registered under this id or under no id take part.
constexpr const char16_t* group = u"vestra/resave_project";

class resave_service_visitor final
    : public polymorphic<resave_service_visitor_impl, polymorphic<service_visitor_impl>> {
public:
    explicit resave_service_visitor(resave_services& target) : services_(target) {}
    void visit(resave_service service) override { services_.emplace_back(service); }

private:
    resave_services& services_;
};

class resave_entity_service_visitor final
    : public polymorphic<resave_entity_service_visitor_impl, polymorphic<service_visitor_impl>> {
public:
    explicit resave_entity_service_visitor(resave_entity_services& target) : services_(target) {}
    void visit(resave_entity_service service) override {
        // A service registered under two ids is found twice.
        const auto is_it = [&](const auto& held) { return held.get() == service; };
        if (std::ranges::none_of(services_, is_it)) services_.emplace_back(service);
    }

private:
    resave_entity_services& services_;
};

} // namespace

void collect_resave_services(resave_services& found) {
    resave_service_visitor visitor(found);
    vs_service_registry_with_services(group, identity_of(static_cast<resave_service_visitor_impl&>(visitor)));
}

void collect_resave_entity_services(resave_entity_services& found) {
    resave_entity_service_visitor visitor(found);
    vs_service_registry_with_services(group,
                                      identity_of(static_cast<resave_entity_service_visitor_impl&>(visitor)));
}

namespace {

template <class Unit>
std::unique_ptr<Tvs_resave_unit> make_layer_unit(run_state& context, vs_entity* entity) {
    vs_lr* layer = vs_lr_safe_downcast(entity);
    return layer ? std::make_unique<Unit>(layer, context) : nullptr;
}

constexpr int32_t priority_without_service = 1;

// As narrow text, since the host's meta identifiers are narrow.
std::string meta_id_of(const resave_entity_service& service, uint32_t index) {
    std::string meta_id;
    stdstring_visitor visitor(meta_id);
    call<&resave_entity_service_impl::meta_id>(service, index, visitor);
    return meta_id;
}

} // namespace

std::unique_ptr<Tvs_resave_unit> factory_grid_cutline_lr2d::make(run_state& context, vs_entity* entity) {
    return make_layer_unit<Tvs_resave_grid_cutline>(context, entity);
}

std::unique_ptr<Tvs_resave_unit> factory_graphics_layer::make(run_state& context, vs_entity* entity) {
    return make_layer_unit<resave_graphics_layer>(context, entity);
}

int32_t factory_entity_service::priority() {
    return *service_ ? call<&resave_entity_service_impl::priority>(service_->get())
                     : priority_without_service;
}

bool factory_entity_service::accepts(vs_entity* entity) {
    return call<&resave_entity_service_impl::accepts>(service_->get(), entity);
}

std::unique_ptr<Tvs_resave_unit> factory_entity_service::make(run_state& context, vs_entity* entity) {
    return std::make_unique<resave_entity_plugin>(context, entity, *service_);
}

void entity_factory::insert(const std::string& meta_id, std::unique_ptr<factory_obj> factory) {
    const int32_t priority = factory->priority();
    by_meta_id_[meta_id].emplace(priority, std::move(factory));
}

// Only when the first element is looked at: by then all bundles have been started.
void entity_factory::build_table() {
    insert("grid_cutline_lr2d", std::make_unique<factory_grid_cutline_lr2d>());
    insert("graph_lr2d", std::make_unique<factory_graphics_layer>());
    for (const ref<resave_entity_service_impl>& service : services_) {
        const uint32_t count =
            count_from<&resave_entity_service_impl::meta_id_count>(service.get()).value_or(0);
        for (uint32_t index = 0; index < count; ++index) {
            const std::string meta_id = meta_id_of(service.get(), index);
            if (!meta_id.empty()) insert(meta_id, std::make_unique<factory_entity_service>(&service));
        }
    }
    initialised_ = true;
}

std::unique_ptr<Tvs_resave_unit> entity_factory::make(run_state& context, vs_entity* entity) {
    if (!initialised_) build_table();
    const char* meta_id = vs_entity_get_meta_id(entity);
    // The host's texts can be null.
    const auto row = by_meta_id_.find(meta_id ? meta_id : "");
    if (row == by_meta_id_.end()) return nullptr;
    // In order of priority, then of insertion.
    for (const auto& [priority, factory] : row->second)
        if (factory->accepts(entity)) return factory->make(context, entity);
    return nullptr;
}

} // namespace vs::project_resave
