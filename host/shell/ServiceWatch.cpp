#include "host/shell/ServiceWatch.h"

#include <QNetworkReply>

namespace workbench {

ServiceWatch::ServiceWatch(std::chrono::milliseconds interval, std::chrono::milliseconds timeout) : m_timeout(timeout) {
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &ServiceWatch::ask);
}

void ServiceWatch::watch(const QString& address) {
    m_address = address;
    m_timer.start();
    ask();
}

void ServiceWatch::reportTrouble(const QString& text) {
    emit told(false, text);
}

void ServiceWatch::ask() {
    QNetworkRequest request(QUrl("http://" + m_address + "/healthz"));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    QNetworkReply* reply = m_network.get(request);
    QTimer::singleShot(m_timeout, reply, &QNetworkReply::abort);
    connect(reply, &QNetworkReply::finished, this, [this, reply, asked = m_address] {
        reply->deleteLater();
        if (asked != m_address)
            return;
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        const bool isHtml = reply->header(QNetworkRequest::ContentTypeHeader).toString().contains("text/html");
        if (status == 200 && !isHtml && reply->error() == QNetworkReply::NoError)
            emit told(true, tr("服务正常  %1").arg(asked));
        else if (reply->error() == QNetworkReply::OperationCanceledError)
            emit told(false, tr("服务没有按时应答  %1").arg(asked));
        else if (status == 0)
            emit told(false, tr("服务无法连接  %1").arg(asked));
        else
            emit told(false, tr("服务应答异常（%1）  %2").arg(status).arg(asked));
    });
}

}  // namespace workbench
