#include "services/collect_services.h"

#include <algorithm>

#include "host/interfaces/service_visitor.h"
#include "host/vsk_basic.h"

namespace vs::project_resave {

namespace {

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

} // namespace vs::project_resave
