// Layouts: pages for printing, 2D scenes whose layers are frames, images, texts and legends.
#pragma once

#include "core/resave_list.h"

namespace vs::project_resave {

class Tvs_resave_scns_layout final : public Tvs_resave_list {
public:
    // The collection is the project's.
    Tvs_resave_scns_layout(vs_scns_2d* handle, project_context& run)
        : Tvs_resave_list(run), layouts(handle) {}

    void build() override;
    void before_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    bool has_structure_content() override { return true; }
    void remove_child(uint32_t index) override;

private:
    vs_scns_2d* const layouts;
};

// Has one place more than the layout has layers: the last is for the page, and empty without one.
class Tvs_resave_scn_layout final : public Tvs_resave_list {
public:
    Tvs_resave_scn_layout(vs_scn_2d* handle, project_context& run) : Tvs_resave_list(run), layout(handle) {}

    void build() override;
    // Texts, plain legends and the like have no unit, but a line.
    void on_missing_child(uint32_t index) override;
    vs_entities* container() override;
    wide_string heading() override;
    bool has_structure_content() override;
    void remove_child(uint32_t index) override;

private:
    std::unique_ptr<Tvs_resave_unit> make_unit(vs_lr* layer);
    std::unique_ptr<Tvs_resave_unit> make_legend(vs_lr* layer);

    vs_scn_2d* const layout;
};

} // namespace vs::project_resave
