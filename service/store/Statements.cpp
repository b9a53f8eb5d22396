#include "service/store/Statements.h"

#include <exception>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace disclosure {

std::string listed(const std::vector<std::int64_t>& numbers) {
    std::string text;
    for (const std::int64_t number : numbers)
        text += (text.empty() ? "" : ",") + std::to_string(number);
    return text;
}

std::string jsonOf(const std::vector<std::string>& texts) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    writer.StartArray();
    for (const std::string& text : texts)
        writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    writer.EndArray();
    return {buffer.GetString(), buffer.GetSize()};
}

Statements::Kept::Kept(Statements& owner, std::string_view text)
    : m_owner(owner), m_failuresBefore(std::uncaught_exceptions()) {
    std::string key(text);
    m_entry = owner.m_kept.find(key);
    if (m_entry != owner.m_kept.end())
        return;
    soci::statement statement(owner.m_sql);
    statement.alloc();
    statement.prepare(key);
    m_entry = owner.m_kept.emplace(std::move(key), std::move(statement)).first;
}

Statements::Kept::~Kept() {
    if (std::uncaught_exceptions() > m_failuresBefore)
        m_owner.m_kept.erase(m_entry);
    else
        m_entry->second.bind_clean_up();
}

}  // namespace disclosure
