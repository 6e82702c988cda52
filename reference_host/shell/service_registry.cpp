// The registry of services: creates services on first request and passes them to visitors of their kind.
#include "reference_host/shell/service_registry.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <utility>

namespace vestra::shell {

using namespace vs::project_resave;

namespace {

service_registry* registry_in_force = nullptr;

// A kind of service: the name of its interface and the name of the interface of its visitors.
struct service_kind {
    service_kind(const std::string& subject, const std::string& version)
        : service("vs_" + subject + "_interface_" + version),
          visitor("vs_" + subject + "_visitor_interface_" + version) {}

    std::string service;
    std::string visitor;
};

// A visitor that implements none of these kinds receives nothing. A new kind of service needs a row.
const std::array<service_kind, 6>& known_kinds() {
    static const std::array<service_kind, 6> kinds{{{"resave_service", "5"},
                                                    {"resave_entity_service", "1"},
                                                    {"localizer_service", "1"},
                                                    {"modal_dialog_service", "102"},
                                                    {"layer_type_service", "1"},
                                                    {"custom_app_service", "79"}}};
    return kinds;
}

// Every visitor interface has one operation after those of identity and base; it receives the service.
void tell_visitor(const interface_pointer& visitor, const interface_pointer& service) {
    using visit_entry = void (*)(const void* table, void* instance, interface_pointer service);
    constexpr std::size_t first_operation = 2;
    static_cast<const visit_entry*>(visitor.table)[first_operation](visitor.table, visitor.instance, service);
}

} // namespace

service_registry::service_registry() : previous_(std::exchange(registry_in_force, this)) {}

service_registry::~service_registry() {
    release_services();
    registry_in_force = previous_;
}

void service_registry::add(wide_view id, const service_factory_pointer& factory,
                           const bundle_context& context) {
    if (factory)
        offers_.push_back(std::make_shared<offer>(offer{wide_string(id), factory, context, false, {}}));
}

void service_registry::ask(const std::shared_ptr<offer>& wanted) {
    // Noted before the call, because a service that is being created may visit services itself.
    if (std::exchange(wanted->asked, true)) return;
    const identity_pointer service = call<&service_factory_impl::create>(wanted->factory, wanted->context);
    if (!service) return;
    wanted->service.assign(service);
    made_.push_back(wanted);
}

void service_registry::start_clients() {
    // A copy, because creating a service may register or remove factories.
    const auto offers = offers_;
    for (const auto& wanted : offers)
        if (wanted->id.empty()) ask(wanted);
}

void service_registry::visit_services(wide_view id, const identity_pointer& visitor) {
    // The kinds that the visitor receives; it gets a service once for each of them.
    std::vector<std::pair<const service_kind*, interface_pointer>> wanted;
    for (const service_kind& kind : known_kinds())
        if (const auto speaks = query_name(visitor, kind.visitor.c_str())) wanted.emplace_back(&kind, speaks);

    const auto offers = offers_;
    for (const auto& offered : offers) {
        if (wanted.empty() || (offered->id != id && !offered->id.empty())) continue;
        ask(offered);
        for (const auto& [kind, speaks] : wanted)
            if (const auto service = query_name(offered->service.get(), kind->service.c_str()))
                tell_visitor(speaks, service);
    }
}

wide_string service_registry::fault_of(wide_view id, const bundle_context& context, bool must_have_one) {
    bool has_service = false;
    const auto offers = offers_;
    for (const auto& offered : offers) {
        if (offered->context != context || (offered->id != id && !offered->id.empty())) continue;
        ask(offered);
        const identity_pointer service = offered->service.get();
        const bool is_known = std::ranges::any_of(known_kinds(), [&](const service_kind& kind) {
            return static_cast<bool>(query_name(service, kind.service.c_str()));
        });
        has_service = has_service || is_known;
        if (is_known || offered->id.empty()) continue; // without an id a bundle may only use other services
        return service ? u"one of its services has a version that this program does not know"
                       : u"one of its services could not be started";
    }
    return has_service || !must_have_one ? u"" : u"it has no service for a resave";
}

void service_registry::release_services() { release_services_of(nullptr); }

void service_registry::release_services_of(const bundle_context* context) {
    // Taken out before the first release, because the end of a service may release others.
    const auto made = std::exchange(made_, {});
    const auto is_meant = [&](const auto& row) { return !context || row->context == *context; };
    std::ranges::remove_copy_if(made, std::back_inserter(made_), is_meant);
    for (auto row = made.rbegin(); row != made.rend(); ++row)
        if (is_meant(*row)) (*row)->service.reset();
}

void service_registry::remove(const bundle_context& context) {
    release_services_of(&context);
    for (const auto& row : offers_)
        if (row->context == context) row->asked = true; // so that a visit in progress does not use it
    std::erase_if(offers_, [&](const auto& row) { return row->context == context; });
}

void visit_services(wide_view id, const identity_pointer& visitor) {
    if (registry_in_force) registry_in_force->visit_services(id, visitor);
}

} // namespace vestra::shell
