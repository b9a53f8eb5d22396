#include "service/commands/Organisation.h"

#include <cstdint>
#include <stdexcept>
#include <toml++/toml.h>

#include "service/ports/Changing.h"
#include "service/text/Text.h"

namespace disclosure {

namespace {

constexpr std::size_t LongestName = 128;

[[noreturn]] void wrong(const std::string& what) {
    throw std::invalid_argument("organisation: " + what);
}

std::string textOf(const toml::table& entry, const char* key) {
    const auto text = entry[key].value_exact<std::string>();
    if (!text)
        wrong(std::string("an entry lacks the text \"") + key + "\"");
    return *text;
}

std::string idOf(const toml::table& entry, const char* key) {
    auto id = textOf(entry, key);
    if (!isId(id))
        wrong("\"" + id + "\" is no id: 1 to 64 of the characters A-Z a-z 0-9 _ -");
    return id;
}

std::string nameOf(const toml::table& entry) {
    auto name = textOf(entry, "name");
    const auto points = codePoints(name);
    if (!points || points->empty() || points->size() > LongestName || name.find('\0') != std::string::npos)
        wrong("a name has 1 to 128 characters");
    return name;
}

template <class Take>
void each(const toml::table& root, const char* key, Take&& take) {
    const auto* list = root[key].as_array();
    if (!list)
        return;
    for (const toml::node& node : *list) {
        if (!node.is_table())
            wrong(std::string(key) + " must be written as [[" + key + "]]");
        take(*node.as_table());
    }
}

}  // namespace

void takeOverOrganisation(IStore& store, const std::string& file) {
    const toml::table root = toml::parse_file(file);
    changing(store, [&] {
        each(root, "department", [&](const toml::table& entry) {
            Department department{idOf(entry, "id"), nameOf(entry), entry["parent"].value_or(std::string())};
            if (!department.parentId.empty() && !store.department(department.parentId))
                wrong("the parent of " + department.id + " must stand before it");
            const auto known = store.department(department.id);
            if (known && known->parentId != department.parentId)
                wrong(department.id + " is already elsewhere in the organisation");
            store.putDepartment(department);
        });
        each(root, "project", [&](const toml::table& entry) {
            const auto ppid = entry["ppid"].value_exact<std::int64_t>().value_or(0);
            if (ppid < 1 || ppid > INT32_MAX)
                wrong("a project needs a ppid from 1 to 2147483647");
            Project project{static_cast<std::int32_t>(ppid), nameOf(entry), idOf(entry, "dept")};
            if (!store.department(project.deptId))
                wrong("there is no department " + project.deptId);
            store.putProject(project);
        });
    });
}

}  // namespace disclosure
