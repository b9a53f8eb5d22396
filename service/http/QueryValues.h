#pragma once

#include <charconv>
#include <string>

#include "service/http/Route.h"

namespace disclosure {

[[noreturn]] inline void malformed(const std::string& msg) {
    throw HttpError(boost::beast::http::status::bad_request, msg);
}

/// The query's text under the key; empty when the key is absent.
inline const std::string& textIn(const Call& call, const char* key) {
    static const std::string none;
    const auto value = call.target.query.find(key);
    return value == call.target.query.end() ? none : value->second;
}

template <class Number>
Number parsed(const std::string& text, const std::string& name) {
    Number number = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end)
        malformed("参数" + name + "不是有效的整数");
    return number;
}

/// The number under the key; `otherwise` when the key is absent or empty.
template <class Number>
Number numberIn(const Call& call, const char* key, Number otherwise) {
    const std::string& text = textIn(call, key);
    return text.empty() ? otherwise : parsed<Number>(text, key);
}

/// Which part of a list a request asks for.
struct Paging {
    std::int64_t offset = 0;
    std::int64_t limit = 0;
};

inline Paging pagingOf(const Call& call, std::int32_t usualSize, std::int32_t largestSize) {
    const auto page = numberIn<std::int32_t>(call, "currentPage", 1);
    const auto size = numberIn<std::int32_t>(call, "pageSize", usualSize);
    if (page < 1)
        malformed("参数currentPage必须大于等于1");
    if (size < 1 || size > largestSize)
        malformed("参数pageSize必须在1到" + std::to_string(largestSize) + "之间");
    return {static_cast<std::int64_t>(page - 1) * size, size};
}

}  // namespace disclosure
