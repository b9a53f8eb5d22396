#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace disclosure {

/// Whether the bytes are UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
bool isUtf8(std::string_view text);

/// The code points of UTF-8 text; nothing when it is not UTF-8.
std::optional<std::u32string> codePoints(std::string_view text);

/// The text without the difference between capitals and small letters, of whatever script; empty when it is not UTF-8.
std::string foldedCase(std::string_view text);

/// Whether the text can be the id of a record: 1 to 64 of A-Z a-z 0-9 _ -
bool isId(std::string_view text);

/// Whether the text can be the address of a mailbox: ASCII, at most 254 bytes, without quoting.
bool isMailAddress(std::string_view text);

/// The length in UTF-16 units, as the clients count.
std::size_t lengthOf(std::string_view text);

/// The text without the blanks around it.
std::string trimmed(std::string_view text);

/// Whether there is more to be seen than blanks. Signs without a shape of their own, such as a zero-width joiner, are
/// part of names in many scripts, but make none alone.
bool showsSomething(std::string_view text);

/// Whether the text holds a control character; with `lines`, tabs and line ends are none.
bool hasControls(std::string_view text, bool lines);

}  // namespace disclosure
