#pragma once

#include <chrono>
#include <exception>
#include <thread>
#include <type_traits>
#include <utility>

#include "service/ports/IStore.h"

namespace disclosure {

/// Changes the store: runs `work` in a writing transaction, commits, and returns what `work` returned. The one way to
/// change anything. Where the store gives the transaction up for another's sake, all of it is undone and repeated, four
/// times in all and not after 4 s; then the store's error is thrown, which `isConflict` tells. So `work` may run
/// several times, and does nothing that a rollback does not undo: what is to follow a change follows the call. What
/// `work` throws undoes the change.
template <class Work>
std::invoke_result_t<Work&> changing(IStore& store, Work&& work) {
    constexpr int Tries = 4;
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(4);
    for (int tries = 1;; ++tries) {
        try {
            Transaction transaction(store, IStore::Access::Write);
            if constexpr (std::is_void_v<std::invoke_result_t<Work&>>) {
                work();
                transaction.commit();
                return;
            } else {
                auto result = work();
                transaction.commit();
                return result;
            }
        } catch (const std::exception& error) {
            if (tries == Tries || std::chrono::steady_clock::now() > until || !isConflict(error))
                throw;
        }
        // Two that have met once are not to meet again at once.
        std::this_thread::sleep_for(std::chrono::milliseconds(tries));
    }
}

}  // namespace disclosure
