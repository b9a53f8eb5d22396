#include "service/http/Dispatcher.h"

#include <boost/asio/post.hpp>
#include <spdlog/spdlog.h>
#include <utility>

#include "service/http/Upload.h"

namespace disclosure {

namespace asio = boost::asio;

Dispatcher::Dispatcher(const Service& service, IDatabase& database, const Settings& settings)
    : m_service(service),
      m_loginsOfOne(settings.loginsOfOne),
      m_patience(settings.patience),
      m_uploads(settings.uploads),
      m_uploadsOfOne(settings.uploadsOfOne),
      m_downloads(settings.downloads),
      m_downloadsOfOne(settings.downloadsOfOne),
      m_readers(database, settings.readers, settings.longestQueue),
      m_writer(database, 1, settings.longestQueue),
      m_loginWorkers(database, settings.loginWorkers, settings.longestLoginQueue) {}

Dispatcher::Body Dispatcher::bodyOf(const Request& header) const {
    const Service::Asked asked = m_service.askedBy(header);
    return asked.work == Work::Upload ? Body::Apart : asked.session ? Body::OfSession : Body::OfStranger;
}

void Dispatcher::admit(Request header, std::function<void(std::optional<Response>)> done) {
    const bool taken = m_readers.submit(
        [this, header = std::move(header), done](IStore& store) { done(m_service.refusalOf(header, store)); });
    if (!taken)
        done(answerBusy());
}

void Dispatcher::dispatch(Request request, std::string client, Done done) {
    const Work work = m_service.askedBy(request).work;
    if (work == Work::None) {
        done(m_service.answer(request, client, nullptr));
        return;
    }
    auto place = placeFor(work, client);
    const bool reads = &workersFor(work) == &m_readers;
    const auto until = std::chrono::steady_clock::now() + m_patience;
    const bool taken = place && workersFor(work).submit([this, request = std::move(request), client = std::move(client),
                                                         place = std::move(*place), done, reads, until](IStore& store) {
        if (!reads && std::chrono::steady_clock::now() > until) {
            done({answerBusy()});
            return;
        }
        done(withinShare(m_service.answer(request, client, &store), place, store));
        if (m_service.sessionUses().claim())
            m_writer.add([this](IStore& writing) { m_service.sessionUses().write(writing); });
    });
    if (!taken)
        done({answerBusy()});
}

/// Nothing when all are taken; null where none is needed.
std::optional<std::shared_ptr<void>> Dispatcher::placeFor(Work work, const std::string& client) {
    if (work != Work::Login && work != Work::Upload && work != Work::Download)
        return nullptr;
    std::shared_ptr<void> place = work == Work::Login    ? m_loginsOfOne.take(client)
                                  : work == Work::Upload ? m_uploads.take()
                                                         : m_downloads.take();
    return place ? std::optional(std::move(place)) : std::nullopt;
}

Workers& Dispatcher::workersFor(Work work) {
    switch (work) {
        case Work::Login:
            return m_loginWorkers;
        case Work::Write:
        case Work::Upload:
            return m_writer;
        default:
            return m_readers;
    }
}

/// Of the transfers one person has only a share.
Reply Dispatcher::withinShare(Reply reply, std::shared_ptr<void> place, IStore& store) {
    Transfer& file = reply.file;
    if (!file.upload && !file.content)
        return reply;
    if (auto share = (file.upload ? m_uploadsOfOne : m_downloadsOfOne).take(file.username)) {
        using Both = std::pair<std::shared_ptr<void>, std::shared_ptr<void>>;
        file.place = std::make_shared<Both>(std::move(place), std::move(share));
        return reply;
    }
    if (file.upload) {
        const PendingFile pending = file.upload->pending();
        file.upload.reset();
        m_service.uploadEnd().giveUp(pending, store);
    }
    return {answerBusy()};
}

void Dispatcher::write(std::shared_ptr<Upload> upload, std::string_view piece,
                       std::function<void(std::optional<Response>)> done) {
    asio::post(m_fileThreads, [upload = std::move(upload), piece, done = std::move(done)] {
        std::optional<Response> refusal;
        try {
            upload->take(piece);
        } catch (...) {
            refusal = answerToFailure("upload");
        }
        done(std::move(refusal));
    });
}

void Dispatcher::finish(std::shared_ptr<Upload> upload, std::function<void(Response)> done) {
    asio::post(m_fileThreads, [this, upload = std::move(upload), done = std::move(done)]() mutable {
        std::string md5;
        try {
            md5 = upload->finish();
        } catch (...) {
            done(answerToFailure("upload"));
            abandon(std::move(upload));
            return;
        }
        m_writer.add([this, pending = upload->pending(), md5, done](IStore& store) {
            done(m_service.uploadEnd().keep(pending, md5, store));
        });
    });
}

void Dispatcher::abandon(std::shared_ptr<Upload> upload) {
    asio::post(m_fileThreads, [this, upload = std::move(upload)]() mutable {
        const PendingFile pending = upload->pending();
        upload.reset();
        m_writer.add([this, pending](IStore& store) { m_service.uploadEnd().giveUp(pending, store); });
    });
}

void Dispatcher::read(std::shared_ptr<FileReader> content, std::span<char> piece,
                      std::function<void(std::size_t)> done) {
    asio::post(m_fileThreads, [content = std::move(content), piece, done = std::move(done)] {
        std::size_t count = 0;
        try {
            count = content->read(piece);
        } catch (const std::exception& error) {
            spdlog::error("{}", error.what());
        }
        done(count);
    });
}

void Dispatcher::settle(std::chrono::steady_clock::time_point until) {
    m_loginWorkers.stop(until);
    m_readers.stop(until);
    // A piece each at most, of so many transfers as there are places; what follows them is the writer's.
    m_fileThreads.join();
    m_writer.stop(until);
}

}  // namespace disclosure
