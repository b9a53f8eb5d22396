#include "service/http/Dispatcher.h"

#include <boost/asio/post.hpp>
#include <spdlog/spdlog.h>
#include <utility>

#include "service/http/Upload.h"

namespace disclosure {

namespace asio = boost::asio;

std::shared_ptr<void> Places::take() {
    for (std::size_t free = m_free; free > 0;) {
        if (m_free.compare_exchange_weak(free, free - 1))
            return {this, [](Places* places) { ++places->m_free; }};
    }
    return nullptr;
}

std::shared_ptr<void> PersonalPlaces::take(const std::string& username) {
    const std::lock_guard lock(m_mutex);
    std::size_t& taken = m_taken[username];
    if (taken == m_most)
        return nullptr;
    ++taken;
    return {this, [username](PersonalPlaces* places) {
                const std::lock_guard guard(places->m_mutex);
                const auto own = places->m_taken.find(username);
                if (--own->second == 0)
                    places->m_taken.erase(own);
            }};
}

Dispatcher::Dispatcher(const Service& service, IDatabase& database, const Settings& settings)
    : m_service(service),
      m_uploads(settings.uploads),
      m_ownUploads(settings.uploadsOfOne),
      m_downloads(settings.downloads),
      m_readers(database, settings.readers, settings.longestQueue),
      m_writer(database, 1, settings.longestQueue),
      m_loginWorkers(database, settings.loginWorkers, settings.longestLoginQueue) {}

void Dispatcher::dispatch(Request request, std::string address, Done done) {
    const Work work = m_service.workFor(request);
    if (work == Work::None) {
        done(m_service.answer(request, address, nullptr));
        return;
    }
    std::shared_ptr<void> place;
    if (work == Work::Upload || work == Work::Download) {
        place = (work == Work::Upload ? m_uploads : m_downloads).take();
        if (!place) {
            done({answerBusy()});
            return;
        }
    }
    const bool taken = workersFor(work).submit(
        [this, request = std::move(request), address = std::move(address), place, done](IStore& store) {
            Reply reply = m_service.answer(request, address, &store);
            if (reply.file.upload || reply.file.content)
                reply.file.place = place;
            done(withinOwnPlaces(std::move(reply), store));
            if (m_service.sessionUses().claim())
                m_writer.add([this](IStore& writing) { m_service.sessionUses().write(writing); });
        });
    if (!taken)
        done({answerBusy()});
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

Reply Dispatcher::withinOwnPlaces(Reply reply, IStore& store) {
    if (!reply.file.upload)
        return reply;
    const PendingFile pending = reply.file.upload->pending();
    if (auto own = m_ownUploads.take(pending.username)) {
        reply.file.place = std::make_shared<std::pair<std::shared_ptr<void>, std::shared_ptr<void>>>(
            std::move(reply.file.place), std::move(own));
        return reply;
    }
    reply.file = {};
    m_service.giveUp(pending, store);
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
            done(m_service.keep(pending, md5, store));
        });
    });
}

void Dispatcher::abandon(std::shared_ptr<Upload> upload) {
    asio::post(m_fileThreads, [this, upload = std::move(upload)]() mutable {
        const PendingFile pending = upload->pending();
        upload.reset();
        m_writer.add([this, pending](IStore& store) { m_service.giveUp(pending, store); });
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

void Dispatcher::settle() {
    m_fileThreads.join();
    m_readers.stop();
    m_writer.stop();
    m_loginWorkers.stop();
}

}  // namespace disclosure
