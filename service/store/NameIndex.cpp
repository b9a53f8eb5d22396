#include "service/store/NameIndex.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <sqlite3.h>
#include <stdexcept>

#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr std::size_t MostPairsAsked = 12;  // more make the question slower and hardly sharper

/// Latin, Greek, Cyrillic and full-width letters; others have no capitals that people here write.
char32_t smallOf(char32_t c) {
    const bool latin = (c >= U'A' && c <= U'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
    const bool greek = c >= 0x391 && c <= 0x3A9;
    const bool cyrillic = c >= 0x410 && c <= 0x42F;
    const bool wide = c >= 0xFF21 && c <= 0xFF3A;
    return latin || greek || cyrillic || wide ? c + 32 : c;
}

void append(std::string& text, char32_t c) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6U));
        put(0x80 | (c & 0x3FU));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12U));
        put(0x80 | ((c >> 6U) & 0x3FU));
        put(0x80 | (c & 0x3FU));
    } else {
        put(0xF0 | (c >> 18U));
        put(0x80 | ((c >> 12U) & 0x3FU));
        put(0x80 | ((c >> 6U) & 0x3FU));
        put(0x80 | (c & 0x3FU));
    }
}

/// The index does not tell capitals from small letters, ids do.
std::string wordStart(std::string_view deptId) {
    std::string start;
    for (const char c : deptId) {
        const bool capital = c >= 'A' && c <= 'Z';
        if (capital || c == '_')
            start.push_back('_');
        start.push_back(capital ? static_cast<char>(c + 32) : c);
    }
    return start + '.';
}

void appendHex(std::string& word, char32_t c) {
    constexpr auto Digits = "0123456789abcdef";
    for (unsigned shift = 24; shift > 0;) {
        shift -= 4;
        word.push_back(Digits[(c >> shift) & 0xFU]);
    }
}

std::u32string pointsOf(std::string_view text) {
    return codePoints(text).value_or(std::u32string());
}

void nameGrams(sqlite3_context* context, int, sqlite3_value** values) {
    const auto text = [&](int i) {
        const auto* bytes = static_cast<const char*>(sqlite3_value_blob(values[i]));
        return std::string_view(bytes ? bytes : "", static_cast<std::size_t>(sqlite3_value_bytes(values[i])));
    };
    try {
        const std::string grams = gramsOf(text(0), text(1));
        sqlite3_result_text(context, grams.data(), static_cast<int>(grams.size()), SQLITE_TRANSIENT);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

}  // namespace

std::string searchForm(std::string_view text) {
    std::string result;
    for (const char32_t c : pointsOf(text))
        append(result, smallOf(c));
    return result;
}

std::string gramsOf(std::string_view deptId, std::string_view text) {
    const std::string start = wordStart(deptId);
    const auto points = pointsOf(text);
    std::string grams;
    grams.reserve(points.size() * 2 * (start.size() + 13));
    for (std::size_t i = 0; i < points.size(); ++i) {
        grams += start;
        appendHex(grams, points[i]);
        grams.push_back(' ');
        if (i + 1 < points.size()) {
            grams += start;
            appendHex(grams, points[i]);
            appendHex(grams, points[i + 1]);
            grams.push_back(' ');
        }
    }
    return grams;
}

std::string gramQuery(std::string_view deptId, std::string_view text) {
    const std::string start = wordStart(deptId);
    const auto points = pointsOf(text);
    std::set<std::u32string_view> asked;
    const std::size_t length = std::min<std::size_t>(points.size(), 2);
    for (std::size_t i = 0; i + length <= points.size() && asked.size() < MostPairsAsked; ++i)
        asked.insert(std::u32string_view(points).substr(i, length));
    std::string query;
    for (const std::u32string_view pair : asked) {
        query += (query.empty() ? "\"" : " AND \"") + start;
        for (const char32_t c : pair)
            appendHex(query, c);
        query += '"';
    }
    return query;
}

bool gramQueryIsExact(std::string_view text) {
    return pointsOf(text).size() <= 2;
}

void installNameGrams(sqlite3* connection) {
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    if (sqlite3_create_function_v2(connection, "name_grams", 2, flags, nullptr, nameGrams, nullptr, nullptr, nullptr) !=
        SQLITE_OK)
        throw std::runtime_error("the database cannot be taught the name index");
}

}  // namespace disclosure
