#pragma once

#include <map>
#include <memory>
#include <ostream>
#include <vector>

#include "client/model/HttpContent.h"
#include "client/model/IHttpBody.h"

namespace io::swagger::client::model {

/// A body of named parts.
class MultipartFormData : public IHttpBody {
public:
    /// Makes a boundary of its own.
    MultipartFormData();
    explicit MultipartFormData(const utility::string_t& boundary) : m_boundary(boundary) {}

    void add(const std::shared_ptr<HttpContent>& content);
    const utility::string_t& getBoundary() const { return m_boundary; }
    bool hasContent(const utility::string_t& name) const { return m_byName.count(name) > 0; }
    /// The part last added under `name`; null when there is none.
    std::shared_ptr<HttpContent> getContent(const utility::string_t& name) const;

    void writeTo(web::http::http_request& request) override;
    void writeTo(std::ostream& stream) const;

private:
    utility::string_t m_boundary;
    std::vector<std::shared_ptr<HttpContent>> m_contents;
    std::map<utility::string_t, std::shared_ptr<HttpContent>> m_byName;
};

}  // namespace io::swagger::client::model
