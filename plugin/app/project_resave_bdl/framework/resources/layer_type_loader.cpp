// Collects the pictures of layer types from all services that define them.

#include "framework/resources/layer_type_loader.h"

#include <algorithm>
#include <memory>
#include <unordered_set>

#include "framework/border/encoding.h"
#include "framework/border/ref.h"
#include "host/interfaces/layer_type_service.h"
#include "host/interfaces/service_visitor.h"
#include "host/vsk_basic.h"
#include "host/vsk_lr.h"

namespace vs::project_resave {

namespace {

// In the order in which they were found. A service that is found under two ids counts once.
class layer_type_serivce final
    : public polymorphic<layer_type_service_visitor_impl, polymorphic<service_visitor_impl>> {
public:
    void visit(layer_type_service service) override {
        if (known_.insert(service.instance).second) services.emplace_back(service);
    }
    std::vector<ref<layer_type_service_impl>> services;

private:
    std::unordered_set<const void*> known_;
};

struct dib_destroyer {
    void operator()(vs_dib* dib) const { vs_dib_destroy(dib); }
};

platform::image read_picture(vs_dib* dib) {
    // A type may have no picture, and a picture no pixels.
    if (!dib || !vs_dib_get_bits(dib)) return {};
    const uint32_t width = vs_dib_get_width(dib), height = vs_dib_get_height(dib);
    const uint8_t* bits = vs_dib_get_bits(dib);
    const size_t pixels = size_t{width} * height;
    return {width, height, {bits, bits + 3 * pixels}, std::vector<uint8_t>(pixels, 255)};
}

} // namespace

std::vector<layer_type_bitmap> layer_type_loader::load(const std::vector<wide_string>& ids) {
    layer_type_serivce visitor;
    for (const wide_string& id : ids)
        vs_service_registry_with_services(
            id.c_str(), identity_of(static_cast<layer_type_service_visitor_impl&>(visitor)));

    std::vector<layer_type_bitmap> types;
    std::unordered_set<std::string> known;
    for (const auto& service : visitor.services) {
        const uint32_t count = call<&layer_type_service_impl::type_count>(service.get());
        for (uint32_t index = 0; index < count; ++index) {
            const char* type = call<&layer_type_service_impl::type_name>(service.get(), index);
            // The caller owns each picture, also one of a type that is already known.
            const std::unique_ptr<vs_dib, dib_destroyer> dib(
                call<&layer_type_service_impl::picture>(service.get(), index));
            if (type && known.insert(type).second)
                types.push_back({type, resource::masked_bitmap(read_picture(dib.get()))});
        }
    }
    return types;
}

int32_t layer_type_index(const std::vector<layer_type_bitmap>& types, vs_lr* layer) {
    if (!layer) return -1;
    const std::string_view type = narrow_or_empty(vs_lr_get_lr_type(layer));
    const auto row = std::find_if(types.begin(), types.end(),
                                  [&](const layer_type_bitmap& known) { return known.layer_type == type; });
    return row == types.end() ? -1 : static_cast<int32_t>(row - types.begin());
}

} // namespace vs::project_resave
