#pragma once

#include "service/http/Awaitable.h"
#include "service/http/Dispatcher.h"
#include "service/http/Line.h"
#include "service/http/RequestReader.h"

namespace disclosure {

/// Takes an upload that was let in off the line, piece by piece, the next once the last is on the disk. Returns the
/// answer; what there is of the upload is removed when it is a refusal or the line is gone.
boost::asio::awaitable<Response> receiveUpload(Line& line, RequestReader& reader, Dispatcher& dispatcher,
                                               Transfer transfer);

/// Writes an answer whose body is the content of a file, piece by piece.
boost::asio::awaitable<void> sendContent(Line& line, Dispatcher& dispatcher, Response message, Transfer transfer);

}  // namespace disclosure
