#pragma once

#include <type_traits>
#include <utility>

#include "client/model/Model.h"

namespace io::swagger::client::model {

template <class M>
using ListOf = std::vector<std::shared_ptr<M>>;

/// How a field's value is written and read: the plain types here, records and lists below.
template <class T>
struct Codec;

template <>
struct Codec<utility::string_t> {
    /// The text is taken out of `val`: an answer is read once, and copies would be half of what reading a page costs.
    static utility::string_t read(web::json::value& val) {
        if (val.is_null())
            return {};
        return std::move(const_cast<utility::string_t&>(val.as_string()));
    }
    static utility::string_t read(const ModelBase::Content& part) { return ModelBase::stringFromHttpContent(part); }
};
template <>
struct Codec<int32_t> {
    static int32_t read(web::json::value& val) { return ModelBase::int32FromJson(val); }
    static int32_t read(const ModelBase::Content& part) { return ModelBase::int32FromHttpContent(part); }
};
template <>
struct Codec<int64_t> {
    static int64_t read(web::json::value& val) { return ModelBase::int64FromJson(val); }
    static int64_t read(const ModelBase::Content& part) { return ModelBase::int64FromHttpContent(part); }
};
template <>
struct Codec<bool> {
    static bool read(web::json::value& val) { return ModelBase::boolFromJson(val); }
    static bool read(const ModelBase::Content& part) { return ModelBase::boolFromHttpContent(part); }
};

/// A record in a record. Null stays null; anything else but an object is refused.
template <class M>
struct Codec<std::shared_ptr<M>> {
    static web::json::value write(const std::shared_ptr<M>& value) {
        return value ? value->toJson() : web::json::value::null();
    }
    static std::shared_ptr<M> read(web::json::value& val) {
        if (val.is_null())
            return nullptr;
        if (!val.is_object())
            throw web::json::json_exception("not an object");
        auto value = std::make_shared<M>();
        value->fromJson(val);
        return value;
    }
};

/// A list in a record. Null reads as the empty list.
template <class T>
struct Codec<std::vector<T>> {
    static web::json::value write(const std::vector<T>& list) {
        std::vector<web::json::value> items;
        items.reserve(list.size());
        for (const T& item : list) {
            if constexpr (requires { Codec<T>::write(item); })
                items.push_back(Codec<T>::write(item));
            else
                items.push_back(ModelBase::toJson(item));
        }
        return web::json::value::array(std::move(items));
    }
    static std::vector<T> read(web::json::value& val) {
        std::vector<T> list;
        if (val.is_null())
            return list;
        list.reserve(val.as_array().size());
        for (web::json::value& item : val.as_array())
            list.push_back(Codec<T>::read(item));
        return list;
    }
};

/// A field of type `T`; `T` is one of the types that `Codec` knows.
template <class T>
class Field final : public FieldBase {
public:
    Field(Model& model, const utility::string_t& key) : FieldBase(model, key) {}

    const T& value() const { return m_value; }
    void set(T value) {
        m_value = std::move(value);
        m_isSet = true;
    }
    void unset() {
        m_value = T();
        m_isSet = false;
    }

    web::json::value toJson() const override {
        if constexpr (kIsComposed)
            return Codec<T>::write(m_value);
        else
            return ModelBase::toJson(m_value);
    }
    void fromJson(web::json::value& val) override { set(Codec<T>::read(val)); }

    ModelBase::Content toHttpContent(const utility::string_t& name) const override {
        if constexpr (kIsComposed)
            return ModelBase::toHttpContent(name, toJson().serialize(), _XPLATSTR("application/json"));
        else
            return ModelBase::toHttpContent(name, m_value);
    }
    void fromHttpContent(const ModelBase::Content& content) override {
        if constexpr (kIsComposed) {
            auto val = web::json::value::parse(ModelBase::stringFromHttpContent(content));
            fromJson(val);
        } else {
            set(Codec<T>::read(content));
        }
    }

private:
    static constexpr bool kIsComposed = requires(const T& value) { Codec<T>::write(value); };

    T m_value{};
};

}  // namespace io::swagger::client::model

/// A field of a model: its getter, setter, "is set" query and unset, and the field itself under the key "name".
#define MODEL_FIELD(Type, name, Name)                         \
public:                                                       \
    const Type& get##Name() const {                           \
        return m_##name.value();                              \
    }                                                         \
    void set##Name(Type value) {                              \
        m_##name.set(std::move(value));                       \
    }                                                         \
    bool name##IsSet() const {                                \
        return m_##name.isSet();                              \
    }                                                         \
    void unset##Name() {                                      \
        m_##name.unset();                                     \
    }                                                         \
                                                              \
private:                                                      \
    static const utility::string_t& name##Key() {             \
        static const utility::string_t key(_XPLATSTR(#name)); \
        return key;                                           \
    }                                                         \
    ::io::swagger::client::model::Field<Type> m_##name{*this, name##Key()};
