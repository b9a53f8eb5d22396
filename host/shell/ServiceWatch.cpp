#include "host/shell/ServiceWatch.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

#include "host/platform/RunIn.h"

namespace workbench {

/// The part of the watch on its thread.
class ServiceWatch::Asker : public QObject {
public:
    Asker(ServiceWatch& watch, std::chrono::milliseconds interval, std::chrono::milliseconds timeout)
        : m_watch(watch), m_timeout(timeout) {
        m_timer.setInterval(interval);
        connect(&m_timer, &QTimer::timeout, this, &Asker::ask);
    }

    void begin(const QString& address) {
        m_address = address;
        m_timer.start();
        ask();
    }

private:
    void ask() {
        QNetworkRequest request(QUrl("http://" + m_address + "/healthz"));
        request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
        QNetworkReply* reply = m_network.get(request);
        QTimer::singleShot(m_timeout, reply, &QNetworkReply::abort);
        connect(reply, &QNetworkReply::finished, this, [this, reply, asked = m_address] {
            reply->deleteLater();
            const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
            const bool isHtml = reply->header(QNetworkRequest::ContentTypeHeader).toString().contains("text/html");
            const bool isGood = status == 200 && !isHtml && reply->error() == QNetworkReply::NoError;
            const bool isLate = reply->error() == QNetworkReply::OperationCanceledError;
            runIn(&m_watch, [this, asked, status, isGood, isLate] { m_watch.take(asked, status, isGood, isLate); });
        });
    }

    ServiceWatch& m_watch;
    std::chrono::milliseconds m_timeout;
    QString m_address;
    QTimer m_timer{this};
    QNetworkAccessManager m_network{this};
};

ServiceWatch::ServiceWatch(std::chrono::milliseconds interval, std::chrono::milliseconds timeout)
    : m_asker(new Asker(*this, interval, timeout)) {
    m_asker->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_asker, &QObject::deleteLater);
    m_thread.start();
}

ServiceWatch::~ServiceWatch() {
    m_thread.quit();
    m_thread.wait();
}

void ServiceWatch::watch(const QString& address) {
    m_address = address;
    runIn(m_asker, [asker = m_asker, address] { asker->begin(address); });
}

void ServiceWatch::reportTrouble(const QString& text) {
    emit told(false, text);
}

void ServiceWatch::take(const QString& address, int status, bool isGood, bool isLate) {
    if (address != m_address)
        return;
    if (isGood)
        emit told(true, tr("服务正常  %1").arg(address));
    else if (isLate)
        emit told(false, tr("服务没有按时应答  %1").arg(address));
    else if (status == 0)
        emit told(false, tr("服务无法连接  %1").arg(address));
    else
        emit told(false, tr("服务应答异常  %1").arg(address));
}

}  // namespace workbench
