#pragma once

#include <string>
#include <vector>

/// Papers and drawings as a site has them, made with Cairo. Chinese text takes a Chinese font of the system.
namespace disclosure::drawing {

enum class Form { Pdf, Png };

/// A PDF of A4 pages with their numbers: the title, then the paragraphs, of which those in brackets are headings.
std::string paper(const std::string& title, const std::vector<std::string>& paragraphs);

/// A storey from above: a grid of axes with columns, walls and measures, all spans alike, in millimetres.
std::string plan(const std::string& title, int columns, int rows, int span, Form form);

/// A pit from the side, so many metres deep, with its slopes and the layers of the ground.
std::string pit(const std::string& title, double depth, Form form);

}  // namespace disclosure::drawing
