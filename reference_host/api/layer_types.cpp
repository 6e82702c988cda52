// The built-in layer types with their pictures, which are drawn pixel by pixel.
#include "reference_host/api/layer_types.h"

#include <array>
#include <cmath>
#include <cstdlib>

#include "framework/border/polymorphic.h"
#include "framework/border/ref.h"
#include "host/interfaces/layer_type_service.h"
#include "reference_host/api/handles.h"
#include "reference_host/api/objects.h"

namespace vestra::api {

using namespace vs::project_resave;

namespace {

constexpr int side = 16; // of a picture, in pixels

struct colour {
    std::uint8_t blue, green, red;
};
// The background. Bundles see it as part of the picture, since the pictures have no mask.
constexpr colour paper{255, 255, 255};

// Returns the colour of a pixel. Drawn by code, so that the host needs no files.
using painter = colour (*)(int x, int y);

colour point_at(int x, int y) {
    const auto is_near = [=](int dot_x, int dot_y) { return std::abs(x - dot_x) + std::abs(y - dot_y) < 3; };
    return is_near(4, 5) || is_near(11, 4) || is_near(8, 11) ? colour{40, 40, 190} : paper;
}

colour line_at(int x, int y) {
    const int height = x < 6 ? 13 - 3 * x / 2 : x < 10 ? x - 1 : 26 - 2 * x + x / 6;
    return std::abs(y - height) < 2 ? colour{180, 90, 20} : paper;
}

colour polygon_at(int x, int y) {
    const int away = std::abs(2 * x - 15) + std::abs(2 * y - 15);
    return away > 14 ? paper : away > 10 ? colour{50, 120, 40} : colour{170, 220, 160};
}

colour raster_at(int x, int y) {
    const auto grey = static_cast<std::uint8_t>(70 + (x / 4 * 5 + y / 4 * 7) % 6 * 30);
    return {grey, grey, grey};
}

colour grid_at(int x, int y) {
    if (x % 5 == 0 || y % 5 == 0) return {110, 110, 110};
    return {static_cast<std::uint8_t>(90 + 8 * y), 200, static_cast<std::uint8_t>(90 + 10 * x)};
}

colour surface_at(int x, int y) {
    const int ring = static_cast<int>(std::hypot(x - 6.0, 1.4 * (y - 8.0)));
    return ring % 3 == 0 && ring < 13 ? colour{40, 100, 160} : paper;
}

colour page_at(int x, int y) {
    if (x < 2 || x > 13) return paper;
    return x == 2 || x == 13 || y == 0 || y == 15 || y % 4 == 3 ? colour{120, 90, 60} : paper;
}

struct layer_type {
    const char* name;
    painter paint;
};

// Types without a row have no picture; their layers work like others.
constexpr std::array known_types{layer_type{"shp_pnt_lr2d", &point_at},
                                 layer_type{"shp_pln_lr2d", &line_at},
                                 layer_type{"shp_pgn_lr2d", &polygon_at},
                                 layer_type{"shp_pnt_lr3d", &point_at},
                                 layer_type{"shp_pln_lr3d", &line_at},
                                 layer_type{"shp_pgn_lr3d", &polygon_at},
                                 layer_type{"vector_point_lr2d", &point_at},
                                 layer_type{"vector_multipoint_lr2d", &point_at},
                                 layer_type{"vector_polyline_lr2d", &line_at},
                                 layer_type{"vector_polygon_lr2d", &polygon_at},
                                 layer_type{"vector_lr2d", &line_at},
                                 layer_type{"rtr_lr2d", &raster_at},
                                 layer_type{"tld_lr2d", &raster_at},
                                 layer_type{"wms_lr2d", &raster_at},
                                 layer_type{"grid_lr2d", &grid_at},
                                 layer_type{"grid_cutline_lr2d", &grid_at},
                                 layer_type{"tos_grid_lr2d", &grid_at},
                                 layer_type{"tos_grid_lr3d", &grid_at},
                                 layer_type{"tos_2crd_lr2d", &surface_at},
                                 layer_type{"tos_3crd_lr3d", &surface_at},
                                 layer_type{"tos_slice_lr2d", &surface_at},
                                 layer_type{"tos_surf_lr3d", &surface_at},
                                 layer_type{"map_lr3d", &raster_at},
                                 layer_type{"segy_lr3d", &raster_at},
                                 layer_type{"graph_lr2d", &page_at},
                                 layer_type{"prf_compound_lr2d", &page_at},
                                 layer_type{"prf_lines_lr2d", &line_at}};

class type_service final : public referent<polymorphic<layer_type_service_impl>> {
public:
    uint32_t type_count() override { return static_cast<uint32_t>(known_types.size()); }
    const char* type_name(uint32_t index) override {
        return index < known_types.size() ? known_types[index].name : nullptr;
    }
    vs_dib* picture(uint32_t index) override {
        if (index >= known_types.size()) return nullptr;
        auto made = std::make_unique<api::picture>();
        made->width = made->height = side;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                const colour dot = known_types[index].paint(x, y);
                made->bits.insert(made->bits.end(), {dot.blue, dot.green, dot.red});
            }
        // The caller destroys it by vs_dib_destroy.
        return to_handle<vs_dib>(made.release());
    }
};

} // namespace

class layer_types::factory final : public service_factory_impl {
public:
    identity_pointer create(bundle_context) override {
        return identity_of(static_cast<const interface_pointer&>(service_.get()));
    }

private:
    const ref<layer_type_service_impl> service_{pointer_to<layer_type_service_impl>(*new type_service)};
};

layer_types::layer_types() : factory_(std::make_unique<factory>()) {}

layer_types::~layer_types() = default;

void layer_types::add_to(shell::service_registry& registry) {
    for (const wide_view id : {u"vestra/scene/2d", u"vestra/scene/3d"})
        // Both ids get the same service, which has the types of both kinds of scenes.
        registry.add(id, pointer_to<service_factory_impl>(*factory_), {});
}

} // namespace vestra::api
