#pragma once

#include <cstddef>
#include <string>

#include "ui/controls/Events.h"

/// Typing into a line of UTF-8 text at a caret. The caret is a byte offset that always stands
/// before a whole character or at the end.
namespace kestrel::ui {

void InsertAtCaret(std::string& text, std::size_t& caret, char32_t character);

/// Removes the character before the caret, if any. Answers whether there was one.
bool EraseBeforeCaret(std::string& text, std::size_t& caret);

/// Left, Right, Home and End move the caret, Delete removes the character behind it. Answers
/// whether the key is one of these.
bool ApplyCaretKey(Key key, std::string& text, std::size_t& caret);

}  // namespace kestrel::ui
