#include <boost/core/demangle.hpp>
#include <gtest/gtest.h>
#include <initializer_list>
#include <typeinfo>

#include "client/model/MultipartFormData.h"
#include "client/model/ResponseEntities.h"
#include "client/model/TaskRequestModels.h"
#include "tests/support/Golden.h"

namespace {

using namespace io::swagger::client::model;
using support::pretty;
using support::readText;
using web::json::value;

template <class M>
void readInto(M& model, const std::string& text) {
    auto json = value::parse(text);
    model.fromJson(json);
    if constexpr (requires { model.checkResult(); })
        model.checkResult();
}

/// A record read from the hand-written file of its name: has every field of the file and no other, and writes the same
/// text again, the fields in their order; likewise by way of multipart.
template <class M>
void expectGolden(const std::string& name) {
    SCOPED_TRACE(name);
    const std::string golden = readText("golden/" + name + ".json");
    ASSERT_FALSE(golden.empty());
    M model;
    readInto(model, golden);
    for (const FieldBase* field = model.fields(); field; field = field->next())
        EXPECT_TRUE(field->isSet()) << field->key();
    EXPECT_EQ(pretty(model.toJson().serialize()) + "\n", golden);

    const auto multipart = std::make_shared<MultipartFormData>();
    model.toMultipart(multipart, "record");
    M copy;
    copy.fromMultiPart(multipart, "record.");
    EXPECT_EQ(pretty(copy.toJson().serialize()) + "\n", golden);
}

/// Each record, a class of its own, from the file of its name.
template <class... Records>
void expectEach() {
    const auto nameOf = [](const std::string& type) { return type.substr(type.rfind(':') + 1); };
    (expectGolden<Records>(nameOf(boost::core::demangle(typeid(Records).name()))), ...);
}

TEST(Model, EveryRecordKeepsItsGoldenText) {
    expectEach<DisclosureCatalogSaveRequest, DisclosureCatalogUpdateRequest, DisclosureCatalogMoveRequest,
               DisclosureCatalogDelRequest, DeptResponse, UserResponse, AttachementResponse,
               DisclosureTaskReceiveUserSaveRequest, DisclosureTaskViewportSaveRequest, DisclosureTaskNodeSaveRequest,
               DisclosureTaskDocSaveRequest, DisclosureTaskSaveRequest, DisclosureTaskUpdateRequest,
               DisclosureTaskBatchDelRequest, DisclosureTaskConfirmByReceiveUserRequest,
               DisclosureTaskConfirmByDisclosureUserRequest, DisclosureTaskUrgeRequest,
               DisclosureTaskOperationLogSaveRequest, DisclosureTaskPushConfigSaveRequest,
               DisclosureTaskPushConfigUpdateRequest, DisclosureTaskQueryRequest, DisclosureTaskReceiveUserResponse,
               DisclosureTaskViewportResponse, DisclosureTaskNodeResponse, DisclosureTaskResponse,
               DisclosureTask4StatusResponse, DisclosureTaskOperationLogResponse,
               QueryCondition4DisclosureTaskResponse>();
    expectGolden<ResponseEntityBoolean>("ResponseEntityBoolean");
    expectGolden<ResponseEntityResultState>("ResponseEntityResultState");
    expectGolden<ResponseEntityListDisclosureCatalogResponse>("ResponseEntityListDisclosureCatalogResponse");
    expectGolden<QueryResultDisclosureTaskResponse>("QueryResultDisclosureTaskResponse");
    expectGolden<QueryResultDisclosureTask4StatusResponse>("QueryResultDisclosureTask4StatusResponse");
    expectGolden<ResponseEntityDisclosureTaskResponse>("ResponseEntityDisclosureTaskResponse");
    expectGolden<ResponseEntityDisclosureTaskPushConfigResponse>("ResponseEntityDisclosureTaskPushConfigResponse");
    expectGolden<ResponseEntityListDisclosureTaskOperationLogResponse>(
        "ResponseEntityListDisclosureTaskOperationLogResponse");
    expectGolden<ResponseEntityQueryCondition4DisclosureTaskResponse>(
        "ResponseEntityQueryCondition4DisclosureTaskResponse");
    expectGolden<ResponseEntityQueryResultDisclosureTask4StatusResponse>(
        "ResponseEntityQueryResultDisclosureTask4StatusResponse");
    expectGolden<ResponseEntityQueryResultDisclosureTaskResponse>("ResponseEntityQueryResultDisclosureTaskResponse");
    expectGolden<AttachementSaveRequest>("AttachementResponse");
    expectGolden<DisclosureTaskDocResponse>("DisclosureTaskDocSaveRequest");
    expectGolden<DisclosureTaskPushConfigResponse>("DisclosureTaskPushConfigSaveRequest");
    expectGolden<QueryCondition4DisclosureTaskRsponse>("QueryCondition4DisclosureTaskResponse");
    expectGolden<ResponseEntityQueryCondition4DisclosureTaskRsponse>(
        "ResponseEntityQueryCondition4DisclosureTaskResponse");
}

TEST(Model, TheFlagDecidesWhatIsWritten) {
    DisclosureCatalogSaveRequest request;
    EXPECT_EQ(request.toJson().serialize(), "{}");
    request.setName("");
    request.setId("7");
    EXPECT_EQ(request.toJson().serialize(), R"({"id":"7","name":""})");
    request.unsetName();
    EXPECT_EQ(request.getName(), "");
    EXPECT_EQ(request.toJson().serialize(), R"({"id":"7"})");
}

TEST(Model, NullReadsAsTheDefaultAndIsSet) {
    DisclosureCatalogMoveRequest request;
    readInto(request, R"({"id":null,"offset":null})");
    EXPECT_TRUE(request.idIsSet() && request.offsetIsSet());
    EXPECT_EQ(request.toJson().serialize(), R"({"id":"","offset":0})");

    ResponseEntityResultState state;
    state.setSuccess(true);
    readInto(state, R"({"code":500,"success":null,"result":null})");
    EXPECT_FALSE(state.msgIsSet());
    EXPECT_TRUE(state.resultIsSet() && state.successIsSet());
    EXPECT_EQ(state.getResult(), nullptr);
    EXPECT_FALSE(state.getSuccess());

    ResponseEntityListDisclosureCatalogResponse list;
    readInto(list, R"({"result":[{"id":"a"},null,{"sort":null}]})");
    ASSERT_EQ(list.getResult().size(), 3u);
    EXPECT_EQ(list.getResult()[1], nullptr);
    EXPECT_TRUE(list.getResult()[2]->sortIsSet());
    readInto(list, R"({"result":null})");
    EXPECT_TRUE(list.getResult().empty());
}

template <class M>
void expectRefused(std::initializer_list<const char*> texts) {
    for (const char* text : texts) {
        M model;
        EXPECT_THROW(readInto(model, text), web::json::json_exception) << text;
    }
}

TEST(Model, AnotherTypeIsRefusedAndNumbersAreWholeAndInRange) {
    using List = ResponseEntityListDisclosureCatalogResponse;
    expectRefused<List>({R"({"code":"200"})", R"({"code":true})", R"({"success":1})", R"({"msg":{}})",
                         R"({"result":{"id":"a"}})", R"({"result":[5]})", R"({"result":[{"sort":"1"}]})",
                         R"({"code":4294967496})", R"({"code":200.9})", R"({"code":1e300})", R"({"code":2147483648.0})",
                         R"({"code":-2147483649})"});
    expectRefused<QueryResultDisclosureTaskResponse>(
        {R"({"totalCount":18446744073709551615})", R"({"totalCount":18446744073709551616})",
         R"({"totalCount":9223372036854775808.0})", R"({"totalCount":0.5})"});
    for (const char* text : {"null", "[]", "5", R"({"Code":200,"unknown":[]})"}) {
        List list;
        readInto(list, text);
        EXPECT_EQ(list.toJson().serialize(), "{}") << text;
    }
    ResponseEntityResultState state;
    readInto(state, R"({"code":2e2})");
    EXPECT_EQ(state.getCode(), 200);
    readInto(state, R"({"code":-2147483648.0})");
    EXPECT_EQ(state.getCode(), -2147483647 - 1);
}

}  // namespace
