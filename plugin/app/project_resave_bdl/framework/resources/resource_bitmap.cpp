// Decodes pictures and passes them across the border. Rows are stored from the bottom up and passed from the
// top down with a negative stride, which receivers must handle.

#include "framework/resources/resource_bitmap.h"

#include <algorithm>
#include <utility>

#include "host/vsk_basic.h"

namespace vs::project_resave {

namespace {

constexpr size_t colour_bytes = 3;

// Copies a plane, received row by row starting with the first one, into a top-down buffer without padding.
template <class Visitor, size_t Bytes>
class plane_reader final : public Visitor {
public:
    explicit plane_reader(std::vector<uint8_t>& plane) : target_(plane) {}
    void visit(const uint8_t* row, int32_t stride, uint32_t width, uint32_t height) override {
        for (uint32_t y = 0; y < height; ++y, row += stride)
            target_.insert(target_.end(), row, row + Bytes * width);
    }

private:
    std::vector<uint8_t>& target_;
};

// Copies the picture that the localizer passes.
class picture_taker final : public masked_bitmap_visitor_impl {
public:
    explicit picture_taker(platform::image& target) : picture_(target) {}
    void visit(masked_bitmap given) override {
        picture_ = {
            call<&masked_bitmap_impl::width>(given), call<&masked_bitmap_impl::height>(given), {}, {}};
        plane_reader<thrice_interleaved_bytes_visitor_impl, colour_bytes> colour(picture_.colour);
        plane_reader<bytes_visitor_impl, 1> mask(picture_.mask);
        call<&masked_bitmap_impl::visit_pixels>(given,
                                                pointer_to<thrice_interleaved_bytes_visitor_impl>(colour));
        call<&masked_bitmap_impl::visit_mask>(given, pointer_to<bytes_visitor_impl>(mask));
    }

private:
    platform::image& picture_;
};

using loader = bool (*)(platform::module_handle, uint32_t, platform::image&);

platform::image find_picture(const string_key& key, loader load) {
    platform::image picture;
    if (const localizer found = current_localizer()) {
        picture_taker taker(picture);
        call<&localizer_impl::bitmap>(found, key.module.value, key.id,
                                      pointer_to<masked_bitmap_visitor_impl>(taker));
        const size_t pixels = size_t{picture.width} * picture.height;
        // A localizer of another library may pass planes of other sizes than it reported.
        if (picture.colour.size() != colour_bytes * pixels || picture.mask.size() != pixels) picture = {};
    } else if (!load(key.module, key.id + vs_res_get_lng(), picture)) {
        load(key.module, key.id, picture);
    }
    return picture;
}

void reverse_rows(std::vector<uint8_t>& plane, size_t row_bytes, uint32_t height) {
    for (size_t upper = 0, lower = height; upper + 1 < lower; ++upper)
        std::swap_ranges(plane.begin() + static_cast<ptrdiff_t>(upper * row_bytes),
                         plane.begin() + static_cast<ptrdiff_t>((upper + 1) * row_bytes),
                         plane.begin() + static_cast<ptrdiff_t>(--lower * row_bytes));
}

// The pointer is at the last row in memory, which is the top one, and the stride leads backwards.
template <class Impl>
void hand_over(const std::vector<uint8_t>& plane, size_t row_bytes, uint32_t width, uint32_t height,
               const interface_to<Impl>& visitor) {
    if (width == 0 || height == 0) return;
    call<&Impl::visit>(visitor, plane.data() + row_bytes * (height - 1), -static_cast<int32_t>(row_bytes),
                       width, height);
}

} // namespace

resource::masked_bitmap::masked_bitmap(platform::image decoded) : picture_(std::move(decoded)) {
    reverse_rows(picture_.colour, colour_bytes * picture_.width, picture_.height);
    reverse_rows(picture_.mask, picture_.width, picture_.height);
}

void resource::masked_bitmap::visit_pixels(thrice_interleaved_bytes_visitor visitor) {
    hand_over(picture_.colour, colour_bytes * picture_.width, picture_.width, picture_.height, visitor);
}

void resource::masked_bitmap::visit_mask(bytes_visitor visitor) {
    hand_over(picture_.mask, picture_.width, picture_.width, picture_.height, visitor);
}

resource::masked_bitmap load_bitmap(const string_key& key) {
    return resource::masked_bitmap(find_picture(key, &platform::load_image));
}

resource::masked_bitmap load_bitmap_with_mask(const string_key& key, const mask_colour& transparent) {
    platform::image picture = find_picture(key, &platform::load_image);
    for (size_t pixel = 0; pixel < picture.mask.size(); ++pixel) {
        const uint8_t* colour = &picture.colour[colour_bytes * pixel]; // blue, green, red
        if (colour[0] == transparent.blue && colour[1] == transparent.green && colour[2] == transparent.red)
            picture.mask[pixel] = 0;
    }
    return resource::masked_bitmap(std::move(picture));
}

resource::masked_bitmap load_icon(const string_key& key) {
    return resource::masked_bitmap(find_picture(key, &platform::load_icon_image));
}

} // namespace vs::project_resave
