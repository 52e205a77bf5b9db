// Names and paths of keys as the store keeps them.
//
// Names are bytes of the active code page. The store finds them by a folded form, in which letters that
// differ in case only are the same; the form as written is kept beside it. A key's path is its root's short
// name and the folded names below, each after a zero byte, which no name can hold.
#pragma once

#include <windef.h>

#include <string>
#include <string_view>
#include <vector>

inline constexpr std::size_t kMaxKeyName = 255;     // characters
inline constexpr std::size_t kMaxValueName = 16383; // characters
inline constexpr std::size_t kMaxLevels = 512;      // below the root

// The names between the backslashes of `text`; empty ones are left out. A backslash that is the second byte
// of a double-byte character separates nothing.
std::vector<std::string> SplitKeyText(std::string_view text);

// The form of a name under which it is found.
std::string FoldName(std::string_view name);

// The characters of a name in the active code page.
std::size_t CountCharacters(std::string_view name);

// The path of the key `name` (as written) below the key `parent`.
std::string ChildPath(const std::string& parent, std::string_view name);

// How many keys lie between the root and this one, itself included; 0 for a root.
std::size_t LevelOf(const std::string& path);

// The path of a root key's handle; empty when it is none.
std::string RootPath(HKEY key);

// The handle of the root key whose path this is; null when it is none.
HKEY RootHandle(std::string_view path);
