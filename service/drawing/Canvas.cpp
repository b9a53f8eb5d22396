#include "service/drawing/Canvas.h"

#include <cairo-pdf.h>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace disclosure::drawing {

namespace {

constexpr auto Font = "Noto Sans CJK SC";
constexpr double PixelsOfPoint = 2;

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int size) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), size);
    return CAIRO_STATUS_SUCCESS;
}

cairo_surface_t* surfaceFor(Form form, double width, double height, std::string& bytes) {
    if (form == Form::Pdf)
        return cairo_pdf_surface_create_for_stream(append, &bytes, width, height);
    return cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width * PixelsOfPoint),
                                      static_cast<int>(height * PixelsOfPoint));
}

}  // namespace

Canvas::Canvas(Form form, double width, double height, const std::string& title)
    : m_form(form), m_surface(surfaceFor(form, width, height, m_bytes)), m_cairo(cairo_create(m_surface.get())) {
    cairo_t* cairo = m_cairo.get();
    if (form == Form::Pdf) {
        cairo_pdf_surface_set_metadata(m_surface.get(), CAIRO_PDF_METADATA_TITLE, title.c_str());
    } else {
        cairo_scale(cairo, PixelsOfPoint, PixelsOfPoint);
        cairo_set_source_rgb(cairo, 1, 1, 1);
        cairo_paint(cairo);
        cairo_set_source_rgb(cairo, 0, 0, 0);
    }
    cairo_select_font_face(cairo, Font, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
}

void Canvas::text(double x, double y, double size, const std::string& text, Align align) {
    cairo_set_font_size(m_cairo.get(), size);
    if (align == Align::Middle) {
        cairo_text_extents_t extents;
        cairo_text_extents(m_cairo.get(), text.c_str(), &extents);
        x -= extents.x_advance / 2;
    }
    cairo_move_to(m_cairo.get(), x, y);
    cairo_show_text(m_cairo.get(), text.c_str());
}

void Canvas::line(double x1, double y1, double x2, double y2, double width) {
    cairo_set_line_width(m_cairo.get(), width);
    cairo_move_to(m_cairo.get(), x1, y1);
    cairo_line_to(m_cairo.get(), x2, y2);
    cairo_stroke(m_cairo.get());
}

void Canvas::box(double x, double y, double width, double height, bool filled) {
    cairo_set_line_width(m_cairo.get(), Thin);
    cairo_rectangle(m_cairo.get(), x, y, width, height);
    filled ? cairo_fill(m_cairo.get()) : cairo_stroke(m_cairo.get());
}

void Canvas::circle(double x, double y, double radius) {
    cairo_set_line_width(m_cairo.get(), Thin);
    cairo_arc(m_cairo.get(), x, y, radius, 0, 2 * std::numbers::pi);
    cairo_stroke(m_cairo.get());
}

void Canvas::measure(double x1, double y1, double x2, double y2, const std::string& words) {
    constexpr double Tick = 3;
    constexpr double Size = 7;
    line(x1, y1, x2, y2);
    for (const auto& [x, y] : {std::pair{x1, y1}, {x2, y2}})
        line(x - Tick, y + Tick, x + Tick, y - Tick, Thick);
    cairo_save(m_cairo.get());
    cairo_translate(m_cairo.get(), (x1 + x2) / 2, (y1 + y2) / 2);
    if (x1 == x2)
        cairo_rotate(m_cairo.get(), -std::numbers::pi / 2);
    text(0, -Tick, Size, words, Align::Middle);
    cairo_restore(m_cairo.get());
}

void Canvas::area(const std::vector<std::pair<double, double>>& corners, double grey) {
    cairo_new_path(m_cairo.get());
    for (const auto& [x, y] : corners)
        cairo_line_to(m_cairo.get(), x, y);
    cairo_close_path(m_cairo.get());
    cairo_set_source_rgb(m_cairo.get(), grey, grey, grey);
    cairo_fill_preserve(m_cairo.get());
    cairo_set_source_rgb(m_cairo.get(), 0, 0, 0);
    cairo_set_line_width(m_cairo.get(), Thin);
    cairo_stroke(m_cairo.get());
}

void Canvas::nextPage() {
    cairo_show_page(m_cairo.get());
}

std::string Canvas::finish() {
    if (m_form == Form::Png)
        cairo_surface_write_to_png_stream(m_surface.get(), append, &m_bytes);
    const cairo_status_t drawn = cairo_status(m_cairo.get());
    m_cairo.reset();
    cairo_surface_finish(m_surface.get());
    const cairo_status_t written = cairo_surface_status(m_surface.get());
    if (drawn != CAIRO_STATUS_SUCCESS || written != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(std::string("cannot draw: ") + cairo_status_to_string(drawn ? drawn : written));
    return m_bytes;
}

}  // namespace disclosure::drawing
