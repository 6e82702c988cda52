// Pictures of the bundle's resources, decoded, in the form in which they cross the border.
#pragma once

#include "framework/resources/strings.h"
#include "host/interfaces/masked_bitmap.h"
#include "platform/resources.h"

namespace vs::project_resave::resource {

// Owns one decoded picture; one that was not found has width 0 and calls no visitor.
class masked_bitmap final : public masked_bitmap_impl {
public:
    masked_bitmap() = default;
    explicit masked_bitmap(platform::image decoded);

    uint32_t width() override { return picture_.width; }
    uint32_t height() override { return picture_.height; }
    void visit_pixels(thrice_interleaved_bytes_visitor visitor) override;
    void visit_mask(bytes_visitor visitor) override;

private:
    platform::image picture_; // bottom-up, unlike what was decoded
};

} // namespace vs::project_resave::resource

namespace vs::project_resave {

// A colour of a picture's background, as red, green, blue.
struct mask_colour {
    uint8_t red, green, blue;
};

// The picture in the present language, else in the base one; through the localizer if there is one, like
// texts. A whole bitmap is opaque; with a mask colour the pixels of that colour are transparent.
// Kept for other bundles; nothing here calls it.
resource::masked_bitmap load_bitmap(const string_key& key);
resource::masked_bitmap load_bitmap_with_mask(const string_key& key, const mask_colour& transparent);
// An icon, or failing that a cursor, with its own mask.
// Kept for other bundles; nothing here calls it.
resource::masked_bitmap load_icon(const string_key& key);

} // namespace vs::project_resave
