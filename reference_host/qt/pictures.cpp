// Converts bitmaps with a mask into icons.
#include "reference_host/qt/pictures.h"

#include <QImage>
#include <QPixmap>

namespace vestra::qt {

using namespace vs::project_resave;

namespace {

constexpr int densest = 4; // highest screen density, in screen pixels for one picture pixel

// A picture of a broken bundle must not take all memory.
int sized(uint32_t size) { return static_cast<int>(std::min<uint32_t>(size, 4096)); }

// Calls `set` for each pixel with its bytes.
template <class Set>
void each_pixel(QImage& image, const uint8_t* row, int32_t stride, int bytes, const Set& set) {
    // The stride can be negative: rows may be stored from the bottom up.
    for (int y = 0; y < image.height(); ++y, row += stride)
        for (int x = 0; x < image.width(); ++x)
            set(reinterpret_cast<QRgb*>(image.scanLine(y))[x], row + x * bytes);
}

struct colours final : thrice_interleaved_bytes_visitor_impl {
    explicit colours(QImage& filled) : image(filled) {}
    void visit(const uint8_t* row, int32_t stride, uint32_t width, uint32_t height) override {
        // The colours come first and make the image; without a mask it stays opaque.
        image = QImage(sized(width), sized(height), QImage::Format_ARGB32);
        each_pixel(image, row, stride, 3,
                   [](QRgb& pixel, const uint8_t* bgr) { pixel = qRgb(bgr[2], bgr[1], bgr[0]); });
    }
    QImage& image;
};

struct mask final : bytes_visitor_impl {
    explicit mask(QImage& filled) : image(filled) {}
    void visit(const uint8_t* row, int32_t stride, uint32_t width, uint32_t height) override {
        // A mask of another size than the colours is ignored.
        if (image.width() != sized(width) || image.height() != sized(height)) return;
        each_pixel(image, row, stride, 1, [](QRgb& pixel, const uint8_t* opacity) {
            pixel = qRgba(qRed(pixel), qGreen(pixel), qBlue(pixel), *opacity);
        });
    }
    QImage& image;
};

struct picture final : masked_bitmap_visitor_impl {
    void visit(masked_bitmap shown) override {
        if (call<&masked_bitmap_impl::width>(shown) == 0) return;
        colours filled(image);
        call<&masked_bitmap_impl::visit_pixels>(shown,
                                                pointer_to<thrice_interleaved_bytes_visitor_impl>(filled));
        mask masked(image);
        call<&masked_bitmap_impl::visit_mask>(shown, pointer_to<bytes_visitor_impl>(masked));
    }
    QImage image;
};

} // namespace

QIcon icon_told(const std::function<void(masked_bitmap_visitor visitor)>& tells) {
    picture told;
    tells(pointer_to<masked_bitmap_visitor_impl>(told));
    QIcon icon;
    if (told.image.isNull()) return icon;
    for (int density = 1; density <= densest; ++density) {
        QPixmap pixmap = QPixmap::fromImage(
            // Pixel by pixel: smoothing would blur pictures of 16 pixels.
            told.image.scaled(told.image.size() * density, Qt::IgnoreAspectRatio, Qt::FastTransformation));
        pixmap.setDevicePixelRatio(density);
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace vestra::qt
