#include "service/http/Transfers.h"

#include <algorithm>
#include <vector>

#include "service/http/CalledBack.h"
#include "service/http/Upload.h"

namespace disclosure {

namespace asio = boost::asio;

namespace {

constexpr std::size_t Piece = 256UL * 1024;

/// An upload that is given up unless it is taken out again.
class Unfinished {
public:
    Unfinished(Dispatcher& dispatcher, std::shared_ptr<Upload> upload)
        : m_dispatcher(dispatcher), m_upload(std::move(upload)) {}
    ~Unfinished() {
        if (m_upload)
            m_dispatcher.abandon(std::move(m_upload));
    }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;
    const std::shared_ptr<Upload>& get() const { return m_upload; }
    std::shared_ptr<Upload> take() { return std::move(m_upload); }

private:
    Dispatcher& m_dispatcher;
    std::shared_ptr<Upload> m_upload;
};

}  // namespace

asio::awaitable<Response> receiveUpload(Line& line, RequestReader& reader, Dispatcher& dispatcher, Transfer transfer) {
    using Refusal_ = std::optional<Response>;
    Unfinished upload(dispatcher, std::move(transfer.upload));
    std::uint64_t left = reader.length();
    std::vector<char> piece(static_cast<std::size_t>(std::min<std::uint64_t>(left, Piece)));
    co_await reader.allowBody();
    do {
        const std::span next(piece.data(), static_cast<std::size_t>(std::min<std::uint64_t>(left, piece.size())));
        co_await line.read(next);
        line.stream().expires_never();
        left -= next.size();
        if (left == 0)
            reader.bodyIsRead();
        auto store = [&](std::function<void(Refusal_)> done) {
            dispatcher.write(upload.get(), {next.data(), next.size()}, std::move(done));
        };
        if (Refusal_ refusal = co_await calledBack<Refusal_>(store))
            co_return std::move(*refusal);
    } while (left > 0);
    auto finish = [&](std::function<void(Response)> done) { dispatcher.finish(upload.take(), std::move(done)); };
    co_return co_await calledBack<Response>(finish);
}

asio::awaitable<void> sendContent(Line& line, Dispatcher& dispatcher, Response message, Transfer transfer) {
    std::uint64_t left = transfer.contentSize;
    std::vector<char> piece(static_cast<std::size_t>(std::min<std::uint64_t>(left, Piece)));
    message.content_length(left);
    co_await line.writeHeader(message);
    while (left > 0) {
        line.stream().expires_never();
        const std::span next(piece.data(), static_cast<std::size_t>(std::min<std::uint64_t>(left, piece.size())));
        auto read = [&](std::function<void(std::size_t)> done) {
            dispatcher.read(transfer.content, next, std::move(done));
        };
        const std::size_t count = co_await calledBack<std::size_t>(read);
        // Less than was announced: only the end of the connection can tell the client.
        if (count == 0)
            throw boost::system::system_error(asio::error::eof);
        left -= count;
        co_await line.write(next.first(count));
    }
}

}  // namespace disclosure
