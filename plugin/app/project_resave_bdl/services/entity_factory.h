// Creates units for elements that are claimed by their meta identifier, including those that other bundles
// claim. The tables of layer types are asked only if no factory here accepts the element. Main thread only.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/resave_unit.h"
#include "framework/border/ref.h"
#include "services/resave_entity_service.h"
#include "services/resave_service.h"

namespace vs::project_resave {

// The services by which bundles, including this one, take part in a resave.

using resave_services = std::vector<ref<resave_service_impl>>;
using resave_entity_services = std::vector<ref<resave_entity_service_impl>>;

// Append a ref to each service registered under "vestra/resave_project" or under no id, in the order in which
// the host finds them; services that are not yet running are started. An entity service that is already in
// the list is not appended again.
void collect_resave_services(resave_services& found);
void collect_resave_entity_services(resave_entity_services& found);

// Creates the units of one kind of element. Owned by the entity factory.
class factory_obj {
public:
    virtual ~factory_obj() = default;
    // Returns the priority among the factories of one meta identifier: the lowest is asked first; among equal
    // ones the first inserted. Called once.
    virtual int32_t priority() { return 0; }
    // True if the factory accepts this element; otherwise the next factory is asked.
    virtual bool accepts(vs_entity*) { return true; }
    // Returns the unit, not built yet; null if a layer is needed and the element is not one.
    virtual std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) = 0;
};

// Makes the unit of a layer on a grid cut along a line.
class factory_grid_cutline_lr2d : public factory_obj {
public:
    std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) override;
};

// Makes the unit of a layer of drawn graphics.
class factory_graphics_layer : public factory_obj {
public:
    std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) override;
};

// Makes the unit of an element that another bundle claims.
class factory_entity_service : public factory_obj {
public:
    // `row` is one of `entity_factory::services_`. The ref in it becomes null when its bundle is unloaded.
    explicit factory_entity_service(const ref<resave_entity_service_impl>* row) : service_(row) {}

    // Return what the service returns; without the service, 1 and false.
    int32_t priority() override;
    bool accepts(vs_entity* entity) override;
    std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) override;

private:
    const ref<resave_entity_service_impl>* service_;
};

// All factories, by meta identifier. Owned by the context of the runs, which asks it for each element of a
// loaded project.
class entity_factory final : public claimed_units {
public:
    // Collects the services of all bundles; services registered later are not found.
    entity_factory() { collect_resave_entity_services(services_); }
    entity_factory(const entity_factory&) = delete;
    entity_factory& operator=(const entity_factory&) = delete;

    // Returns the unit that the first accepting factory creates, owned by the caller and not built yet; null
    // if no factory accepts the element. The first call asks all services for the kinds they claim.
    std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) override;

private:
    void build_table();
    // Inserts a factory after those with the same meta identifier and priority.
    void insert(const std::string& meta_id, std::unique_ptr<factory_obj> factory);

    bool initialised_ = false; // the table is built on first use
    std::unordered_map<std::string, std::multimap<int32_t, std::unique_ptr<factory_obj>>> by_meta_id_;
    resave_entity_services services_; // complete before the table, which points to its rows, is built
};

} // namespace vs::project_resave
