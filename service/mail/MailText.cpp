#include "service/mail/MailText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <sodium.h>
#include <stdexcept>
#include <string_view>

#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr std::size_t WordBytes = 39;  // the first line, "Subject: " included, may have 76 characters
constexpr std::size_t LineBytes = 57;  // 76 characters

std::string base64(std::string_view bytes) {
    constexpr int Variant = sodium_base64_VARIANT_ORIGINAL;
    std::string text(sodium_base64_ENCODED_LEN(bytes.size(), Variant), '\0');
    sodium_bin2base64(text.data(), text.size(), reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                      Variant);
    text.pop_back();  // the end mark
    return text;
}

bool continuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// A header's text in encoded words, each of whole characters. Line ends and the like become blanks, which is what
/// readers make of them at best.
std::string encodedWords(std::string subject) {
    std::replace_if(
        subject.begin(), subject.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
    std::string_view text = subject;
    std::string words;
    while (!text.empty()) {
        std::size_t size = std::min(text.size(), WordBytes);
        while (size < text.size() && size > 1 && continuesCharacter(text[size]))
            --size;
        words += (words.empty() ? "=?UTF-8?B?" : "\r\n =?UTF-8?B?") + base64(text.substr(0, size)) + "?=";
        text.remove_prefix(size);
    }
    return words;
}

std::string dateOf(std::int64_t time) {
    // Not by strftime, whose names follow the machine's language.
    constexpr std::array Days{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    constexpr std::array Months{"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const auto seconds = static_cast<std::time_t>(time / 1000);
    std::tm parts{};
    ::gmtime_r(&seconds, &parts);
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "%s, %02d %s %d %02d:%02d:%02d +0000",
                  Days.at(static_cast<std::size_t>(parts.tm_wday)), parts.tm_mday,
                  Months.at(static_cast<std::size_t>(parts.tm_mon)), parts.tm_year + 1900, parts.tm_hour, parts.tm_min,
                  parts.tm_sec);
    return text.data();
}

}  // namespace

std::string mailText(const Mail& mail, const std::string& from, const std::string& to, std::int64_t time) {
    if (!isMailAddress(from) || !isMailAddress(to))
        throw std::invalid_argument("a mail needs valid addresses");
    std::string text = "Date: " + dateOf(time) + "\r\nFrom: <" + from + ">\r\nTo: <" + to +
                       ">\r\nSubject: " + encodedWords(mail.subject) + "\r\nMessage-ID: <" + mail.id +
                       from.substr(from.find('@')) +
                       ">\r\nMIME-Version: 1.0\r\nContent-Type: text/plain; charset=utf-8\r\n"
                       "Content-Transfer-Encoding: base64\r\nAuto-Submitted: auto-generated\r\n\r\n";
    const std::string body = mail.text + "\r\n";
    for (std::string_view rest = body; !rest.empty(); rest.remove_prefix(std::min(rest.size(), LineBytes)))
        text += base64(rest.substr(0, LineBytes)) + "\r\n";
    return text;
}

}  // namespace disclosure
