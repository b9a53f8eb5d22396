#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "service/store/Statements.h"

namespace disclosure {

/// A statement with what it is given by name.
struct BoundSql {
    std::string text;
    std::vector<std::pair<std::string, std::string>> texts = {};
    std::vector<std::pair<std::string, std::int64_t>> numbers = {};

    /// Gives the value if the statement asks for it.
    void give(const char* name, const std::string& value) {
        if (asksFor(name))
            texts.emplace_back(name, value);
    }
    void give(const char* name, std::int64_t value) {
        if (asksFor(name))
            numbers.emplace_back(name, value);
    }
    void bind(soci::statement& statement) const {
        for (const auto& [name, value] : texts)
            statement.exchange(soci::use(value, name));
        for (const auto& [name, value] : numbers)
            statement.exchange(soci::use(value, name));
    }

private:
    bool asksFor(const char* name) const { return text.find(std::string(":") + name) != std::string::npos; }
};

/// The way with the fewest rows on it, and how many these are. `best` has `fewest`; `numberOf` counts those on another,
/// up to as many.
template <class Path, class NumberOf>
std::pair<Path, std::int64_t> shortest(const std::vector<Path>& others, Path best, std::int64_t fewest,
                                       NumberOf&& numberOf) {
    for (const Path path : others) {
        const std::int64_t number = numberOf(path, fewest);
        if (number < fewest) {
            fewest = number;
            best = path;
        }
    }
    return {best, fewest};
}

}  // namespace disclosure
