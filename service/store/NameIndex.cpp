#include "service/store/NameIndex.h"

#include <algorithm>
#include <array>
#include <set>
#include <sodium.h>
#include <sqlite3.h>
#include <stdexcept>

#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr std::size_t MostPairsAsked = 12;  // more make the question slower and hardly sharper

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
    const std::array<unsigned char, 3> bytes{static_cast<unsigned char>(c >> 16U), static_cast<unsigned char>(c >> 8U),
                                             static_cast<unsigned char>(c)};
    std::array<char, 2 * bytes.size() + 1> digits{};
    word += sodium_bin2hex(digits.data(), digits.size(), bytes.data(), bytes.size());
}

std::u32string pointsOf(std::string_view text) {
    return codePoints(text).value_or(std::u32string());
}

std::string_view textIn(sqlite3_value* value) {
    const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
    return {bytes ? bytes : "", static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

/// Gives the connection what `make` makes of the arguments.
template <class Make>
void answer(sqlite3_context* context, Make&& make) {
    try {
        const std::string text = make();
        sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

void nameGrams(sqlite3_context* context, int, sqlite3_value** values) {
    answer(context, [&] { return gramsOf(textIn(values[0]), textIn(values[1])); });
}

void searchName(sqlite3_context* context, int, sqlite3_value** values) {
    answer(context, [&] { return searchForm(textIn(values[0])); });
}

}  // namespace

std::string searchForm(std::string_view text) {
    return foldedCase(text);
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
    const auto teach = [&](const char* name, int arguments, void (*function)(sqlite3_context*, int, sqlite3_value**)) {
        return sqlite3_create_function_v2(connection, name, arguments, flags, nullptr, function, nullptr, nullptr,
                                          nullptr) == SQLITE_OK;
    };
    if (!teach("name_grams", 2, nameGrams) || !teach("search_name", 1, searchName))
        throw std::runtime_error("the database cannot be taught the name index");
}

}  // namespace disclosure
