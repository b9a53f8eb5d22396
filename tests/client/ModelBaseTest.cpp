#include <gtest/gtest.h>
#include <limits>
#include <sstream>

#include "client/model/ModelBase.h"
#include "client/model/MultipartFormData.h"
#include "tests/support/Slots.h"

namespace {

using namespace io::swagger::client::model;
using web::json::value;

template <class Value, class FromJson, class FromContent>
void expectRoundTrip(const Value& original, FromJson fromJson, FromContent fromContent) {
    EXPECT_EQ(fromJson(ModelBase::toJson(original)), original);
    EXPECT_EQ(fromContent(ModelBase::toHttpContent("x", original)), original);
    EXPECT_EQ(fromJson(value::null()), Value());
}

TEST(ModelBase, ValuesComeBackAsTheyWere) {
    expectRoundTrip<std::string>("第一\n行\\", &ModelBase::stringFromJson, &ModelBase::stringFromHttpContent);
    expectRoundTrip(std::numeric_limits<int32_t>::min(), &ModelBase::int32FromJson, &ModelBase::int32FromHttpContent);
    expectRoundTrip(std::numeric_limits<int64_t>::max(), &ModelBase::int64FromJson, &ModelBase::int64FromHttpContent);
    expectRoundTrip(-0.1, &ModelBase::doubleFromJson, &ModelBase::doubleFromHttpContent);
    expectRoundTrip(true, &ModelBase::boolFromJson, &ModelBase::boolFromHttpContent);
    const auto date = utility::datetime::from_string("2024-02-29T23:59:59Z", utility::datetime::ISO_8601);
    expectRoundTrip(date, &ModelBase::dateFromJson, &ModelBase::dateFromHttpContent);
    EXPECT_EQ(ModelBase::toJson(date).as_string(), "2024-02-29T23:59:59Z");

    EXPECT_THROW(ModelBase::int32FromHttpContent(ModelBase::toHttpContent("x", std::string("12a"))),
                 std::invalid_argument);
    EXPECT_THROW(ModelBase::boolFromHttpContent(ModelBase::toHttpContent("x", 1)), std::invalid_argument);
}

TEST(ModelBase, FilesTravelInBase64) {
    auto file = ModelBase::toHttpContent("f", std::string("\0\xff任意", 8), "text/plain");
    file->setFileName("a.txt");
    const value json = ModelBase::toJson(file);
    EXPECT_EQ(json.serialize(), R"({"ContentDisposition":"form-data","ContentType":"text/plain",)"
                                R"("FileName":"a.txt","InputStream":"AP/ku7vmhI8="})");
    const auto back = ModelBase::httpContentFromJson(json);
    EXPECT_EQ(ModelBase::toJson(back), json);
    EXPECT_EQ(back->getFileName(), "a.txt");
    EXPECT_EQ(ModelBase::httpContentFromJson(value::null())->getData(), nullptr);
    EXPECT_TRUE(ModelBase::toJson(ModelBase::Content()).is_null());
}

TEST(ModelBase, OperationsStandInTheirSlots) {
    using M = ModelBase;  // from slot 1 on, since both destructors come first
    support::expectSlotsFrom(1, &M::validate, static_cast<value (M::*)() const>(&M::toJson), &M::fromJson,
                             &M::toMultipart, &M::fromMultiPart);
    using C = HttpContent;
    support::expectSlotsFrom(1, &C::getContentDisposition, &C::setContentDisposition, &C::getName, &C::setName,
                             &C::getFileName, &C::setFileName, &C::getContentType, &C::setContentType, &C::getData,
                             &C::setData, &C::writeTo);
}

TEST(ModelBase, Base64RefusesWhatIsNone) {
    const auto failure = [](const std::string& text) -> std::string {
        try {
            return "decoded: " + ModelBase::fromBase64(text);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
    };
    EXPECT_EQ(failure(""), "decoded: ");
    EXPECT_EQ(failure("YQ=="), "decoded: a");
    EXPECT_EQ(failure("YWI="), "decoded: ab");
    EXPECT_EQ(failure("YWJj"), "decoded: abc");
    for (const char* text : {"YQ=", "YQ", "Y===", "====", "YQ=a", "=YQ=", "Y=Q=", "YR==", "YWK="})
        EXPECT_EQ(failure(text), "Invalid Padding in Base 64!") << text;
    for (const char* text : {"YW-j", "YW\nj", "Y_==", "\xe4\xbb\xbb="})
        EXPECT_EQ(failure(text), "Non-Valid Character in Base 64!") << text;
}

TEST(HttpContent, DataThatCannotBeSoughtInIsNoEmptyPart) {
    struct Pipe : std::stringbuf {  // read on and on, like one
        using std::stringbuf::stringbuf;
        pos_type seekpos(pos_type, std::ios_base::openmode) override { return pos_type(off_type(-1)); }
    } pipe("data");
    HttpContent content;
    content.setData(std::make_shared<std::istream>(&pipe));
    std::ostringstream out;
    EXPECT_THROW(content.writeTo(out), std::runtime_error);
}

TEST(MultipartFormData, BoundariesAreUuidsOfTheirOwnAndBodiesMayBeWrittenTwice) {
    MultipartFormData first;
    MultipartFormData second;
    EXPECT_EQ(first.getBoundary().size(), 36u);
    EXPECT_NE(first.getBoundary(), second.getBoundary());

    auto file = ModelBase::toHttpContent("f", std::string("data"), "text/plain");
    file->setFileName("平面图.txt");
    auto empty = ModelBase::toHttpContent("e", std::string());
    MultipartFormData multipart("b");
    multipart.add(file);
    multipart.add(empty);
    for (int i = 0; i < 2; ++i) {
        std::ostringstream text;
        multipart.writeTo(text);
        EXPECT_EQ(text.str(),
                  "\r\n--b\r\nContent-Disposition: form-data; name=\"f\"; filename=\"平面图.txt\"\r\n"
                  "Content-Type: text/plain\r\n\r\ndata"
                  "\r\n--b\r\nContent-Disposition: form-data; name=\"e\"\r\n\r\n\r\n--b--\r\n");
    }
    EXPECT_EQ(multipart.getContent("f"), file);
    EXPECT_EQ(multipart.getContent("missing"), nullptr);
}

}  // namespace
