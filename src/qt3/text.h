#pragma once

#include <QString>

#include <string>
#include <string_view>

/// Conversion between bytes and QString, for all texts that the window shows or reads.
namespace qt3 {

/// Windows-1251 bytes as text. The text ends at the first zero byte; the unassigned byte 0x98 is U+FFFD. An
/// empty text gives an empty one.
QString from1251(std::string_view bytes);

/// Text as Windows-1251 bytes: '?' for each UTF-16 unit that has no byte, U+0000 included, so a character
/// outside the Basic Multilingual Plane gives "??" and the result never contains a zero byte. A null text
/// gives "".
std::string to1251(const QString& text);

/// The text of an engine message. A message may quote a path, which consists of native bytes: the whole
/// message is UTF-8 when it is valid UTF-8, else Windows-1251.
/// @param what  ends at its zero byte; null gives an empty text
QString fromMessage(const char* what);

} // namespace qt3
