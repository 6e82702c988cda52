// Pictures from the bundle's resources, decoded, in the form in which they cross the border. Main thread
// only.
#pragma once

#include "framework/resources/strings.h"
#include "host/interfaces/masked_bitmap.h"
#include "platform/resources.h"

namespace vs::project_resave::resource {

// Owns one decoded picture. A picture that was not found has width 0 and calls no visitor. Visitors get a
// pointer to the top row and a negative stride, valid for the call.
class masked_bitmap final : public masked_bitmap_impl {
public:
    masked_bitmap() = default;
    // Takes a decoded picture, with its rows from the top down and both planes of its size.
    explicit masked_bitmap(platform::image decoded);

    uint32_t width() override { return picture_.width; }
    uint32_t height() override { return picture_.height; }
    void visit_pixels(thrice_interleaved_bytes_visitor visitor) override;
    void visit_mask(bytes_visitor visitor) override;

private:
    platform::image picture_; // rows from the bottom up
};

} // namespace vs::project_resave::resource

namespace vs::project_resave {

// The background colour of a picture, which becomes transparent. Only pixels of exactly this colour do.
struct mask_colour {
    uint8_t red, green, blue;
};

// Return the picture in the current language, else in the base language; or from the localizer if there is
// one, like texts. The picture is opaque; with a mask colour, the pixels of that colour are transparent. It
// is decoded at each call. `load_bitmap` is kept for other bundles; nothing here calls it.
resource::masked_bitmap load_bitmap(const string_key& key);
resource::masked_bitmap load_bitmap_with_mask(const string_key& key, const mask_colour& transparent);
// Returns an icon with its mask, or a cursor if there is no such icon. Kept for other bundles; nothing here
// calls it.
resource::masked_bitmap load_icon(const string_key& key);

} // namespace vs::project_resave
