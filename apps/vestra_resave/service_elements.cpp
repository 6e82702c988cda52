// Elements that other bundles store in a project, and the files that they report for elements.
#include <utility>

#include "apps/vestra_resave/elements.h"
#include "core/layer_group_writer.h"
#include "operations/project_context.h"
#include "platform/path_text.h"
#include "services/entity_factory.h"
#include "services/resave_entity_plugin.h"
#include "services/service_answers.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

element service_item(const resave_service& service, uint32_t index, bool selectable) {
    element shown;
    shown.kind = "item";
    shown.type = text_from<&resave_service_impl::caption>(service);
    shown.caption = text_from<&resave_service_impl::item_caption>(service, index);
    shown.uuid = uuid_to_text(call<&resave_service_impl::item_uuid>(service, index));
    shown.selectable = selectable && !shown.uuid.empty();
    refer_to(shown, text_from<&resave_service_impl::item_source>(service, index));
    const wide_string_list files;
    call<&resave_service_impl::item_files>(service, index, files);
    for (const wide_string& file : files.texts()) {
        // The source of an item can be among its files, too.
        if (path_same(file, shown.file)) continue;
        element& member = shown.children.emplace_back();
        member.kind = "file";
        member.caption = path_file_name(file);
        refer_to(member, file);
    }
    return shown;
}

// Adds what a bundle stores in the project, under the heading of its service.
void add_service(std::vector<element>& all, const resave_service& service) {
    const bool selectable = call<&resave_service_impl::shows_in_selection>(service);
    element heading;
    heading.kind = "collection";
    heading.caption = text_from<&resave_service_impl::tree_caption>(service);
    const bool has_heading = call<&resave_service_impl::has_own_heading>(service);
    // Items of a service without a heading are shown among the collections.
    std::vector<element>& items = has_heading ? heading.children : all;
    // No count means an impossible one, which the run reports.
    const uint32_t count = count_from<&resave_service_impl::item_count>(service).value_or(0);
    for (uint32_t index = 0; index < count; ++index)
        items.push_back(service_item(service, index, selectable));
    if (has_heading) all.push_back(std::move(heading));
}

void add_claimed_files(project_context& context, entity_factory& kinds, const element& owner,
                       std::vector<element>& all) {
    // Made for this question only; the unit of the tree belongs to the run.
    const auto unit = owner.entity ? kinds.make(context, owner.entity) : nullptr;
    if (auto* const claimed = dynamic_cast<resave_entity_plugin*>(unit.get()))
        for (wide_string& path : claimed->named_files()) {
            element& file = all.emplace_back();
            file.kind = "file";
            file.caption = owner.caption;
            refer_to(file, std::move(path));
        }
    for (const element& member : owner.children) add_claimed_files(context, kinds, member, all);
}

} // namespace

std::vector<element> kept_by_services(project_context& context) {
    std::vector<element> all;
    if (context.services)
        for (const ref<resave_service_impl>& service : *context.services) add_service(all, service.get());
    return all;
}

std::vector<element> files_of_services(project_context& context) {
    std::vector<element> all;
    resave_entity_services services;
    collect_resave_entity_services(services);
    if (services.empty()) return all;
    entity_factory kinds;
    for (const element& each : elements_of(context)) add_claimed_files(context, kinds, each, all);
    return all;
}

} // namespace vestra::command
