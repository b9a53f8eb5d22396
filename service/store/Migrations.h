#pragma once

#include <span>
#include <vector>

namespace disclosure {

/// One numbered step of the database's tables: its number is its place, counted from 1. A released step never changes.
using Migration = std::vector<const char*>;

std::span<const Migration> migrations();

}  // namespace disclosure
