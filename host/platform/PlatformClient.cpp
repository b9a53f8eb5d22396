#include "host/platform/PlatformClient.h"

#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkCookie>
#include <QNetworkReply>
#include <QPointer>
#include <QTimer>

#include "host/platform/Exchange.h"
#include "host/platform/FileTransfer.h"
#include "host/platform/RunIn.h"
#include "sdk/baseui/Waiting.h"

namespace workbench {
namespace {

constexpr qint64 kLargestBody = 16LL * 1024 * 1024;

bool isTrouble(const Answer& answer) {
    return answer.outcome == Outcome::Unreachable || answer.outcome == Outcome::TimedOut ||
           answer.outcome == Outcome::Malformed || answer.status >= 500;
}

}  // namespace

QUrlQuery queryOf(std::initializer_list<std::pair<QString, std::wstring>> entries) {
    QUrlQuery query;
    for (const auto& [key, value] : entries)
        query.addQueryItem(key, QUrl::toPercentEncoding(QString::fromStdWString(value)));
    return query;
}

PlatformClient::PlatformClient(std::chrono::milliseconds patience) : m_patience(patience), m_worker(new QObject) {
    m_worker->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    m_thread.start();
}

PlatformClient::~PlatformClient() {
    m_thread.quit();
    m_thread.wait();
}

Answer PlatformClient::get(const QString& path, const QUrlQuery& query) {
    return send(path, query, nullptr, true);
}

Answer PlatformClient::post(const QString& path, const QJsonObject& body, bool canCancel) {
    const QByteArray bytes = QJsonDocument(body).toJson(QJsonDocument::Compact);
    return send(path, {}, &bytes, canCancel);
}

QNetworkRequest PlatformClient::requestTo(const QString& path, const QUrlQuery& query) const {
    QUrl url("http://" + m_address + path);
    url.setQuery(query);
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    if (hasSession())
        request.setRawHeader("Cookie", "JSESSIONID=" + QByteArray::fromStdString(m_sessionId));
    return request;
}

Answer PlatformClient::withSession(const std::function<Answer()>& attempt) {
    Answer answer = attempt();
    if (answer.outcome == Outcome::SessionExpired && m_recovery && m_recovery(answer.text))
        answer = attempt();
    if (m_onTrouble && isTrouble(answer))
        m_onTrouble(answer.text);
    return answer;
}

void PlatformClient::getLater(const QString& path, QObject* context, Receiver receive) {
    const auto exchange = std::make_shared<Exchange>();
    const auto deliver = [this, exchange, asker = QPointer<QObject>(context), receive = std::move(receive)] {
        if (asker)
            receive(judge(*exchange));
    };
    dispatch(exchange, requestTo(path, {}), nullptr,
             [this, deliver] { runIn(&m_deliveries, deliver, Qt::QueuedConnection); });
}

Answer PlatformClient::send(const QString& path, const QUrlQuery& query, const QByteArray* body, bool canCancel) {
    return withSession([&] {
        QNetworkRequest request = requestTo(path, query);
        if (body)
            request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json; charset=utf-8");
        const auto exchange = std::make_shared<Exchange>();
        dispatch(exchange, request, body, [exchange] { exchange->done.set_value(); });
        await(exchange, {.canCancel = canCancel});
        return judge(*exchange);
    });
}

void PlatformClient::await(const std::shared_ptr<Exchange>& exchange, const BASEUI::Waiting& waiting) {
    const std::future<void> end = exchange->done.get_future();
    if (BASEUI::Wait(end, waiting))
        return;
    runIn(m_worker, [exchange] { exchange->cancel(); });
    end.wait();
}

QNetworkAccessManager& PlatformClient::network() const {
    auto* network = m_worker->findChild<QNetworkAccessManager*>();
    return network ? *network : *new QNetworkAccessManager(m_worker);
}

Answer PlatformClient::upload(const QString& path, const QUrlQuery& query, const Transfer& transfer) {
    return transferred(path, query, [&](const auto& exchange, QNetworkRequest request) {
        request.setHeader(QNetworkRequest::ContentTypeHeader, "application/octet-stream");
        return new FileUpload(exchange, transfer.patience, request, transfer.file, m_worker);
    });
}

Answer PlatformClient::download(const QString& path, const QUrlQuery& query, const Transfer& transfer) {
    return transferred(path, query, [&](const auto& exchange, const QNetworkRequest& request) {
        return new FileDownload(exchange, transfer.patience, request, transfer.file, network(), m_worker);
    });
}

Answer PlatformClient::transferred(const QString& path, const QUrlQuery& query, const Begin& begin) {
    return withSession([&] {
        const auto exchange = std::make_shared<Exchange>();
        // The worker may use what the caller has: the call returns only when the transfer has ended.
        runIn(m_worker, [&begin, exchange, request = requestTo(path, query)] {
            FileTransfer* job = begin(exchange, request);
            exchange->cancel = [job = QPointer(job)] {
                if (job)
                    job->cancel();
            };
            job->start();
        });
        await(exchange, {.canCancel = true,
                         .amount =
                             [&] {
                                 return BASEUI::Waiting::Amount{exchange->moved, exchange->total};
                             },
                         .dialogAfter = std::chrono::milliseconds(0)});
        Answer answer = judge(*exchange);
        answer.md5 = QString::fromLatin1(exchange->md5);
        answer.size = exchange->total;
        return answer;
    });
}

void PlatformClient::dispatch(const std::shared_ptr<Exchange>& exchange, const QNetworkRequest& request,
                              const QByteArray* body, std::function<void()> whenDone) {
    const auto start = [this, exchange, request, whenDone = std::move(whenDone), patience = m_patience,
                        isPost = body != nullptr, bytes = body ? *body : QByteArray()] {
        QNetworkReply* reply = isPost ? network().post(request, bytes) : network().get(request);
        exchange->cancel = [exchange = std::weak_ptr(exchange), reply = QPointer(reply)] {
            const auto cancelled = exchange.lock();
            if (!cancelled || !reply || reply->isFinished())
                return;
            cancelled->cancelled = true;
            reply->abort();
        };
        auto* silence = new QTimer(reply);
        QObject::connect(silence, &QTimer::timeout, reply, [exchange, reply] {
            exchange->timedOut = true;
            reply->abort();
        });
        silence->start(patience);
        QObject::connect(reply, &QNetworkReply::downloadProgress, reply, [reply, silence](qint64 received) {
            silence->start();
            if (received > kLargestBody)
                reply->abort();
        });
        QObject::connect(reply, &QNetworkReply::finished, reply, [exchange, reply, whenDone] {
            exchange->status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
            exchange->isHtml =
                reply->header(QNetworkRequest::ContentTypeHeader).toString().contains("text/html", Qt::CaseInsensitive);
            // A status of 400 and above counts as an error too, its body is whole nevertheless.
            exchange->complete = reply->error() == QNetworkReply::NoError || exchange->status >= 400;
            if (reply->isOpen())
                exchange->body = reply->readAll();
            for (const QNetworkCookie& cookie :
                 reply->header(QNetworkRequest::SetCookieHeader).value<QList<QNetworkCookie>>())
                if (cookie.name() == "JSESSIONID")
                    exchange->sessionId = cookie.value().toStdString();
            reply->deleteLater();
            whenDone();
        });
    };
    runIn(m_worker, start);
}

Answer PlatformClient::judge(const Exchange& exchange) const {
    const int status = exchange.status;
    const bool hasMoved = exchange.moved > 0;
    if (exchange.cancelled)
        return failure(Outcome::Cancelled, status);
    if (!exchange.fault.isEmpty())
        return failure(Outcome::BadFile, status, exchange.fault);
    if (exchange.timedOut)
        return failure(Outcome::TimedOut, status, hasMoved ? tr("与服务 %1 的传输停滞不前").arg(m_address) : QString());
    if (status == 0 || ((hasMoved || status == 200) && !exchange.complete))
        return failure(Outcome::Unreachable, status,
                       hasMoved || status == 200 ? tr("与服务 %1 的连接中断").arg(m_address) : QString());
    if (exchange.hasFile) {
        Answer answer;
        answer.outcome = Outcome::Ok;
        answer.status = status;
        return answer;
    }
    if (status == 302)
        return failure(Outcome::SessionExpired, status);

    const QJsonObject wrapper = QJsonDocument::fromJson(exchange.body).object();
    const QString message = wrapper["msg"].toString();
    if (status >= 400)
        return failure(Outcome::Refused, status, message);
    if (status != 200 || exchange.isHtml || !wrapper["code"].isDouble())
        return failure(Outcome::Malformed, status);
    if (const int code = wrapper["code"].toInt(); code != 200) {
        Answer refusal =
            failure(Outcome::Refused, status, message.isEmpty() ? tr("服务返回错误 %1").arg(code) : message);
        refusal.result = wrapper["result"];
        return refusal;
    }

    Answer answer;
    answer.outcome = Outcome::Ok;
    answer.status = status;
    answer.result = wrapper["result"];
    answer.sessionId = exchange.sessionId;
    return answer;
}

Answer PlatformClient::failure(Outcome outcome, int status, const QString& text) const {
    Answer answer;
    answer.outcome = outcome;
    answer.status = status;
    answer.text = text;
    if (!text.isEmpty())
        return answer;
    switch (outcome) {
        case Outcome::Ok:
            break;
        case Outcome::SessionExpired:
            answer.text = tr("登录已失效，请重新登录");
            break;
        case Outcome::Refused:
            answer.text = tr("服务返回错误 %1").arg(status);
            break;
        case Outcome::Unreachable:
            answer.text = tr("无法连接到服务 %1").arg(m_address);
            break;
        case Outcome::TimedOut:
            answer.text = tr("服务 %1 没有按时应答").arg(m_address);
            break;
        case Outcome::Cancelled:
            answer.text = tr("已取消");
            break;
        case Outcome::BadFile:
            answer.text = tr("文件有误");
            break;
        case Outcome::Malformed:
            answer.text = tr("无法识别 %1 的应答，请确认服务地址").arg(m_address);
            break;
    }
    return answer;
}

}  // namespace workbench
