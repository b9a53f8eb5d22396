#pragma once

#include <boost/asio/thread_pool.hpp>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "service/http/Places.h"
#include "service/http/Service.h"
#include "service/http/Workers.h"

namespace disclosure {

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
        std::size_t loginsOfOne = 16;  // client, in hand or waiting
        std::size_t uploads = 10;
        std::size_t uploadsOfOne = 4;  // person, so that nobody takes all of them
        std::size_t downloads = 64;
        std::size_t downloadsOfOne = 16;
        std::chrono::milliseconds patience{4000};  // a change that has waited longer for its turn is to come back
    };

    Dispatcher(const Service& service, IDatabase& database, const Settings& settings);

    /// How a request's body is to be read: after the request has been dispatched without it; with little patience, as
    /// anybody may ask for this; or, what is more than little, after `admit`.
    enum class Body { Apart, OfStranger, OfSession };
    Body bodyOf(const Request& header) const;
    /// Gives the answer where it is clear already from the header, as without a session.
    void admit(Request header, std::function<void(std::optional<Response>)> done);
    /// `client` is what counts as one client; see `Clients`.
    void dispatch(Request request, std::string client, Done done);

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

    /// Takes nothing more, and waits for what is in hand, and until then for what is waiting.
    void settle(std::chrono::steady_clock::time_point until);

private:
    static constexpr std::size_t FileThreads = 4;

    Workers& workersFor(Work work);
    std::optional<std::shared_ptr<void>> placeFor(Work work, const std::string& client);
    Reply withinShare(Reply reply, std::shared_ptr<void> place, IStore& store);

    const Service& m_service;
    Shares m_loginsOfOne;
    std::chrono::milliseconds m_patience;
    Places m_uploads;
    Shares m_uploadsOfOne;
    Places m_downloads;
    Shares m_downloadsOfOne;
    Workers m_readers;
    Workers m_writer;  // one, whose connection keeps its pages: nobody else of this process changes them often
    Workers m_loginWorkers;
    boost::asio::thread_pool m_fileThreads{FileThreads};
};

}  // namespace disclosure
