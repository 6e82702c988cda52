// Units for elements that are claimed by their meta identifier, those of other bundles among them. The tables
// of layer types are asked only for what no factory here takes. Main thread only.
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

// Finds the services by which all bundles take part, this one's own among them.

using resave_services = std::vector<ref<resave_service_impl>>;
using resave_entity_services = std::vector<ref<resave_entity_service_impl>>;

// Append a ref to each service that is registered under "vestra/resave_project" or under no id, in the order
// in which the host finds them; services that do not run yet are started. An entity service that is in the
// list already is not appended a second time.
void collect_resave_services(resave_services& found);
void collect_resave_entity_services(resave_entity_services& found);

// Makes the units of one kind of element. Owned by the entity factory.
class factory_obj {
public:
    virtual ~factory_obj() = default;
    // Returns the place among the factories of one meta identifier: the lowest is asked first, of equal ones
    // the first inserted. Called once.
    virtual int32_t priority() { return 0; }
    // True if the factory takes this element; false passes it on to the next one.
    virtual bool accepts(vs_entity*) { return true; }
    // Returns the unit, not built yet; null if the element is no layer, where a layer is needed.
    virtual std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) = 0;
};

// A layer on a grid cut along a line.
class factory_grid_cutline_lr2d : public factory_obj {
public:
    std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) override;
};

// A layer of drawn graphics.
class factory_graphics_layer : public factory_obj {
public:
    std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) override;
};

// A kind of element that another bundle claims.
class factory_entity_service : public factory_obj {
public:
    // `row` is one of `entity_factory::services_`. It becomes null when its bundle goes.
    explicit factory_entity_service(const ref<resave_entity_service_impl>* row) : service_(row) {}

    // Returns what the service returns; without the service 1 and false.
    int32_t priority() override;
    bool accepts(vs_entity* entity) override;
    std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) override;

private:
    const ref<resave_entity_service_impl>* service_;
};

// Owned by the context of the runs, which asks it for each element of a loaded project.
class entity_factory final : public claimed_units {
public:
    // Collects the services of all bundles; those registered later are not seen.
    entity_factory() { collect_resave_entity_services(services_); }
    entity_factory(const entity_factory&) = delete;
    entity_factory& operator=(const entity_factory&) = delete;

    // Returns what the first factory that accepts the element makes, the caller's and not built yet; null if
    // no factory accepts it. The first call asks all services for the kinds they claim.
    std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) override;

private:
    void build_table();
    // Puts a factory after those of the same meta identifier and priority.
    void insert(const std::string& meta_id, std::unique_ptr<factory_obj> factory);

    bool initialised_ = false; // the table is built when it is first needed
    std::unordered_map<std::string, std::multimap<int32_t, std::unique_ptr<factory_obj>>> by_meta_id_;
    resave_entity_services services_; // complete before the table is built; it points to the rows
};

} // namespace vs::project_resave
