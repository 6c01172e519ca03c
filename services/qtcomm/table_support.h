#pragma once
// Internal: what the skin and language tables share.

#include <QString>

#include <string>

namespace qtcomm_detail {

// Logs `what` at the fault level with the caller's position.
void LogRefusedTable(char const *file, int line, char const *function, QString const &what);

// The text of a built-in table in the resources; false, with a warning, if it is missing.
bool ReadBuiltInTable(QString const &path, std::string *text);

// UTF-8 to the wide text the services hand out; broken sequences become U+FFFD.
std::wstring ToWide(std::string const &utf8);

} // namespace qtcomm_detail
