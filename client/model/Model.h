#pragma once

#include "client/model/ModelBase.h"

namespace io::swagger::client::model {

class Model;

/// A field of a model: its key and whether it is set. Enrols itself in its model, in the order of declaration.
class FieldBase {
public:
    virtual ~FieldBase() = default;
    FieldBase(const FieldBase&) = delete;
    FieldBase& operator=(const FieldBase&) = delete;

    const utility::string_t& key() const { return m_key; }
    bool isSet() const { return m_isSet; }
    const FieldBase* next() const { return m_next; }

    virtual web::json::value toJson() const = 0;
    virtual void fromJson(web::json::value& val) = 0;
    virtual ModelBase::Content toHttpContent(const utility::string_t& name) const = 0;
    virtual void fromHttpContent(const ModelBase::Content& content) = 0;

protected:
    /// `key` is borrowed for the program's life.
    FieldBase(Model& model, const utility::string_t& key);

    bool m_isSet = false;

private:
    friend class Model;

    const utility::string_t& m_key;
    FieldBase* m_next = nullptr;
};

/// A record whose fields have enrolled themselves; derived classes only list them.
class Model : public ModelBase {
public:
    using ModelBase::toJson;

    Model() = default;
    Model(const Model&) = delete;  // the fields know where they stand
    Model& operator=(const Model&) = delete;

    void validate() override {}
    web::json::value toJson() const override;
    void fromJson(web::json::value& val) override;
    void toMultipart(std::shared_ptr<MultipartFormData> multipart, const utility::string_t& namePrefix) const override;
    void fromMultiPart(std::shared_ptr<MultipartFormData> multipart, const utility::string_t& namePrefix) override;

    /// The first field, from which `next()` leads on; null for a record without fields.
    const FieldBase* fields() const { return m_first; }

protected:
    /// Reads one field of this record.
    virtual void read(FieldBase& field, web::json::value& val) { field.fromJson(val); }

private:
    friend class FieldBase;

    FieldBase* m_first = nullptr;
    FieldBase* m_last = nullptr;
};

}  // namespace io::swagger::client::model
