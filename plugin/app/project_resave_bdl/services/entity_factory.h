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

// Append each service that runs under "vestra/resave_project", in the order in which the host tells them. An
// entity service that is held already is not taken a second time.
void collect_resave_services(resave_services& found);
void collect_resave_entity_services(resave_entity_services& found);

// Units for elements that are told by their meta identifier, those of other bundles among them. Asked before
// the tables of layer types, so what is found here always wins over them.
// Makes the units of one kind of element.
class factory_obj {
public:
    virtual ~factory_obj() = default;
    // Of the factories of one meta identifier the one with the lowest is asked first.
    virtual int32_t priority() { return 0; }
    // A finer look at the element; false passes it on to the next factory.
    virtual bool accepts(vs_entity*) { return true; }
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
    // The row is one of `entity_factory::services_`. It is null once its bundle has gone.
    explicit factory_entity_service(const ref<resave_entity_service_impl>* row) : service_(row) {}

    int32_t priority() override;
    bool accepts(vs_entity* entity) override;
    std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) override;

private:
    const ref<resave_entity_service_impl>* service_;
};

class entity_factory final : public claimed_units {
public:
    // Collects the services that run now; those that come later are not seen.
    entity_factory() { collect_resave_entity_services(services_); }
    entity_factory(const entity_factory&) = delete;
    entity_factory& operator=(const entity_factory&) = delete;

    // The unit of the first factory that accepts the element; null if none does. It is not built yet, and the
    // caller places it.
    std::unique_ptr<Tvs_resave_unit> make(run_state& context, vs_entity* entity) override;

private:
    void build_table();
    void insert(const std::string& meta_id, std::unique_ptr<factory_obj> factory);

    bool initialised_ = false; // the table is built when it is needed first
    std::unordered_map<std::string, std::multimap<int32_t, std::unique_ptr<factory_obj>>> by_meta_id_;
    resave_entity_services services_; // complete before the table is built; it points to the rows
};

} // namespace vs::project_resave
