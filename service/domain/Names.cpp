#include "service/domain/Names.h"

#include <algorithm>

#include "service/text/Text.h"

namespace disclosure {

std::string checkedName(const std::string& name, const NameReasons& why) {
    if (!isUtf8(name) || hasControls(name, false) || name.find_first_of("\\/:*?\"<>|") != std::string::npos)
        throw Refusal(why.forbidden);
    std::string checked = trimmed(name);
    if (!showsSomething(checked))
        throw Refusal(why.empty);
    if (lengthOf(checked) > LongestName)
        throw Refusal(why.tooLong);
    return checked;
}

std::string extensionOf(const std::string& name) {
    const auto dot = name.rfind('.');
    std::string extension = dot == std::string::npos ? "" : name.substr(dot + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return extension;
}

}  // namespace disclosure
