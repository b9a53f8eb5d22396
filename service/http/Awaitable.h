#pragma once

// Asio's header forgets what it needs of this one.
// clang-format off
#include <utility>
#include <boost/asio/awaitable.hpp>
#include <boost/asio/use_awaitable.hpp>
// clang-format on
