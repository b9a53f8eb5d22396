#pragma once

#include <functional>
#include <memory>
#include <string>

#include "service/mail/IMailSender.h"

namespace disclosure {

/// Where mails are handed over. Without a URL none are sent.
struct MailSettings {
    enum class StartTls { Required, Optional, Off };

    std::string url;   // "smtp://HOST:PORT" or "smtps://HOST:PORT"
    std::string from;  // the sender's address
    std::string username;
    std::string password;
    StartTls startTls = StartTls::Required;
};

/// Sends over SMTP, one mail after the other on one connection as long as the server keeps it.
class SmtpSender final : public IMailSender {
public:
    /// A mail is broken off when `isEnding` answers true, unless the server has the whole of it already. Throws when
    /// the library cannot be set up.
    SmtpSender(const MailSettings& settings, std::function<bool()> isEnding);
    ~SmtpSender() override;
    SmtpSender(const SmtpSender&) = delete;
    SmtpSender& operator=(const SmtpSender&) = delete;

    const std::string& from() const override { return m_from; }
    Result send(const std::string& to, const std::string& text) override;

private:
    struct Library;

    std::string m_from;
    std::function<bool()> m_isEnding;
    std::unique_ptr<Library> m_library;
};

}  // namespace disclosure
