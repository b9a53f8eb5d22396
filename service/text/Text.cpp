#include "service/text/Text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <unicode/uchar.h>
#include <unicode/utf8.h>
#include <utility>

namespace disclosure {

namespace {

constexpr std::size_t LongestId = 64;

/// Takes one code point off the front of `text`.
std::optional<char32_t> takeCodePoint(std::string_view& text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto most = static_cast<std::int32_t>(std::min<std::size_t>(text.size(), U8_MAX_LENGTH));
    std::int32_t taken = 0;
    UChar32 point = 0;
    U8_NEXT(bytes, taken, most, point);
    if (point < 0)
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(taken));
    return static_cast<char32_t>(point);
}

bool isBlank(char32_t point) {
    return point == U' ' || point == 0xA0 || point == 0x1680 || (point >= 0x2000 && point <= 0x200A) ||
           point == 0x2028 || point == 0x2029 || point == 0x202F || point == 0x205F || point == 0x3000;
}

bool isShapeless(char32_t point) {
    static constexpr std::pair<char32_t, char32_t> Ranges[] = {
        {0x00AD, 0x00AD}, {0x061C, 0x061C}, {0x115F, 0x1160}, {0x180B, 0x180F},  {0x200B, 0x200F},
        {0x202A, 0x202E}, {0x2060, 0x206F}, {0x2800, 0x2800}, {0x3164, 0x3164},  {0xFE00, 0xFE0F},
        {0xFEFF, 0xFEFF}, {0xFFA0, 0xFFA0}, {0xFFF9, 0xFFFB}, {0xE0000, 0xE0FFF}};
    return std::any_of(std::begin(Ranges), std::end(Ranges),
                       [point](const auto& range) { return point >= range.first && point <= range.second; });
}

bool isControl(char32_t point) {
    return point < 0x20 || (point >= 0x7F && point <= 0x9F);
}

/// Calls `visit` with each code point until it says false; false when it did, or when the text is not UTF-8.
template <class Visit>
bool visitPoints(std::string_view text, Visit&& visit) {
    while (!text.empty()) {
        const auto point = takeCodePoint(text);
        if (!point || !visit(*point))
            return false;
    }
    return true;
}

}  // namespace

bool isUtf8(std::string_view text) {
    return visitPoints(text, [](char32_t) { return true; });
}

std::optional<std::u32string> codePoints(std::string_view text) {
    std::u32string points;
    points.reserve(text.size());
    const auto take = [&points](char32_t point) {
        points.push_back(point);
        return true;
    };
    if (!visitPoints(text, take))
        return std::nullopt;
    return points;
}

bool isId(std::string_view text) {
    return !text.empty() && text.size() <= LongestId && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
    });
}

bool isMailAddress(std::string_view text) {
    constexpr std::size_t Longest = 254;
    constexpr std::size_t LongestLocal = 64;
    constexpr std::string_view Signs = ".!#$%&'*+/=?^_`{|}~-";
    const auto isAlphanumeric = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    };
    const auto hasEmptyPart = [](std::string_view dotted) {
        return dotted.empty() || dotted.front() == '.' || dotted.back() == '.' ||
               dotted.find("..") != std::string_view::npos;
    };
    const auto at = text.find('@');
    if (text.size() > Longest || at == std::string_view::npos || at > LongestLocal)
        return false;
    const auto local = text.substr(0, at);
    const auto domain = text.substr(at + 1);
    return !hasEmptyPart(local) && !hasEmptyPart(domain) && local.front() != '-' && domain.front() != '-' &&
           std::all_of(local.begin(), local.end(),
                       [&](char c) { return isAlphanumeric(c) || Signs.find(c) != std::string_view::npos; }) &&
           std::all_of(domain.begin(), domain.end(), [&](char c) { return isAlphanumeric(c) || c == '.' || c == '-'; });
}

std::string foldedCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    const auto take = [&folded](char32_t point) {
        std::uint8_t bytes[U8_MAX_LENGTH];
        std::int32_t count = 0;
        U8_APPEND_UNSAFE(bytes, count, u_foldCase(static_cast<UChar32>(point), U_FOLD_CASE_DEFAULT));
        folded.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
        return true;
    };
    return visitPoints(text, take) ? folded : std::string();
}

std::size_t lengthOf(std::string_view text) {
    std::size_t units = 0;
    const auto count = [&units](char32_t point) {
        units += point > 0xFFFF ? 2 : 1;
        return true;
    };
    return visitPoints(text, count) ? units : 0;
}

std::string trimmed(std::string_view text) {
    const auto points = codePoints(text).value_or(std::u32string());
    const auto begin = std::find_if_not(points.begin(), points.end(), isBlank);
    const auto end = std::find_if_not(points.rbegin(), std::make_reverse_iterator(begin), isBlank).base();

    std::size_t skipped = 0;
    std::size_t kept = 0;
    for (auto it = points.begin(); it != end; ++it)
        (it < begin ? skipped : kept) += static_cast<std::size_t>(U8_LENGTH(*it));
    return std::string(text.substr(skipped, kept));
}

bool showsSomething(std::string_view text) {
    const auto points = codePoints(text).value_or(std::u32string());
    return std::any_of(points.begin(), points.end(),
                       [](char32_t point) { return !isBlank(point) && !isShapeless(point); });
}

bool hasControls(std::string_view text, bool lines) {
    const auto mayStand = [lines](char32_t point) {
        return !isControl(point) || (lines && (point == U'\n' || point == U'\r' || point == U'\t'));
    };
    return !visitPoints(text, mayStand);
}

}  // namespace disclosure
