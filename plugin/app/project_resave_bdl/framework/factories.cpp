#include "framework/factories.h"

#include <algorithm>

namespace vs::project_resave {

std::vector<basic_service_factory_impl*>& factory_registry() {
    static std::vector<basic_service_factory_impl*> factories;
    return factories;
}

namespace {

void enlist(basic_service_factory_impl* factory) { factory_registry().push_back(factory); }

void strike_off(basic_service_factory_impl* factory) {
    auto& factories = factory_registry();
    const auto row = std::find(factories.begin(), factories.end(), factory);
    if (row != factories.end()) factories.erase(row);
}

} // namespace

custom_service_factory_impl::custom_service_factory_impl(wide_string factory_id)
    : basic_service_factory_impl(std::move(factory_id)) {
    enlist(this);
}
custom_service_factory_impl::~custom_service_factory_impl() { strike_off(this); }

custom_client_factory_impl::custom_client_factory_impl(wide_string factory_id)
    : basic_service_factory_impl(std::move(factory_id)) {
    enlist(this);
}
custom_client_factory_impl::~custom_client_factory_impl() { strike_off(this); }

} // namespace vs::project_resave
