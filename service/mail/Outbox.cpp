#include "service/mail/Outbox.h"

#include <algorithm>
#include <array>
#include <spdlog/spdlog.h>
#include <string>
#include <utility>

#include "service/mail/MailText.h"
#include "service/ports/Changing.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr std::int64_t Minute = 60LL * 1000;
/// How long to wait after each attempt that failed; after more attempts as long as after the last.
constexpr std::array Waits{1 * Minute, 5 * Minute, 30 * Minute, 120 * Minute};
constexpr std::int64_t MailsAtOnce = 10;
/// The clocks of several machines may differ by so much.
constexpr std::int64_t Slack = Minute;

std::int64_t waitAfter(std::int32_t attempts) {
    const auto last = static_cast<std::int32_t>(Waits.size()) - 1;
    return Waits.at(static_cast<std::size_t>(std::clamp(attempts - 1, 0, last)));
}

}  // namespace

std::vector<Mail> Outbox::claim(IStore& store) const {
    return changing(store, [&] {
        const std::int64_t now = m_clock();
        auto claimed = store.dueMails(now, Slack, MailsAtOnce);
        for (Mail& mail : claimed) {
            ++mail.attempts;
            const std::int64_t before = std::exchange(mail.claimedAt, now);
            mail.wakeAt = now + Lease;
            store.putMail(mail, before);
        }
        return claimed;
    });
}

std::optional<IMailSender::Result> Outbox::deliver(IStore& store, IMailSender& sender, Mail& mail) const {
    using Result = IMailSender::Result;
    const std::int64_t now = m_clock();
    const std::int64_t before = std::exchange(mail.claimedAt, now);
    mail.wakeAt = now + Lease;
    std::optional<Person> person;
    bool isNeeded = false;
    const bool isOurs = changing(store, [&] {
        if (!store.putMail(mail, before))
            return false;
        person = store.person(mail.username);
        isNeeded = person && isMailAddress(person->mail) && m_rules.isStillDue(store, mail);
        return true;
    });
    if (!isOurs)
        return std::nullopt;
    if (!isNeeded)
        return Result{IMailSender::Outcome::Dropped, {}};
    if (now - mail.createdAt >= LongestTry)
        return Result{IMailSender::Outcome::Refused, "a day old"};
    return sender.send(person->mail, mailText(mail, sender.from(), person->mail, now));
}

void Outbox::settle(IStore& store, const Mail& mail, const IMailSender::Result& result) const {
    using Outcome = IMailSender::Outcome;
    const std::int64_t now = m_clock();
    const bool done = result.outcome == Outcome::Sent || result.outcome == Outcome::Dropped;
    const bool givenUp = result.outcome == Outcome::Refused;
    changing(store, [&] {
        if (done || givenUp) {
            store.removeMail(mail);
        } else {
            Mail waiting = mail;
            waiting.claimedAt = now;
            waiting.wakeAt = now + waitAfter(mail.attempts);
            store.putMail(waiting, mail.claimedAt);
        }
    });
    if (givenUp || (!done && result.outcome != Outcome::Untried))
        spdlog::warn("mail {}: {}{}", mail.id, result.reason, givenUp ? "; given up" : "");
}

std::int64_t Outbox::run(IStore& store, IMailSender& sender, const GoOn& goOn) const {
    using Outcome = IMailSender::Outcome;
    std::int64_t sent = 0;
    for (bool proceeds = goOn(); proceeds;) {
        auto claimed = claim(store);
        if (claimed.empty())
            break;
        for (Mail& mail : claimed) {
            const auto result =
                proceeds ? deliver(store, sender, mail) : IMailSender::Result{Outcome::Untried, "not tried"};
            if (!result)
                continue;
            settle(store, mail, *result);
            sent += result->outcome == Outcome::Sent ? 1 : 0;
            proceeds = proceeds && result->outcome != Outcome::Unreachable && goOn();
        }
    }
    return sent;
}

}  // namespace disclosure
