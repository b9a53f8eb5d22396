#pragma once

#include <future>
#include <optional>
#include <type_traits>

#include "sdk/baseui/Waiting.h"

namespace workbench {

/// What `work` gives, which runs on a thread of its own while the caller waits as everybody does.
template <class Work>
std::invoke_result_t<Work> aside(const Work& work) {
    std::optional<std::invoke_result_t<Work>> result;
    std::future<void> end = std::async(std::launch::async, [&] { result.emplace(work()); });
    BASEUI::Wait(end);
    end.get();  // throws what the work threw
    return std::move(*result);
}

}  // namespace workbench
