#pragma once

#include <chrono>
#include <memory>

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QNetworkRequest>
#include <QSaveFile>
#include <QStringList>
#include <QTcpSocket>
#include <QTimer>

#include "host/platform/Exchange.h"

class QNetworkAccessManager;
class QNetworkReply;

namespace workbench {

/// A file on its way to or from the service. Lives on the worker's thread, ends the exchange once and deletes itself.
class FileTransfer : public QObject {
    Q_OBJECT

public:
    /// Ends when nothing has moved for `patience`.
    FileTransfer(std::shared_ptr<Exchange> exchange, std::chrono::milliseconds patience, QObject* parent);

    virtual void start() = 0;
    void cancel();

protected:
    void moved(qint64 total);
    void fail(const QString& fault);
    void finish();
    /// Once it has, the exchange is its caller's alone.
    bool hasEnded() const { return m_ended; }

    Exchange& exchange() { return *m_exchange; }
    QCryptographicHash& hash() { return m_hash; }

private:
    /// Lets go of the connection.
    virtual void release() = 0;

    std::shared_ptr<Exchange> m_exchange;
    QCryptographicHash m_hash{QCryptographicHash::Md5};
    QTimer m_patience;
    bool m_ended = false;
};

class AnswerReader;

/// Sends a file as the body of a POST and reads it once while it does. It has a connection of its own instead of Qt's
/// HTTP classes, because these look at no answer before they have sent all: a refusal that comes early would be lost.
class FileUpload : public FileTransfer {
    Q_OBJECT

public:
    FileUpload(std::shared_ptr<Exchange> exchange, std::chrono::milliseconds patience, QNetworkRequest request,
               const QString& path, QObject* parent);
    ~FileUpload() override;

    void start() override;

private:
    void release() override;
    void sendHead();
    void sendMore();
    /// Whether the file is still what it was at the start.
    bool isUnchanged() const;
    void readAnswer();
    void takeAnswer();

    QNetworkRequest m_request;
    QFile m_file;
    qint64 m_size = 0;
    QDateTime m_modified;
    qint64 m_read = 0;
    qint64 m_headSize = 0;
    qint64 m_written = 0;
    QByteArray m_chunk;
    QTcpSocket m_socket;
    std::unique_ptr<AnswerReader> m_answer;
};

/// Fetches a file. What arrives goes to a temporary file beside the target, and takes its place when it is whole.
class FileDownload : public FileTransfer {
    Q_OBJECT

public:
    FileDownload(std::shared_ptr<Exchange> exchange, std::chrono::milliseconds patience, QNetworkRequest request,
                 const QString& path, QNetworkAccessManager& network, QObject* parent);

    void start() override;

private:
    void release() override;
    /// Whether the answer is the file and not a refusal.
    bool isFile() const;
    bool openTarget();
    /// False when that ended the transfer.
    bool readSome();
    void onFinished();
    void removeNewFolders();

    QNetworkRequest m_request;
    QSaveFile m_target;
    QStringList m_newFolders;  // innermost first
    QNetworkAccessManager& m_network;
    QNetworkReply* m_reply = nullptr;
};

}  // namespace workbench
