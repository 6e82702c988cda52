#include "services/collect_services.h"

#include "host/interfaces/service_visitor.h"
#include "host/vsk_basic.h"

namespace vs::project_resave {

namespace {

class resave_service_visitor final
    : public polymorphic<resave_service_visitor_impl, polymorphic<service_visitor_impl>> {
public:
    explicit resave_service_visitor(resave_services& target) : services(target) {}
    void visit(resave_service service) override { services.emplace_back(service); }

private:
    resave_services& services;
};

} // namespace

void collect_resave_services(resave_services& found) {
    resave_service_visitor visitor(found);
    vs_service_registry_with_services(u"vestra/resave_project",
                                      identity_of(static_cast<resave_service_visitor_impl&>(visitor)));
}

} // namespace vs::project_resave
