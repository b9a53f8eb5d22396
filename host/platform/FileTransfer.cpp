#include "host/platform/FileTransfer.h"

#include <algorithm>
#include <boost/asio/buffer.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>

#include <QDir>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QUrl>

namespace workbench {
namespace {

namespace http = boost::beast::http;

constexpr qint64 kChunk = 256LL * 1024;
constexpr qint64 kMostUnsent = 4 * kChunk;
constexpr qint64 kMostUnread = 4 * kChunk;
constexpr qint64 kLargestAnswer = 1024LL * 1024;
constexpr int kHttpPort = 80;
constexpr int kOk = 200;
constexpr int kBadRequest = 400;

}  // namespace

/// Takes in the bytes of one answer as they come.
class AnswerReader {
public:
    AnswerReader() {
        m_parser.eager(true);
        m_parser.body_limit(static_cast<std::uint64_t>(kLargestAnswer));
    }
    /// False when these bytes cannot be the next ones of an answer.
    bool take(const QByteArray& bytes) {
        m_pending += bytes;
        boost::system::error_code error;
        while (!m_pending.isEmpty() && !error && !m_parser.is_done())
            m_pending.remove(
                0, static_cast<int>(m_parser.put(
                       boost::asio::buffer(m_pending.constData(), static_cast<std::size_t>(m_pending.size())), error)));
        return !error || error == http::error::need_more;
    }
    /// Nothing more comes.
    void end() {
        boost::system::error_code ignored;
        if (m_parser.got_some() && !m_parser.is_done())
            m_parser.put_eof(ignored);
    }
    bool isWhole() const { return m_parser.is_done(); }
    const http::response<http::string_body>* head() const {
        return m_parser.is_header_done() ? &m_parser.get() : nullptr;
    }

private:
    http::response_parser<http::string_body> m_parser;
    QByteArray m_pending;
};

FileTransfer::FileTransfer(std::shared_ptr<Exchange> exchange, std::chrono::milliseconds patience, QObject* parent)
    : QObject(parent), m_exchange(std::move(exchange)) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    m_patience.callOnTimeout(this, [this] {
        m_exchange->timedOut = true;
        finish();
    });
    m_patience.start();
}

void FileTransfer::cancel() {
    if (m_ended)
        return;
    m_exchange->cancelled = true;
    finish();
}

void FileTransfer::moved(qint64 total) {
    if (m_ended)
        return;
    m_exchange->moved = total;
    m_patience.start();
}

void FileTransfer::fail(const QString& fault) {
    if (m_ended)
        return;
    m_exchange->fault = fault;
    finish();
}

void FileTransfer::finish() {
    if (m_ended)
        return;
    m_ended = true;
    m_patience.stop();
    release();
    m_exchange->md5 = m_hash.result().toHex();
    m_exchange->done.set_value();
    deleteLater();
}

FileUpload::FileUpload(std::shared_ptr<Exchange> exchange, std::chrono::milliseconds patience, QNetworkRequest request,
                       const QString& path, QObject* parent)
    : FileTransfer(std::move(exchange), patience, parent),
      m_request(std::move(request)),
      m_file(path),
      m_answer(std::make_unique<AnswerReader>()) {
    connect(&m_socket, &QTcpSocket::connected, this, &FileUpload::sendHead);
    connect(&m_socket, &QTcpSocket::bytesWritten, this, [this](qint64 bytes) {
        m_written += bytes;
        moved(std::max<qint64>(0, m_written - m_headSize));
        sendMore();
    });
    connect(&m_socket, &QTcpSocket::readyRead, this, &FileUpload::readAnswer);
    connect(&m_socket, &QTcpSocket::errorOccurred, this, [this] {
        readAnswer();
        m_answer->end();
        takeAnswer();
    });
}

FileUpload::~FileUpload() = default;

void FileUpload::start() {
    const QFileInfo info(m_file);
    if (!info.isFile())
        return fail(info.exists() ? tr("所选的不是普通文件") : tr("文件不存在或已被移走"));
    m_modified = info.lastModified();
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return fail(tr("无法读取文件，请检查权限"));
    m_size = m_file.size();
    exchange().total = m_size;
    const QUrl url = m_request.url();
    m_socket.connectToHost(url.host(), static_cast<quint16>(url.port(kHttpPort)));
}

void FileUpload::release() {
    m_socket.disconnect(this);
    m_socket.abort();
    m_file.close();
}

void FileUpload::sendHead() {
    const QUrl url = m_request.url();
    QByteArray head = "POST " + url.path(QUrl::FullyEncoded).toLatin1() + "?" +
                      url.query(QUrl::FullyEncoded).toLatin1() +
                      " HTTP/1.1\r\nHost: " + url.authority(QUrl::FullyEncoded).toLatin1() + "\r\n";
    for (const QByteArray& name : m_request.rawHeaderList())
        head += name + ": " + m_request.rawHeader(name) + "\r\n";
    head += "Content-Length: " + QByteArray::number(m_size) + "\r\nConnection: close\r\n\r\n";
    m_headSize = head.size();
    m_socket.write(head);
    sendMore();
}

void FileUpload::sendMore() {
    while (!hasEnded() && m_read < m_size && m_socket.bytesToWrite() < kMostUnsent) {
        m_chunk.resize(static_cast<int>(std::min(kChunk, m_size - m_read)));
        const qint64 count = m_file.read(m_chunk.data(), m_chunk.size());
        if (count < 0)
            return fail(tr("无法读取文件"));
        // Looked at before the last bytes go out, so that the service never has a whole body of a changed file.
        if (count == 0 || (m_read + count == m_size && !isUnchanged()))
            return fail(tr("文件在上传过程中发生了变化，请重新上传"));
        m_read += count;
        hash().addData(m_chunk.constData(), static_cast<int>(count));
        m_socket.write(m_chunk.constData(), count);
    }
}

bool FileUpload::isUnchanged() const {
    const QFileInfo now(m_file.fileName());
    return now.isFile() && now.size() == m_size && now.lastModified() == m_modified && m_file.size() == m_size;
}

void FileUpload::readAnswer() {
    if (hasEnded())
        return;
    if (!m_answer->take(m_socket.readAll()) || m_answer->isWhole())
        takeAnswer();
}

void FileUpload::takeAnswer() {
    if (hasEnded())
        return;
    if (const auto* answer = m_answer->head()) {
        exchange().status = static_cast<int>(answer->result_int());
        exchange().complete = m_answer->isWhole();
        const auto type = answer->find(http::field::content_type);
        exchange().isHtml =
            type != answer->end() &&
            QByteArray(type->value().data(), static_cast<int>(type->value().size())).toLower().contains("text/html");
        exchange().body = QByteArray::fromStdString(answer->body());
    }
    finish();
}

FileDownload::FileDownload(std::shared_ptr<Exchange> exchange, std::chrono::milliseconds patience,
                           QNetworkRequest request, const QString& path, QNetworkAccessManager& network,
                           QObject* parent)
    : FileTransfer(std::move(exchange), patience, parent),
      m_request(std::move(request)),
      m_target(path),
      m_network(network) {}

void FileDownload::start() {
    m_reply = m_network.get(m_request);
    m_reply->setParent(this);
    m_reply->setReadBufferSize(kMostUnread);
    connect(m_reply, &QNetworkReply::readyRead, this, &FileDownload::readSome);
    connect(m_reply, &QNetworkReply::finished, this, &FileDownload::onFinished);
}

void FileDownload::release() {
    m_reply->disconnect(this);
    m_reply->abort();
    if (exchange().hasFile)
        return;
    m_target.cancelWriting();
    m_target.commit();  // which removes the temporary file, so that its folder can go
    removeNewFolders();
}

bool FileDownload::isFile() const {
    return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() == kOk &&
           m_reply->header(QNetworkRequest::ContentTypeHeader).toString() == "application/octet-stream";
}

bool FileDownload::openTarget() {
    const QString folder = QFileInfo(m_target.fileName()).absolutePath();
    for (QString path = folder; !QFileInfo::exists(path); path = QFileInfo(path).path())
        m_newFolders << path;
    return QDir().mkpath(folder) && m_target.open(QIODevice::WriteOnly);
}

bool FileDownload::readSome() {
    if (hasEnded())
        return false;
    if (!isFile()) {
        exchange().body += m_reply->read(kLargestAnswer - exchange().body.size());
        return true;
    }
    if (!m_target.isOpen()) {
        if (!openTarget()) {
            fail(tr("无法写入文件 %1").arg(QDir::toNativeSeparators(m_target.fileName())));
            return false;
        }
        exchange().total = m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    }
    const QByteArray bytes = m_reply->readAll();
    hash().addData(bytes);
    if (m_target.write(bytes) != bytes.size()) {
        fail(tr("无法写入文件，磁盘空间可能不足"));
        return false;
    }
    moved(exchange().moved + bytes.size());
    return true;
}

void FileDownload::onFinished() {
    if (hasEnded())
        return;
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    exchange().status = status;
    exchange().complete = m_reply->error() == QNetworkReply::NoError || status >= kBadRequest;
    exchange().isHtml =
        m_reply->header(QNetworkRequest::ContentTypeHeader).toString().contains("text/html", Qt::CaseInsensitive);
    if (!readSome())
        return;
    // Qt ends a reply that broke off like a whole one if the end of the connection reached it with the last bytes.
    if (isFile() && exchange().moved < exchange().total)
        exchange().complete = false;
    if (isFile() && exchange().complete) {
        if (exchange().moved != exchange().total || m_reply->rawHeader("ETag") != '"' + hash().result().toHex() + '"')
            return fail(tr("下载的文件校验失败，请重试"));
        if (!m_target.commit())
            return fail(tr("无法写入文件 %1，磁盘空间可能不足").arg(QDir::toNativeSeparators(m_target.fileName())));
        exchange().hasFile = true;
    }
    finish();
}

void FileDownload::removeNewFolders() {
    for (const QString& folder : m_newFolders)
        QDir().rmdir(folder);
}

}  // namespace workbench
