#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// What the texts of the editor's cells may be. Nothing here knows the grid.
namespace kestrel::ui {

/// Whether a typed character reaches a cell of the column. The set of the number columns holds a
/// few strays (":", "%" to "(") on purpose. Backspace (8) counts as a character.
bool AcceptsCharacter(int column, bool locked, char32_t code);

/// A percentage as it is left when its row is left: "50" -> "50.00%", "12.5" -> "12.50%", blank
/// -> "100.00%". Other forms, such as ".5%" and "12.345%", stay as typed.
std::string NormalisedPercent(std::string text);

/// The pattern "0.00" and "%": 12.5 -> "12.50%".
std::string FormatPercentCell(double value);

/// Why a text cannot be put into a cell of the column as a whole: a sentence for the user, empty
/// when it can. A description takes the letters of every script, the other columns take what can
/// be typed there.
std::string WhyNotPasted(int column, bool locked, std::string_view text);

/// The number of a "Correlated to" cell, the nearest 32-bit one where it is larger; nothing when
/// the text is not a number.
std::optional<std::int32_t> WholeNumber(const std::string& text);

}  // namespace kestrel::ui
