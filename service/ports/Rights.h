#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace disclosure {

/// What a member may do in a department beyond reading.
enum class Right { EditCatalogs, EditTasks, DeleteTasks };

using Rights = std::set<Right>;

/// The key under which clients and the database know the right.
std::string_view keyOf(Right right);
std::optional<Right> rightOf(std::string_view key);

}  // namespace disclosure
