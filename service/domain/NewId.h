#pragma once

#include <string>
#include <vector>

namespace disclosure {

/// An id that nothing has yet.
std::string newId();

/// Gives one to the elements without.
template <class Element>
void giveIds(std::vector<Element>& list) {
    for (Element& element : list) {
        if (element.id.empty())
            element.id = newId();
    }
}

}  // namespace disclosure
