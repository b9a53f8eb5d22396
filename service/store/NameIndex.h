#pragma once

#include <string>
#include <string_view>

struct sqlite3;

namespace disclosure {

/// The form of a name in which it is compared and sorted: without the difference between capitals and small letters.
std::string searchForm(std::string_view text);

/// The characters and pairs of characters of a text in its search form, as words of the name index. The department is
/// part of each word, so that no department reads another's.
std::string gramsOf(std::string_view deptId, std::string_view searchForm);

/// What to ask of the name index for the tasks that may hold the text. Those of one or two characters surely do.
std::string gramQuery(std::string_view deptId, std::string_view searchForm);
bool gramQueryIsExact(std::string_view searchForm);

/// Teaches the connection the functions name_grams(dept_id, search_name), which the triggers of the name index call,
/// and search_name(name).
void installNameGrams(sqlite3* connection);

}  // namespace disclosure
