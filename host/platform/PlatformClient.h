#pragma once

#include <chrono>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include <QCoreApplication>
#include <QJsonObject>
#include <QJsonValue>
#include <QObject>
#include <QThread>
#include <QUrlQuery>

class QNetworkAccessManager;
class QNetworkRequest;

namespace BASEUI {
struct Waiting;
}

namespace workbench {

struct Exchange;
class FileTransfer;

enum class Outcome { Ok, SessionExpired, Refused, Unreachable, TimedOut, Malformed, Cancelled, BadFile };

/// What a request to the service came to.
struct Answer {
    Outcome outcome = Outcome::Malformed;
    int status = 0;         // HTTP; 0 when nothing was answered
    QString text;           // why it is not Ok, for the user
    QJsonValue result;      // of a refusal, too
    std::string sessionId;  // set by a login
    QString md5 = {};       // of the file that was sent, in hexadecimal
    qint64 size = 0;        // its bytes

    bool ok() const { return outcome == Outcome::Ok; }
};

/// A query of exactly these keys and values; QUrlQuery by itself would leave "+" and "&" to be misread.
QUrlQuery queryOf(std::initializer_list<std::pair<QString, std::wstring>> entries);

/// A file to be sent or fetched.
struct Transfer {
    QString file;                        // its local path
    std::chrono::milliseconds patience;  // ends when nothing has moved for so long
};

/// The workbench's own requests to the service. A call returns when it is answered, when the service has been silent
/// for too long, or when the user gives it up; until then it waits as `BASEUI::Wait` does.
class PlatformClient {
    Q_DECLARE_TR_FUNCTIONS(PlatformClient)

public:
    /// `patience` is how long the service may be silent; connecting is part of that.
    explicit PlatformClient(std::chrono::milliseconds patience = std::chrono::seconds(5));
    ~PlatformClient();
    PlatformClient(const PlatformClient&) = delete;
    PlatformClient& operator=(const PlatformClient&) = delete;

    /// "host:port".
    void setAddress(const QString& address) { m_address = address; }
    const QString& address() const { return m_address; }
    void setSessionId(const std::string& id) { m_sessionId = id; }
    bool hasSession() const { return !m_sessionId.empty(); }
    void setPatience(std::chrono::milliseconds patience) { m_patience = patience; }

    /// Called when a session has expired; true repeats the request once.
    using Recovery = std::function<bool(const QString& text)>;
    void setRecovery(Recovery recovery) { m_recovery = std::move(recovery); }
    /// Told of every answer that shows the service itself in trouble.
    using TroubleListener = std::function<void(const QString& text)>;
    void setTroubleListener(TroubleListener listener) { m_onTrouble = std::move(listener); }

    Answer get(const QString& path, const QUrlQuery& query = {});
    /// `canCancel` where the service is none the worse for not being asked.
    Answer post(const QString& path, const QJsonObject& body, bool canCancel = false);
    using Receiver = std::function<void(const Answer&)>;
    /// Returns at once. `receive` is called from the event loop, possibly while somebody else's call waits, and not at
    /// all once `context` is gone. Nobody has asked for it, so neither the recovery nor the trouble listener is called.
    void getLater(const QString& path, QObject* context, Receiver receive);
    /// Posts the file as it is; fails when it changes meanwhile.
    Answer upload(const QString& path, const QUrlQuery& query, const Transfer& transfer);
    /// The file stands in its place, whole and checked, or nothing has changed on the disk.
    Answer download(const QString& path, const QUrlQuery& query, const Transfer& transfer);
    /// A failed answer; without a `text` it gets the usual one of its outcome.
    Answer failure(Outcome outcome, int status, const QString& text = {}) const;

private:
    using Begin = std::function<FileTransfer*(const std::shared_ptr<Exchange>&, const QNetworkRequest&)>;

    QNetworkRequest requestTo(const QString& path, const QUrlQuery& query) const;
    /// Repeats `attempt` once after a recovered session.
    Answer withSession(const std::function<Answer()>& attempt);
    Answer send(const QString& path, const QUrlQuery& query, const QByteArray* body, bool canCancel);
    /// Waits for the worker, and has it give up where the user does.
    void await(const std::shared_ptr<Exchange>& exchange, const BASEUI::Waiting& waiting);
    /// Has the worker send the request; `whenDone` is called there.
    void dispatch(const std::shared_ptr<Exchange>& exchange, const QNetworkRequest& request, const QByteArray* body,
                  std::function<void()> whenDone);
    /// `begin` is called on the worker.
    Answer transferred(const QString& path, const QUrlQuery& query, const Begin& begin);
    Answer judge(const Exchange& exchange) const;
    QNetworkAccessManager& network() const;

    std::chrono::milliseconds m_patience;
    QString m_address;
    std::string m_sessionId;
    Recovery m_recovery;
    TroubleListener m_onTrouble;
    QObject m_deliveries;  // receives what the worker has to tell; outlives it
    QThread m_thread;
    QObject* m_worker;  // lives in m_thread, deleted with its end
};

}  // namespace workbench
