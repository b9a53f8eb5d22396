#include "service/mail/SmtpSender.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <curl/curl.h>
#include <stdexcept>
#include <string_view>

#include "service/mail/Outbox.h"

namespace disclosure {

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr long ConnectSeconds = 10;
constexpr std::chrono::seconds HandOverTime{20};         // until the server has the whole mail
constexpr long MailSeconds = Outbox::Lease / 1000 - 60;  // scanning it may take the server minutes

/// A mail on its way.
struct Passage {
    std::string_view rest;
    const std::function<bool()>* isEnding = nullptr;
    SteadyClock::time_point begun;
    bool isAddressed = false;  // whether the server was told for whom: until then every mail would fail alike
};

std::size_t give(char* buffer, std::size_t size, std::size_t count, void* passage) {
    auto& rest = static_cast<Passage*>(passage)->rest;
    const std::size_t length = std::min(size * count, rest.size());
    std::memcpy(buffer, rest.data(), length);
    rest.remove_prefix(length);
    return length;
}

/// A server that has the whole mail may accept it at any time; not to hear of it would send it twice.
int breaksOff(void* passage, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    const auto& mail = *static_cast<const Passage*>(passage);
    return !mail.rest.empty() && ((*mail.isEnding)() || SteadyClock::now() - mail.begun > HandOverTime) ? 1 : 0;
}

/// Hears the commands, among them the password, and keeps none.
int hear(CURL*, curl_infotype type, char* data, std::size_t size, void* passage) {
    if (type == CURLINFO_HEADER_OUT && std::string_view(data, size).starts_with("RCPT "))
        static_cast<Passage*>(passage)->isAddressed = true;
    return 0;
}

long levelOf(MailSettings::StartTls startTls) {
    switch (startTls) {
        case MailSettings::StartTls::Off:
            return CURLUSESSL_NONE;
        case MailSettings::StartTls::Optional:
            return CURLUSESSL_TRY;
        case MailSettings::StartTls::Required:
            break;
    }
    return CURLUSESSL_ALL;
}

/// Whether the server wants another login, whichever command it says so to.
bool isAboutLogin(long answer) {
    return answer == 530 || answer == 534 || answer == 535 || answer == 538;
}

IMailSender::Outcome outcomeOf(CURLcode code, long answer, bool isAddressed) {
    using Outcome = IMailSender::Outcome;
    if (code == CURLE_OK)
        return Outcome::Sent;
    if (!isAddressed || isAboutLogin(answer))
        return Outcome::Unreachable;
    return answer >= 500 && answer < 600 ? Outcome::Refused : Outcome::Failed;
}

}  // namespace

struct SmtpSender::Library {
    Library() : handle(curl_easy_init()) {
        if (!handle)
            throw std::runtime_error("the mail library cannot be set up");
    }
    ~Library() { curl_easy_cleanup(handle); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    template <class Value>
    void set(CURLoption option, Value value) {
        if (const CURLcode code = curl_easy_setopt(handle, option, value); code != CURLE_OK)
            throw std::runtime_error(std::string("the mail settings: ") + curl_easy_strerror(code));
    }

    CURL* handle;
    Passage passage;  // of the mail in hand; outlives it, since a connection may be closed later
};

SmtpSender::SmtpSender(const MailSettings& settings, std::function<bool()> isEnding)
    : m_from(settings.from), m_isEnding(std::move(isEnding)) {
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (ready != CURLE_OK)
        throw std::runtime_error("the mail library cannot be set up");
    m_library = std::make_unique<Library>();
    // The path is the name with which the client introduces itself.
    const std::string url = settings.url + "/" + m_from.substr(m_from.find('@') + 1);
    m_library->set(CURLOPT_URL, url.c_str());
    m_library->set(CURLOPT_PROTOCOLS_STR, "smtp,smtps");
    m_library->set(CURLOPT_PROXY, "");  // whatever the environment says
    m_library->set(CURLOPT_NOSIGNAL, 1L);
    m_library->set(CURLOPT_USE_SSL, levelOf(settings.startTls));
    m_library->set(CURLOPT_CONNECTTIMEOUT, ConnectSeconds);
    m_library->set(CURLOPT_TIMEOUT, MailSeconds);
    m_library->set(CURLOPT_SERVER_RESPONSE_TIMEOUT, MailSeconds);
    m_library->set(CURLOPT_MAIL_FROM, ("<" + m_from + ">").c_str());
    m_library->set(CURLOPT_UPLOAD, 1L);
    m_library->set(CURLOPT_READFUNCTION, give);
    m_library->set(CURLOPT_NOPROGRESS, 0L);
    m_library->set(CURLOPT_XFERINFOFUNCTION, breaksOff);
    m_library->set(CURLOPT_VERBOSE, 1L);  // else nothing is heard
    m_library->set(CURLOPT_DEBUGFUNCTION, hear);
    for (const CURLoption data : {CURLOPT_READDATA, CURLOPT_XFERINFODATA, CURLOPT_DEBUGDATA})
        m_library->set(data, &m_library->passage);
    if (!settings.username.empty()) {
        m_library->set(CURLOPT_USERNAME, settings.username.c_str());
        m_library->set(CURLOPT_PASSWORD, settings.password.c_str());
    }
}

SmtpSender::~SmtpSender() = default;

IMailSender::Result SmtpSender::send(const std::string& to, const std::string& text) {
    m_library->passage = {text, &m_isEnding, SteadyClock::now()};
    const std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> receivers(
        curl_slist_append(nullptr, ("<" + to + ">").c_str()), &curl_slist_free_all);
    m_library->set(CURLOPT_MAIL_RCPT, receivers.get());
    const CURLcode code = curl_easy_perform(m_library->handle);
    long answer = 0;
    curl_easy_getinfo(m_library->handle, CURLINFO_RESPONSE_CODE, &answer);
    m_library->set(CURLOPT_MAIL_RCPT, nullptr);
    return {outcomeOf(code, answer, m_library->passage.isAddressed),
            std::string(curl_easy_strerror(code)) + " (the server's last answer: " + std::to_string(answer) + ")"};
}

}  // namespace disclosure
