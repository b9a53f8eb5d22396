#pragma once

#include <fstream>
#include <sstream>
#include <string>

/// Comparing with texts that were written by hand.
namespace support {

/// A file of tests/data; empty when there is none.
inline std::string readText(const std::string& file) {
    std::ifstream in(std::string(TEST_DATA "/") + file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

/// JSON without blanks, laid out as in the files with one member or item on a line, so that a failing comparison shows
/// the line that differs. The order stays.
inline std::string pretty(const std::string& json) {
    std::string lines;
    std::string indent = "\n";
    bool quoted = false;
    for (std::size_t at = 0; at < json.size(); ++at) {
        const char c = json[at];
        const bool empty = at + 1 < json.size() && (json[at + 1] == '}' || json[at + 1] == ']');
        if (quoted && c == '\\') {
            lines.append(json, at++, 2);
        } else if (quoted || c == '"') {
            lines += c;
            quoted = quoted != (c == '"');
        } else if ((c == '{' || c == '[') && empty) {
            lines.append(json, at++, 2);
        } else if (c == '{' || c == '[') {
            lines += c + (indent += "  ");
        } else if (c == '}' || c == ']') {
            indent.resize(indent.size() < 3 ? 1 : indent.size() - 2);
            lines += indent + c;
        } else {
            lines += c == ',' ? c + indent : c == ':' ? std::string(": ") : std::string(1, c);
        }
    }
    return lines;
}

}  // namespace support
