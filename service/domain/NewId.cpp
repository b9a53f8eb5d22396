#include "service/domain/NewId.h"

#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid_io.hpp>

namespace disclosure {

std::string newId() {
    // Filling one from the system is dear, taking from it is not.
    thread_local boost::uuids::random_generator_mt19937 generator;
    return boost::uuids::to_string(generator());
}

}  // namespace disclosure
