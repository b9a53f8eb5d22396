#pragma once

#include <cpprest/details/basic_types.h>
#include <istream>
#include <memory>

namespace io::swagger::client::model {

/// A file or form part. The getters and setters are in a fixed order.
class HttpContent {
public:
    virtual ~HttpContent() = default;

    virtual utility::string_t getContentDisposition() const { return m_contentDisposition; }
    virtual void setContentDisposition(const utility::string_t& value) { m_contentDisposition = value; }
    virtual utility::string_t getName() const { return m_name; }
    virtual void setName(const utility::string_t& value) { m_name = value; }
    virtual utility::string_t getFileName() const { return m_fileName; }
    virtual void setFileName(const utility::string_t& value) { m_fileName = value; }
    virtual utility::string_t getContentType() const { return m_contentType; }
    virtual void setContentType(const utility::string_t& value) { m_contentType = value; }
    virtual std::shared_ptr<std::istream> getData() const { return m_data; }
    virtual void setData(std::shared_ptr<std::istream> value) { m_data = std::move(value); }
    /// Copies the data from its start; may be repeated. Throws `std::runtime_error` for data that cannot be sought in.
    virtual void writeTo(std::ostream& stream) const;

private:
    utility::string_t m_contentDisposition;
    utility::string_t m_name;
    utility::string_t m_fileName;
    utility::string_t m_contentType;
    std::shared_ptr<std::istream> m_data;
};

}  // namespace io::swagger::client::model
