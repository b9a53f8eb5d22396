#include "service/drawing/Drawing.h"

#include "service/drawing/Canvas.h"

namespace disclosure::drawing {

namespace {

constexpr double A4Width = 595;
constexpr double A4Height = 842;
constexpr double Margin = 56;

bool isHeading(const std::string& paragraph) {
    return paragraph.starts_with("【");
}

/// The paragraph in lines that are at most so many letters wide; a small sign counts half.
std::vector<std::string> wrapped(const std::string& paragraph, double letters) {
    std::vector<std::string> lines(1);
    double used = 0;
    for (std::size_t i = 0; i < paragraph.size();) {
        const auto first = static_cast<unsigned char>(paragraph[i]);
        const std::size_t bytes = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        const double width = bytes == 1 ? 0.6 : 1;
        const std::string letter = paragraph.substr(i, bytes);
        // What ends a sentence does not begin a line.
        if (used + width > letters && letter != "。" && letter != "，" && letter != "；") {
            lines.emplace_back();
            used = 0;
        }
        lines.back() += letter;
        used += width;
        i += bytes;
    }
    return lines;
}

/// The frame around a drawing in A4 across, with its title.
void frame(Canvas& canvas, const std::string& title) {
    constexpr double Edge = 20;
    constexpr double TitleHeight = 36;
    canvas.box(Edge, Edge, A4Height - 2 * Edge, A4Width - 2 * Edge);
    canvas.line(Edge, A4Width - Edge - TitleHeight, A4Height - Edge, A4Width - Edge - TitleHeight);
    canvas.text(Edge + 12, A4Width - Edge - 12, 14, title);
    canvas.text(A4Height - 230, A4Width - Edge - 12, 9, "示范建设集团  第一项目部  单位：mm");
}

}  // namespace

std::string paper(const std::string& title, const std::vector<std::string>& paragraphs) {
    constexpr double TitleSize = 18;
    constexpr double Size = 11;
    constexpr double Step = 19;
    Canvas canvas(Form::Pdf, A4Width, A4Height, title);
    canvas.text(A4Width / 2, Margin + TitleSize, TitleSize, title, Canvas::Align::Middle);
    double y = Margin + 3 * TitleSize;
    int page = 1;
    const auto number = [&] {
        canvas.text(A4Width / 2, A4Height - Margin / 2, 9, "第 " + std::to_string(page) + " 页", Canvas::Align::Middle);
    };
    for (const std::string& paragraph : paragraphs) {
        const bool heading = isHeading(paragraph);
        const double size = heading ? Size + 2 : Size;
        if (heading)
            y += Step / 2;
        for (const std::string& line : wrapped((heading ? "" : "　　") + paragraph, (A4Width - 2 * Margin) / size)) {
            if (y > A4Height - Margin) {
                number();
                canvas.nextPage();
                ++page;
                y = Margin + Size;
            }
            canvas.text(Margin, y, size, line);
            y += Step;
        }
    }
    number();
    return canvas.finish();
}

std::string plan(const std::string& title, int columns, int rows, int span, Form form) {
    constexpr double Left = 110;
    constexpr double Top = 90;
    constexpr double Bubble = 10;
    constexpr double Column = 9;
    constexpr double Wall = 3;
    const double stepX = (A4Height - 2 * Left) / (columns - 1);
    const double stepY = (A4Width - Top - 130) / (rows - 1);
    const double right = Left + stepX * (columns - 1);
    const double bottom = Top + stepY * (rows - 1);
    const std::string measure = std::to_string(span);
    Canvas canvas(form, A4Height, A4Width, title);
    frame(canvas, title);
    for (int i = 0; i < columns; ++i) {
        const double x = Left + stepX * i;
        canvas.line(x, Top - 30, x, bottom + 10);
        canvas.circle(x, Top - 30 - Bubble, Bubble);
        canvas.text(x, Top - 30 - Bubble + 4, 10, std::to_string(i + 1), Canvas::Align::Middle);
        if (i + 1 < columns)
            canvas.measure(x, Top - 18, x + stepX, Top - 18, measure);
    }
    for (int j = 0; j < rows; ++j) {
        const double y = bottom - stepY * j;
        canvas.line(Left - 30, y, right + 10, y);
        canvas.circle(Left - 30 - Bubble, y, Bubble);
        canvas.text(Left - 30 - Bubble, y + 4, 10, std::string(1, static_cast<char>('A' + j)), Canvas::Align::Middle);
        if (j + 1 < rows)
            canvas.measure(Left - 18, y, Left - 18, y - stepY, measure);
        // Walls between the columns, open in the middle of the inner ones.
        for (int i = 0; i + 1 < columns; ++i) {
            const double x = Left + stepX * i;
            const bool outer = j == 0 || j + 1 == rows;
            const double gap = outer ? 0 : stepX / 4;
            for (const double side : {-Wall, Wall}) {
                canvas.line(x, y + side, x + stepX / 2 - gap, y + side, Canvas::Thick);
                canvas.line(x + stepX / 2 + gap, y + side, x + stepX, y + side, Canvas::Thick);
            }
        }
    }
    for (int i = 0; i < columns; ++i)
        for (int j = 0; j < rows; ++j)
            canvas.box(Left + stepX * i - Column / 2, bottom - stepY * j - Column / 2, Column, Column, true);
    for (const double x : {Left, right})
        for (const double side : {-Wall, Wall})
            canvas.line(x + side, Top, x + side, bottom, Canvas::Thick);
    return canvas.finish();
}

std::string pit(const std::string& title, double depth, Form form) {
    constexpr double Ground = 170;
    constexpr double Scale = 28;  // points of a metre
    constexpr double Slope = 0.75;
    constexpr double Floor = 294;
    constexpr double Edge = 50;
    const double deep = depth * Scale;
    const double left = (A4Height - Floor) / 2;
    const double right = left + Floor;
    const double run = deep * Slope;
    const double bottom = Ground + deep;
    Canvas canvas(form, A4Height, A4Width, title);
    frame(canvas, title);
    const double low = bottom + 60;
    // The layers of the ground, cut by the slopes.
    const std::vector<std::pair<std::string, double>> layers{{"杂填土", 0.25}, {"粉质黏土", 0.7}, {"细砂", 1}};
    double above = 0;
    double grey = 0.93;
    for (const auto& [name, share] : layers) {
        const double y1 = Ground + above * deep;
        const double y2 = Ground + share * deep;
        const double in1 = run * (1 - above);
        const double in2 = run * (1 - share);
        canvas.area({{Edge, y1}, {left - in1, y1}, {left - in2, y2}, {Edge, y2}}, grey);
        canvas.area({{A4Height - Edge, y1}, {right + in1, y1}, {right + in2, y2}, {A4Height - Edge, y2}}, grey);
        canvas.text(Edge + 8, (y1 + y2) / 2 + 4, 9, name);
        above = share;
        grey -= 0.08;
    }
    canvas.area({{Edge, bottom}, {A4Height - Edge, bottom}, {A4Height - Edge, low}, {Edge, low}}, grey);
    canvas.text(Edge + 8, (bottom + low) / 2 + 4, 9, "卵石（持力层）");
    canvas.line(left, bottom, right, bottom, Canvas::Thick);
    canvas.measure(left, bottom - 8, right, bottom - 8, std::to_string(static_cast<int>(Floor / Scale * 1000)));
    canvas.measure(A4Height / 2 + 60, bottom, A4Height / 2 + 60, Ground,
                   std::to_string(static_cast<int>(depth * 1000)));
    canvas.line(left - run - 20, Ground, right + run + 20, Ground);
    canvas.text(left - run / 2 + 10, (Ground + bottom) / 2, 9, "1:0.75");
    canvas.text(A4Height / 2 - 90, Ground - 12, 10, "±0.000 自然地面");
    // A railing on either side.
    for (const double x : {left - run - 30, right + run + 30}) {
        canvas.line(x, Ground, x, Ground - 34, Canvas::Thick);
        canvas.text(x - 30, Ground - 40, 8, "防护栏杆 h=1200");
    }
    return canvas.finish();
}

}  // namespace disclosure::drawing
