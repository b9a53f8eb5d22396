#pragma once

#include <cairo.h>
#include <memory>
#include <string>

#include "service/drawing/Drawing.h"

namespace disclosure::drawing {

/// One drawing while it is made. Lengths are points of 1/72 inch; a picture has two pixels for each.
class Canvas {
public:
    static constexpr double Thin = 0.5;
    static constexpr double Thick = 1.4;
    enum class Align { Left, Middle };

    Canvas(Form form, double width, double height, const std::string& title);

    /// `y` is the base line.
    void text(double x, double y, double size, const std::string& text, Align align = Align::Left);
    void line(double x1, double y1, double x2, double y2, double width = Thin);
    void box(double x, double y, double width, double height, bool filled = false);
    void circle(double x, double y, double radius);
    /// A measure between two points of one height, or of one upright.
    void measure(double x1, double y1, double x2, double y2, const std::string& text);
    /// Closed and filled, as it were with hatching, in this grey.
    void area(const std::vector<std::pair<double, double>>& corners, double grey);
    void nextPage();
    /// The file as it is stored. Throws when it could not be drawn. Nothing is drawn afterwards.
    std::string finish();

private:
    struct Closer {
        void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };

    Form m_form;
    std::string m_bytes;
    std::unique_ptr<cairo_surface_t, Closer> m_surface;
    std::unique_ptr<cairo_t, Closer> m_cairo;
};

}  // namespace disclosure::drawing
