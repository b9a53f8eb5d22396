#pragma once

#include <atomic>
#include <functional>
#include <future>
#include <string>

#include <QByteArray>
#include <QString>

namespace workbench {

/// What passes between a caller and the worker; the worker fills it before it makes `done` ready.
struct Exchange {
    std::promise<void> done;
    bool timedOut = false;
    bool cancelled = false;
    bool complete = false;
    bool isHtml = false;
    int status = 0;
    QByteArray body;
    std::string sessionId;

    std::function<void()> cancel;  // set by the worker and called there

    // Of a transfer.
    std::atomic<qint64> moved = 0;  // bytes; the caller reads both while it waits
    std::atomic<qint64> total = 0;
    QByteArray md5;        // of all that was read or written, in hexadecimal
    bool hasFile = false;  // the file of a download stands in its place
    QString fault;         // what is wrong with the file, for the user
};

}  // namespace workbench
