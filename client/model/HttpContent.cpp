#include "client/model/HttpContent.h"

#include <ostream>
#include <stdexcept>

namespace io::swagger::client::model {

void HttpContent::writeTo(std::ostream& stream) const {
    if (!m_data)
        return;
    m_data->clear();
    if (!m_data->seekg(0))
        throw std::runtime_error("The data cannot be read from its start.");
    if (m_data->peek() != std::istream::traits_type::eof())  // copying nothing would count as a failure of `stream`
        stream << m_data->rdbuf();
}

}  // namespace io::swagger::client::model
