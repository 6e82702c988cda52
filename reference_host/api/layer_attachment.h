// Objects that the C functions create for a layer on first use and keep until the layer is destroyed.
#pragma once

#include <vector>

#include "host/interfaces/layout_legend_layer.h"
#include "host/interfaces/profile_compound_layer.h"
#include "reference_host/model/layer.h"

namespace vestra::api {

// The interfaces implemented here read the layer at each call, so they always show its current state. The
// layer owns its attachment, so what a bundle gets from it is valid as long as the layer.
class layer_attachment final {
public:
    explicit layer_attachment(layer& owner);
    layer_attachment(const layer_attachment&) = delete;
    layer_attachment& operator=(const layer_attachment&) = delete;

    // Return addresses of identity interfaces; each call returns the same address.
    const vs_interface_pointer* compound_profile() const { return &profile_identity_; }
    const vs_interface_pointer* layout_legend() const { return &legend_identity_; }

    // Returns the layer's extra values, in their order, as the record that bundles read. The next call
    // overwrites the record. Its keys and values are those of the layer and move when one is added.
    const vs_table_extra* extras(extra_table& values);

private:
    // The uuid texts of `layer::members`.
    class profile final : public vs::project_resave::profil_cmpnd_lr2d_impl {
    public:
        explicit profile(layer& owner) : layer_(owner) {}
        std::int32_t member_count() override;
        void member_uuid(std::int32_t index, vs::project_resave::string_visitor visitor) override;

    private:
        layer& layer_;
    };
    // The scene of `layer::legend`.
    class legend final : public vs::project_resave::layout_legend_layer_impl {
    public:
        explicit legend(layer& owner) : layer_(owner) {}
        vs_scn_2d* scene() override;

    private:
        layer& layer_;
    };

    profile profile_;
    legend legend_;
    // Members, because bundles get their addresses.
    vs_interface_pointer profile_identity_;
    vs_interface_pointer legend_identity_;
    // What `extras` returned last.
    std::vector<vs_table_extra_row> rows_;
    vs_table_extra table_{};
};

// Returns the attachment of a layer; creates it on first use. Most layers never get one, since bundles ask
// only some types for these interfaces.
layer_attachment& attachment_of(layer& owner);

} // namespace vestra::api
