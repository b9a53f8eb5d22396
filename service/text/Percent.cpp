#include "service/text/Percent.h"

#include <curl/curl.h>
#include <memory>
#include <new>

namespace disclosure {

namespace {

using Text = std::unique_ptr<char, decltype(&curl_free)>;

bool isDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

}  // namespace

std::optional<std::string> percentDecoded(std::string_view text) {
    auto at = text.find('%');
    if (at == std::string_view::npos)
        return std::string(text);
    // The library lets what is no sequence stand.
    for (; at != std::string_view::npos; at = text.find('%', at + 3)) {
        if (at + 2 >= text.size() || !isDigit(text[at + 1]) || !isDigit(text[at + 2]))
            return std::nullopt;
    }
    int size = 0;
    const Text decoded(curl_easy_unescape(nullptr, text.data(), static_cast<int>(text.size()), &size), &curl_free);
    if (!decoded)
        throw std::bad_alloc();
    return std::string(decoded.get(), static_cast<std::size_t>(size));
}

std::string percentEncoded(std::string_view text) {
    if (text.empty())
        return {};  // whose length the library would count itself
    const Text encoded(curl_easy_escape(nullptr, text.data(), static_cast<int>(text.size())), &curl_free);
    if (!encoded)
        throw std::bad_alloc();
    return encoded.get();
}

}  // namespace disclosure
