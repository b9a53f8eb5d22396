#include "client/model/Model.h"

#include <algorithm>

#include "client/model/MultipartFormData.h"

namespace io::swagger::client::model {
namespace {

utility::string_t withDot(const utility::string_t& prefix) {
    return prefix.empty() || prefix.back() == '.' ? prefix : prefix + _XPLATSTR(".");
}

}  // namespace

FieldBase::FieldBase(Model& model, const utility::string_t& key) : m_key(key) {
    (model.m_last ? model.m_last->m_next : model.m_first) = this;
    model.m_last = this;
}

web::json::value Model::toJson() const {
    std::vector<std::pair<utility::string_t, web::json::value>> members;
    for (const FieldBase* field = m_first; field; field = field->m_next)
        if (field->isSet())
            members.emplace_back(field->key(), field->toJson());
    return web::json::value::object(std::move(members), true);
}

void Model::fromJson(web::json::value& val) {
    if (!val.is_object())
        return;  // has no keys
    auto& object = val.as_object();
    for (FieldBase* field = m_first; field; field = field->m_next) {
        // Records are small: comparing the lengths first finds a member sooner than the object's own binary search.
        const auto found = std::find_if(object.begin(), object.end(),
                                        [field](const auto& member) { return member.first == field->m_key; });
        if (found != object.end())
            read(*field, found->second);
    }
}

void Model::toMultipart(std::shared_ptr<MultipartFormData> multipart, const utility::string_t& namePrefix) const {
    const auto prefix = withDot(namePrefix);
    for (const FieldBase* field = m_first; field; field = field->m_next)
        if (field->isSet())
            multipart->add(field->toHttpContent(prefix + field->key()));
}

void Model::fromMultiPart(std::shared_ptr<MultipartFormData> multipart, const utility::string_t& namePrefix) {
    const auto prefix = withDot(namePrefix);
    for (FieldBase* field = m_first; field; field = field->m_next)
        if (const auto content = multipart->getContent(prefix + field->key()))
            field->fromHttpContent(content);
}

}  // namespace io::swagger::client::model
