#include "ui/toolkit/tool.h"

#include "framework/resources/resource_bitmap.h"
#include "framework/resources/strings.h"

namespace vs::project_resave::toolkit {

void tell_picture(const masked_bitmap_visitor& visitor, uint32_t number) {
    constexpr mask_colour magenta{0xFF, 0, 0xFF};
    resource::masked_bitmap picture = load_bitmap_with_mask({platform::own_module(), number}, magenta);
    call<&masked_bitmap_visitor_impl::visit>(visitor, pointer_to<masked_bitmap_impl>(picture));
}

void tool::caption(string_visitor visitor) { localized_text({platform::own_module(), number_}, visitor); }

} // namespace vs::project_resave::toolkit
