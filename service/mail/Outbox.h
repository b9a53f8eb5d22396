#pragma once

#include <optional>
#include <vector>

#include "service/domain/Reminders.h"
#include "service/mail/IMailSender.h"
#include "service/ports/IStore.h"

namespace disclosure {

/// Sends the mails that wait in the store. A mail is taken in hand for a while, then sent, then removed: one whose
/// process was killed meanwhile is sent again by another, under the same Message-ID. What fails is tried again later
/// and later, and given up after a day.
class Outbox {
public:
    static constexpr std::int64_t Lease = 5LL * 60 * 1000;
    static constexpr std::int64_t LongestTry = Day;

    Outbox(const Reminders& rules, Clock clock) : m_rules(rules), m_clock(std::move(clock)) {}

    /// Sends what is due. Returns the number of mails sent. `goOn` is asked before each mail and need not rest: the
    /// time goes by on the network.
    std::int64_t run(IStore& store, IMailSender& sender, const GoOn& goOn) const;

private:
    /// Takes a few mails in hand.
    std::vector<Mail> claim(IStore& store) const;
    /// Takes the mail in hand anew and sends it, or drops it when nobody needs it any more; nothing when somebody else
    /// has taken it meanwhile.
    std::optional<IMailSender::Result> deliver(IStore& store, IMailSender& sender, Mail& mail) const;
    void settle(IStore& store, const Mail& mail, const IMailSender::Result& result) const;

    const Reminders& m_rules;
    Clock m_clock;
};

}  // namespace disclosure
