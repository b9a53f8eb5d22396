#include "tests/end_to_end/ServiceProbe.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QUrlQuery>

QByteArray ServiceProbe::request(const QByteArray& method, const QString& path, const QByteArray& body) {
    QNetworkAccessManager network;
    QNetworkRequest request(QUrl("http://" + m_address + path));
    request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json");
    request.setRawHeader("Cookie", m_cookie);
    QNetworkReply* reply = network.sendCustomRequest(request, method, body);
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    const QByteArray cookie = reply->rawHeader("Set-Cookie");
    if (!cookie.isEmpty())
        m_cookie = cookie.left(cookie.indexOf(';'));
    return reply->readAll();
}

QJsonValue ServiceProbe::get(const QString& path) {
    return QJsonDocument::fromJson(request("GET", path, {})).object().value("result");
}

QJsonArray ServiceProbe::catalogs() {
    if (m_deptId.isEmpty()) {
        request("POST", "/rs/auth/login", R"({"username":"demo","password":"demo"})");
        m_deptId = get("/rs/platform/projects").toArray().first().toObject().value("deptId").toString();
    }
    return get("/rs/disclosure/catalog/list_disclosure_catalog_by_deptid?deptId=" + m_deptId).toArray();
}

QString ServiceProbe::catalogId(const QString& name) {
    for (const QJsonValue& catalog : catalogs())
        if (catalog.toObject().value("name") == name)
            return catalog.toObject().value("id").toString();
    return {};
}

QStringList ServiceProbe::children(const QString& parentId) {
    QStringList names;
    for (const QJsonValue& catalog : catalogs())
        if (catalog.toObject().value("parentId") == parentId)
            names << catalog.toObject().value("name").toString();
    return names;
}

QJsonObject ServiceProbe::tasks(const QString& catalog, const QList<QPair<QString, QString>>& changed) {
    QUrlQuery query(
        "status=0&keyword=&dateType=-1&startDateMills=-1&endDateMills=-1&currentPage=1&pageSize=15&orderKey=&"
        "orderType=");
    query.addQueryItem("disclosureCatalogId", catalogId(catalog));
    query.addQueryItem("deptId", m_deptId);
    for (const auto& [key, value] : changed) {
        query.removeQueryItem(key);
        query.addQueryItem(key, value);
    }
    return get("/rs/disclosure/task/page_disclosure_task_by_deptid_and_catalogid?" + query.toString(QUrl::FullyEncoded))
        .toObject();
}

QJsonObject ServiceProbe::task(const QString& id) {
    return get("/rs/disclosure/task/query_disclosure_task_by_id/" + id).toObject();
}

void ServiceProbe::rename(const QString& taskId, const QString& name) {
    request("POST", "/rs/disclosure/task/update", QJsonDocument({{"id", taskId}, {"name", name}}).toJson());
}

QJsonObject ServiceProbe::pushConfig() {
    return get("/rs/disclosure/task/query_push_config?deptId=" + m_deptId).toObject();
}

QByteArray ServiceProbe::file(const QString& uuid) {
    return request("GET", QString("/rs/platform/files/%1?deptId=%2").arg(uuid, m_deptId), {});
}

QJsonObject ServiceProbe::messages() {
    return get("/rs/platform/messages?currentPage=1&pageSize=20").toObject();
}

void ServiceProbe::endSession(const QByteArray& sessionId) {
    ServiceProbe other(m_address);
    other.m_cookie = "JSESSIONID=" + sessionId;
    other.request("POST", "/rs/auth/logout", "{}");
}
