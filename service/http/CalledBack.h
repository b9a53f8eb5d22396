#pragma once

#include <boost/asio/associated_executor.hpp>
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>
#include <functional>
#include <memory>

#include "service/http/Awaitable.h"
namespace disclosure {

/// `begin` starts something that calls the given function once, from any thread. The coroutine goes on with the result,
/// where it was; the I/O threads keep running until then. A call that never comes ends the coroutine.
template <class Result, class Begin>
boost::asio::awaitable<Result> calledBack(Begin begin) {
    namespace asio = boost::asio;
    auto initiation = [](auto handler, Begin start) {
        auto shared = std::make_shared<decltype(handler)>(std::move(handler));
        auto work = asio::make_work_guard(asio::get_associated_executor(*shared));
        start(std::function<void(Result)>([shared = std::move(shared), work = std::move(work)](Result result) {
            asio::post(work.get_executor(),
                       [shared, result = std::move(result)]() mutable { std::move (*shared)(std::move(result)); });
        }));
    };
    co_return co_await asio::async_initiate<const asio::use_awaitable_t<>, void(Result)>(
        initiation, asio::use_awaitable, std::move(begin));
}

}  // namespace disclosure
