#include "service/http/FileHandlers.h"

#include <spdlog/spdlog.h>

#include "service/http/Upload.h"
#include "service/text/Percent.h"

namespace disclosure {

namespace http = boost::beast::http;

namespace {

const std::string& textIn(const Call& call, const char* key) {
    const auto value = call.target.query.find(key);
    if (value == call.target.query.end())
        throw HttpError(http::status::bad_request, std::string("缺少参数") + key);
    return value->second;
}

Files rulesFor(const Call& call) {
    return {*call.store, call.username, call.now};
}

}  // namespace

Response beginUpload(Call& call) {
    const PendingFile pending = rulesFor(call).expect(call.deptId, textIn(call, "name"), call.bodySize, call.quota);
    call.file.upload = std::make_shared<Upload>(pending, call.files.create(pending.key.uuid));
    return {};
}

Response sendFile(Call& call) {
    const std::string uuid = call.target.path.substr(call.target.path.rfind('/') + 1);
    const StoredFile file = rulesFor(call).readable({textIn(call, "deptId"), uuid});
    call.file.content = call.files.open(file.key.uuid);
    if (!call.file.content) {
        spdlog::error("the content of the file {} is gone", file.key.uuid);
        throw Refusal(reasons::NoFile);
    }
    call.file.contentSize = static_cast<std::uint64_t>(file.size);
    Response response = answerWith(http::status::ok, "", "");
    response.set(http::field::content_type, OctetStream);
    response.set(http::field::etag, "\"" + file.md5 + "\"");
    response.set(http::field::content_disposition, "attachment; filename*=UTF-8''" + percentEncoded(file.name));
    return response;
}

Response takeBackFile(Call& call) {
    const FileKey key{call.deptId, textOf(call.body, "uuid")};
    if (rulesFor(call).takeBack(key))
        call.removedFiles.push_back(key.uuid);
    return done();
}

Response uploaded(const StoredFile& file) {
    return success([&](JsonWriter& writer) {
        writer.StartObject();
        write(writer, "uuid", file.key.uuid);
        write(writer, "md5", file.md5);
        writer.Key("size");
        writer.Int64(file.size);
        write(writer, "name", file.name);
        write(writer, "extension", file.extension);
        writer.EndObject();
    });
}

}  // namespace disclosure
