#include "client/model/MultipartFormData.h"

#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid_io.hpp>
#include <sstream>

namespace io::swagger::client::model {

MultipartFormData::MultipartFormData()
    : m_boundary(utility::conversions::to_string_t(boost::uuids::to_string(boost::uuids::random_generator()()))) {}

void MultipartFormData::add(const std::shared_ptr<HttpContent>& content) {
    m_contents.push_back(content);
    m_byName[content->getName()] = content;
}

std::shared_ptr<HttpContent> MultipartFormData::getContent(const utility::string_t& name) const {
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : found->second;
}

void MultipartFormData::writeTo(web::http::http_request& request) {
    std::ostringstream body;
    writeTo(body);
    const std::string bytes = body.str();
    request.set_body(std::vector<unsigned char>(bytes.begin(), bytes.end()));
    request.headers().set_content_type(_XPLATSTR("multipart/form-data; boundary=") + m_boundary);
}

void MultipartFormData::writeTo(std::ostream& stream) const {
    const auto utf8 = [](const utility::string_t& text) { return utility::conversions::to_utf8string(text); };
    for (const auto& content : m_contents) {
        stream << "\r\n--" << utf8(m_boundary) << "\r\nContent-Disposition: " << utf8(content->getContentDisposition())
               << "; name=\"" << utf8(content->getName()) << '"';
        if (!content->getFileName().empty())
            stream << "; filename=\"" << utf8(content->getFileName()) << '"';
        stream << "\r\n";
        if (!content->getContentType().empty())
            stream << "Content-Type: " << utf8(content->getContentType()) << "\r\n";
        stream << "\r\n";
        content->writeTo(stream);
    }
    stream << "\r\n--" << utf8(m_boundary) << "--\r\n";
}

}  // namespace io::swagger::client::model
