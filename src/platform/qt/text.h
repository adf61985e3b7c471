#pragma once

#include <QString>
#include <string>

namespace brindlemoor {

/// The one way from bytes to characters: well-formed UTF-8 sequences as UTF-8, any other byte from
/// 128 up as Windows-1252.
QString ToText(const std::string& bytes);

/// Every byte as its one character of Windows-1252, also where several make a UTF-8 sequence.
QString ToCells(const std::string& bytes);

/// `text` as Windows-1252 bytes. A text that holds a character outside it, or whose bytes `ToText`
/// would read otherwise, becomes UTF-8 whole.
std::string ToBytes(const QString& text);

/// The bytes of a text that stood as `before` and was edited into `text`: what the user left alone
/// keeps its own bytes, so that editing a path does not spoil the rest of it. What is new follows
/// the way in which the rest is written, and that of the PC in a path from its root.
std::string EditedBytes(const std::string& before, const QString& text);

/// The same two for texts of several lines, whose line breaks are CR LF as bytes and LF as text.
QString ToLines(const std::string& bytes);
std::string LinesToBytes(const QString& text);

}  // namespace brindlemoor
