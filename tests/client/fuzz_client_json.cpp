#include <cstdint>
#include <cstdlib>
#include <string>

#include "client/model/ResponseEntities.h"

// Any bytes as the service's answer: read into every wrapper, or refused with a standard exception. What was read is
// written, and reads as the same again.
namespace {

using namespace io::swagger::client::model;

template <class Wrapper>
void readAndWrite(const std::string& text) {
    web::json::value written;
    try {
        auto answer = web::json::value::parse(text);
        Wrapper wrapper;
        wrapper.fromJson(answer);
        written = wrapper.toJson();
    } catch (const std::exception&) {
        return;
    }
    auto again = web::json::value::parse(written.serialize());
    Wrapper wrapper;
    wrapper.fromJson(again);
    if (wrapper.toJson().serialize() != written.serialize())
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    readAndWrite<ResponseEntityBoolean>(text);
    readAndWrite<ResponseEntityResultState>(text);
    readAndWrite<ResponseEntityListDisclosureCatalogResponse>(text);
    readAndWrite<ResponseEntityDisclosureTaskResponse>(text);
    readAndWrite<ResponseEntityDisclosureTaskPushConfigResponse>(text);
    readAndWrite<ResponseEntityListDisclosureTaskOperationLogResponse>(text);
    readAndWrite<ResponseEntityQueryCondition4DisclosureTaskResponse>(text);
    readAndWrite<ResponseEntityQueryCondition4DisclosureTaskRsponse>(text);
    readAndWrite<ResponseEntityQueryResultDisclosureTask4StatusResponse>(text);
    readAndWrite<ResponseEntityQueryResultDisclosureTaskResponse>(text);
    return 0;
}
