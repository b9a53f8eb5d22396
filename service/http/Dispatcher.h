#pragma once

#include <atomic>
#include <boost/asio/thread_pool.hpp>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "service/http/Service.h"
#include "service/http/Workers.h"

namespace disclosure {

/// So many may be at it at once.
class Places {
public:
    explicit Places(std::size_t most) : m_free(most) {}
    /// Null when all are taken. A place is free again when its last owner lets go of it.
    std::shared_ptr<void> take();

private:
    std::atomic<std::size_t> m_free;
};

/// So many may each person be at at once.
class PersonalPlaces {
public:
    explicit PersonalPlaces(std::size_t most) : m_most(most) {}
    /// As of `Places`.
    std::shared_ptr<void> take(const std::string& username);

private:
    std::size_t m_most;
    std::mutex m_mutex;
    std::map<std::string, std::size_t> m_taken;
};

/// Hands each request to the threads that may answer it, so that the I/O threads never wait for the database or the
/// disk, and log-ins never take more memory than a few hashes at once. Every `done` is called once, on this thread or
/// another.
class Dispatcher {
public:
    using Done = std::function<void(Reply)>;

    struct Settings {
        std::size_t readers = 2;
        std::size_t loginWorkers = 2;
        std::size_t longestQueue = 4096;
        std::size_t longestLoginQueue = 64;
        std::size_t uploads = 10;
        std::size_t uploadsOfOne = 4;  // person, so that nobody takes all of them
        std::size_t downloads = 64;
    };

    Dispatcher(const Service& service, IDatabase& database, const Settings& settings);

    /// Whether the request is to be dispatched before its body is read.
    bool isUpload(const Request& request) const { return m_service.workFor(request) == Work::Upload; }
    void dispatch(Request request, std::string address, Done done);

    /// Stores the next piece of an upload, which must stay where it is until `done`. Gives an answer when no more is
    /// wanted.
    void write(std::shared_ptr<Upload> upload, std::string_view piece,
               std::function<void(std::optional<Response>)> done);
    /// Every piece has been written.
    void finish(std::shared_ptr<Upload> upload, std::function<void(Response)> done);
    /// Removes what there is of an upload.
    void abandon(std::shared_ptr<Upload> upload);
    /// Reads on in a stored file; gives the number of bytes, 0 when no more can be had.
    void read(std::shared_ptr<FileReader> content, std::span<char> piece, std::function<void(std::size_t)> done);

    /// Takes nothing more, and waits for what is in hand.
    void settle();

private:
    static constexpr std::size_t FileThreads = 4;

    Workers& workersFor(Work work);
    /// Only so many uploads of one person are let in.
    Reply withinOwnPlaces(Reply reply, IStore& store);

    const Service& m_service;
    Places m_uploads;
    PersonalPlaces m_ownUploads;
    Places m_downloads;
    Workers m_readers;
    Workers m_writer;  // one, whose connection keeps its pages: nobody else of this process changes them often
    Workers m_loginWorkers;
    boost::asio::thread_pool m_fileThreads{FileThreads};
};

}  // namespace disclosure
