#include "service/ports/Rights.h"

#include <array>
#include <utility>

namespace disclosure {

namespace {

constexpr std::array<std::pair<Right, std::string_view>, 3> Keys{{
    {Right::EditCatalogs, "AUTH_JIAODIGUANLI_EDITMULU"},
    {Right::EditTasks, "AUTH_JIAODIGUANLI_EDITOTHER"},
    {Right::DeleteTasks, "AUTH_JIAODIGUANLI_DELETEOTHER"},
}};

}  // namespace

std::string_view keyOf(Right right) {
    return Keys.at(static_cast<std::size_t>(right)).second;
}

std::optional<Right> rightOf(std::string_view key) {
    for (const auto& [right, text] : Keys) {
        if (text == key)
            return right;
    }
    return std::nullopt;
}

}  // namespace disclosure
