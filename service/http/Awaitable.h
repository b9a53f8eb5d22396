#pragma once

// Beware: GCC 12 destroys twice what braces make around a co_await, as in Reply{co_await ...}.

// Asio's header forgets what it needs of this one.
// clang-format off
#include <utility>
#include <boost/asio/awaitable.hpp>
#include <boost/asio/use_awaitable.hpp>
// clang-format on
